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

/// Whether to make a picture of so many pixels, which a file merely claims, for so many bytes of
/// data: always up to 2^24 pixels, beyond that only if the densest packing could hold it.
constexpr bool MayHold(std::uint64_t size, std::uint64_t pixels, std::uint64_t mostPixelsPerByte) {
    constexpr std::uint64_t kAlwaysMade = std::uint64_t{1} << 24;
    return pixels <= kAlwaysMade || pixels <= SaturatedProduct({size, mostPixelsPerByte});
}

}  // namespace kv
