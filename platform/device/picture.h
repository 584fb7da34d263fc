#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include <platform/types.h>

namespace kv::raster {
class AreaSink;
class BitSurface;
}  // namespace kv::raster

namespace kv::dib {
class ColourBitmap;
}  // namespace kv::dib

namespace kv::device {

/// What stands behind a bitmap handle. Each kind of picture takes some kinds of drawing: what a
/// picture does not take or give is null, false or nothing.
class Picture {
  public:
    virtual ~Picture() = default;

    virtual raster::BitSurface* ForText() { return nullptr; }
    virtual raster::AreaSink* ForShapes() { return nullptr; }
    virtual dib::ColourBitmap* ForBitmaps() { return nullptr; }
    /// Clears a rectangle, clipped to the picture.
    virtual bool ClearRect(std::int64_t /*left*/, std::int64_t /*top*/, std::int64_t /*right*/,
                           std::int64_t /*bottom*/) {
        return false;
    }

    /// See CBitmap::GetBitmapBits: the number of bytes copied.
    virtual std::size_t CopyBits(std::span<BYTE> /*bits*/) const { return 0; }
    /// See CBitmap::GetCoverage, for a scale that it names. Throws std::bad_alloc.
    virtual bool ReadCoverage(LONG /*scale*/, LONG /*columns*/, BYTE* /*coverage*/,
                              std::size_t /*stride*/) const {
        return false;
    }
};

// The kinds of pictures. Null for a size below 1 by 1 and when there is no memory.

/// One bit a pixel, all 0: takes text and shapes.
std::shared_ptr<Picture> MakeBitPicture(LONG width, LONG height);
/// The same kept as a drawing: takes shapes, gives coverage.
std::shared_ptr<Picture> MakeDrawnPicture(LONG width, LONG height);
/// Takes bitmaps. Null for a null bitmap, too.
std::shared_ptr<Picture> MakeColourPicture(std::shared_ptr<dib::ColourBitmap> bitmap);

}  // namespace kv::device
