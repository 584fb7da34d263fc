#pragma once

#include <cstdint>
#include <limits>

#include <platform/types.h>

#include "base/outcome.h"

namespace kv {

/// What the calls return that make and release the store of a surface or a bitmap.
enum StoreResult : int {
    kStoreDone = 0,
    kStoreExists = 1,
    kStoreRefused = 2,  ///< no memory, or more than kMaxStoreBytes
    kStoreMissing = 3,
    kStoreNoSize = 4  ///< a width or height below 1
};

/// Sizes in bytes are kept in 32 bits.
constexpr std::uint64_t kMaxStoreBytes = std::numeric_limits<DWORD>::max();

/// The outcome of making a store of the given bytes. One without a size is left empty, which is no
/// failure: there is nothing to draw in it.
constexpr Outcome MadeStore(int result, std::uint64_t bytes) {
    switch (result) {
        case kStoreDone:
            return {};
        case kStoreNoSize:
            return Outcome::DoneDespite(Cause::kNothingToDraw);
        default:
            return bytes > kMaxStoreBytes ? Cause::kTooLarge : Cause::kNoMemory;
    }
}

}  // namespace kv
