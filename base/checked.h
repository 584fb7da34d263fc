#pragma once

#include <cstdint>
#include <initializer_list>
#include <limits>

namespace kv {

/// The product of the factors, or the largest value when 64 bits do not hold it: compare it with
/// what there is before narrowing.
constexpr std::uint64_t SaturatedProduct(std::initializer_list<std::uint64_t> factors) {
    std::uint64_t product = 1;
    bool overflow = false;
    bool zero = false;
    for (const std::uint64_t factor : factors) {
        zero |= factor == 0;
        overflow |= __builtin_mul_overflow(product, factor, &product);
    }
    if (zero) {
        return 0;
    }
    return overflow ? std::numeric_limits<std::uint64_t>::max() : product;
}

}  // namespace kv
