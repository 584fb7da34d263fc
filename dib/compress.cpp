// Bitmaps between plain and run-length rows, by way of the device.

#include <algorithm>
#include <memory>
#include <new>

#include <CDib.h>

#include "dib/layout.h"
#include "platform/bitmap/format.h"
#include "platform/device/device.h"

namespace {

// A palette in a context as long as this lives.
class SelectedPalette {
  public:
    SelectedPalette(CDC* dc, HPALETTE palette) : m_Dc(dc) {
        if (m_Dc != nullptr) {
            m_Old = m_Dc->SelectPalette(palette != nullptr ? *palette : CPalette(), false);
        }
    }
    SelectedPalette(const SelectedPalette&) = delete;
    SelectedPalette& operator=(const SelectedPalette&) = delete;
    ~SelectedPalette() {
        if (m_Dc != nullptr) {
            m_Dc->SelectPalette(m_Old, false);
        }
    }

  private:
    CDC* m_Dc;
    CPalette m_Old;
};

struct DeleteBitmap {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};

}  // namespace

int CDib::Compress(CDC* dc, int compress) try {
    if (m_Header == nullptr || (GetBitCount() != 4 && GetBitCount() != 8) || m_Bitmap != nullptr) {
        return 0;
    }
    const SelectedPalette selected(dc, m_Palette);
    const std::unique_ptr<CBitmap, DeleteBitmap> bitmap(CreateBitmap(dc));
    if (bitmap == nullptr) {
        return 0;
    }
    const std::span<const BYTE> old = Info();
    const std::size_t infoBytes = old.size();
    auto info = std::make_unique<BYTE[]>(infoBytes);
    std::ranges::copy(old, info.get());
    auto* header = reinterpret_cast<tagBITMAPINFOHEADER*>(info.get());
    header->biCompression = BI_RGB;
    if (compress != 0) {
        header->biCompression = GetBitCount() == 4 ? BI_RLE4 : BI_RLE8;
    }
    const std::span<BYTE> room(info.get(), infoBytes);
    if (GetDIBits(dc, bitmap.get(), {}, room, DIB_RGB_COLORS) == 0 || header->biSizeImage == 0) {
        return 0;
    }
    const DWORD imageBytes = header->biSizeImage;
    auto image = std::make_unique_for_overwrite<BYTE[]>(imageBytes);
    if (GetDIBits(dc, bitmap.get(), {image.get(), imageBytes}, room, DIB_RGB_COLORS) == 0) {
        return 0;
    }
    Empty();
    InstallHeader(reinterpret_cast<tagBITMAPINFOHEADER*>(info.release()), infoBytes, 1);
    m_Image = image.release();
    m_ImageAlloc = 1;
    ComputePaletteSize(m_Header->biBitCount);
    MakePalette();
    return 1;
} catch (const std::bad_alloc&) {
    return 0;  // nothing is replaced before all memory is there
}
