// Bitmaps on device contexts.

#include <utility>

#include <CDib.h>

#include "dib/layout.h"
#include "dib/palette.h"
#include "platform/device/device.h"

namespace {

// What is drawn: rows with their header and colours, and the palette that goes with them.
struct Picture {
    std::span<const BYTE> pixels;
    std::span<const BYTE> info;
    HPALETTE palette;
};

void DrawPart(CDC* dc, const kv::dib::StretchBox& dest, const Picture& picture,
              const kv::dib::StretchBox& src) {
    if (picture.palette != nullptr) {
        SelectPalette(dc, picture.palette, true);
    }
    SetStretchBltMode(dc, COLORONCOLOR);
    StretchDIBits(dc, dest, src, picture.pixels, picture.info, DIB_RGB_COLORS, SRCCOPY);
}

}  // namespace

int CDib::Draw(CDC* dc, CPoint origin, CSize size) {
    if (m_Header == nullptr) {
        return 0;
    }
    const CSize whole = GetDimensions();
    DrawPart(dc, {origin.x, origin.y, size.cx, size.cy}, {Pixels(), Info(), m_Palette},
             {0, 0, whole.cx, whole.cy});
    return 1;
}

int CDib::Draw(CDC* dc, CRect dest, CRect src) {
    if (m_Header == nullptr) {
        return 0;
    }
    DrawPart(dc, {dest.left, dest.top, dest.Width(), dest.Height()}, {Pixels(), Info(), m_Palette},
             {src.left, src.top, src.Width(), src.Height()});
    return 1;
}

int CDib::DrawVfw(CDC* dc, CPoint origin, CSize size) {
    Draw(dc, origin, size);
    return 1;
}

int CDib::DrawVfw(CDC* dc, CRect dest, CRect src) {
    Draw(dc, dest, src);
    return 1;
}

HBITMAP CDib::CreateSection(CDC* dc) {
    if (m_Header == nullptr || m_Image != nullptr) {
        return nullptr;
    }
    m_Bitmap = CreateDIBSection(dc, Info(), DIB_RGB_COLORS, &m_Image);
    m_SizeImage = kv::dib::NarrowedSize(kv::dib::PlainBytes(*m_Header));
    return m_Bitmap;
}

HBITMAP CDib::CreateBitmap(CDC* dc) {
    if (m_SizeImage == 0) {
        return nullptr;
    }
    return CreateDIBitmap(dc, CBM_INIT, Pixels(), Info(), DIB_RGB_COLORS);
}

int CDib::SetSystemPalette(CDC* dc) {
    if (m_ColorEntries != 0 || (GetDeviceCaps(dc, RASTERCAPS) & RC_PALETTE) == 0) {
        return 0;
    }
    DeleteObject(std::exchange(m_Palette, kv::dib::SystemPalette(dc)));
    return 1;
}

unsigned int CDib::UsePalette(CDC* /*dc*/, int /*background*/) {
    return 0;
}
