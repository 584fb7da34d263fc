#pragma once

#include <limits>

#include <CKVGrayBitmap.h>

#include "surface/store_result.h"

namespace kv {

/// Columns and rows of a coverage that is larger than another by the same amount on both axes. It
/// grows from the source's Pitch, not its Width.
struct GrownSize {
    std::int64_t width;
    std::int64_t height;
};

inline GrownSize Grown(const CKVGrayBitmap& source, std::int64_t by) {
    return {source.Pitch + by, source.Height + by};
}

/// Replaces what target held by a coverage of 0 that is grown from the source, which has pixels.
/// Fails with the target unchanged when it is the source.
inline Outcome CreateGrown(CKVGrayBitmap& target, const CKVGrayBitmap& source, std::int64_t by) {
    if (&target == &source) {
        return Cause::kBadArgument;
    }
    target.Delete();
    const GrownSize size = Grown(source, by);
    constexpr std::int64_t kMaxSide = std::numeric_limits<LONG>::max();
    if (size.width > kMaxSide || size.height > kMaxSide) {
        return Cause::kTooLarge;
    }
    const int created =
        target.Create(static_cast<LONG>(size.width), static_cast<LONG>(size.height));
    return MadeStore(
        created, static_cast<std::uint64_t>(size.width) * static_cast<std::uint64_t>(size.height));
}

/// True if target has room for by more columns and rows than the source has.
inline bool HasRoom(const CKVGrayBitmap& target, const CKVGrayBitmap& source, std::int64_t by) {
    return target.Width >= source.Width + by && target.Height >= source.Height + by;
}

}  // namespace kv
