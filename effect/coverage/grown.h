#pragma once

#include <CKVGrayBitmap.h>

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

/// Creates the coverage in target, which must be empty; false when it cannot be made.
inline bool CreateGrown(CKVGrayBitmap& target, GrownSize size) {
    const auto width = static_cast<LONG>(size.width);
    const auto height = static_cast<LONG>(size.height);
    return width == size.width && height == size.height && target.Create(width, height) == 0;
}

/// True if target has room for by more columns and rows than the source has.
inline bool HasRoom(const CKVGrayBitmap& target, const CKVGrayBitmap& source, std::int64_t by) {
    return target.Width >= source.Width + by && target.Height >= source.Height + by;
}

}  // namespace kv
