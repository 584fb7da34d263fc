// The pictures behind bitmap handles: each lends what it is made of to the calls that draw on it.

#include "platform/device/picture.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "platform/bitmap/colour_bitmap.h"
#include "raster/bit_sink.h"
#include "raster/bit_surface.h"
#include "raster/drawing.h"
#include "raster/scan_converter.h"

namespace kv::device {
namespace {

using raster::BitSurface;
using raster::Drawing;

// Paints areas at once.
class BitPicture final : public Picture, private raster::AreaSink {
  public:
    explicit BitPicture(std::shared_ptr<BitSurface> surface) : m_Surface(std::move(surface)) {}

    BitSurface* ForText() override { return m_Surface.get(); }
    raster::AreaSink* ForShapes() override { return this; }
    bool ClearRect(std::int64_t left, std::int64_t top, std::int64_t right,
                   std::int64_t bottom) override {
        m_Surface->FillRect(left, top, right, bottom, false);
        return true;
    }
    std::size_t CopyBits(std::span<BYTE> bits) const override {
        const std::size_t size =
            m_Surface->Stride() * static_cast<std::size_t>(m_Surface->Height());
        const std::size_t copied = std::min(bits.size(), size);
        std::memcpy(bits.data(), m_Surface->Row(0), copied);
        return copied;
    }

  private:
    void Paint(raster::Area area) override {
        raster::BitSink sink(*m_Surface, 0, 0, area.value);
        raster::ScanConverter().Convert(area.contours, area.rule, sink.Bounds(), sink);
    }

    std::shared_ptr<BitSurface> m_Surface;
};

class DrawnPicture final : public Picture {
  public:
    DrawnPicture(LONG width, LONG height) : m_Drawing(width, height) {}

    raster::AreaSink* ForShapes() override { return &m_Drawing; }
    bool ClearRect(std::int64_t left, std::int64_t top, std::int64_t right,
                   std::int64_t bottom) override {
        m_Drawing.ClearRect(left, top, right, bottom);
        return true;
    }
    bool ReadCoverage(LONG scale, LONG columns, BYTE* coverage, std::size_t stride) const override {
        m_Drawing.ReadCoverage(scale, columns, coverage, stride);
        return true;
    }

  private:
    Drawing m_Drawing;
};

class ColourPicture final : public Picture {
  public:
    explicit ColourPicture(std::shared_ptr<dib::ColourBitmap> bitmap)
        : m_Bitmap(std::move(bitmap)) {}

    dib::ColourBitmap* ForBitmaps() override { return m_Bitmap.get(); }
    std::size_t CopyBits(std::span<BYTE> bits) const override {
        return m_Bitmap->CopyTopDown(bits);
    }

  private:
    std::shared_ptr<dib::ColourBitmap> m_Bitmap;
};

}  // namespace

std::shared_ptr<Picture> MakeBitPicture(LONG width, LONG height) try {
    auto surface = BitSurface::Create(width, height);
    return surface != nullptr ? std::make_shared<BitPicture>(std::move(surface)) : nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

std::shared_ptr<Picture> MakeDrawnPicture(LONG width, LONG height) try {
    return width >= 1 && height >= 1 ? std::make_shared<DrawnPicture>(width, height) : nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

std::shared_ptr<Picture> MakeColourPicture(std::shared_ptr<dib::ColourBitmap> bitmap) try {
    return bitmap != nullptr ? std::make_shared<ColourPicture>(std::move(bitmap)) : nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

}  // namespace kv::device
