// Device-independent bitmaps on a device context, and icons.

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "entry.h"

namespace gallery {

/// The picture that is shown in all depths.
static void DrawBanner(CKVFrameBuffer& picture) {
    Sky(picture, 240, 110);
    CDrawText title;
    title.SetString(KVFromUtf8("夕空 Aa"));
    title.SetSize(64, 80);
    title.SetPos(16, 78);
    title.SetBodyCol(0xFFFFE060);
    title.SetEdgeType(0, 3, 0);
    title.SetEdgeCol(0xFF802020);
    title.SetShadType(2, 4, 4, 3);
    title.DrawFrame(nullptr, &picture);
}

/// A frame buffer's colours as a bitmap of 24 bits.
static void MakeDib(CDib& dib, const CKVFrameBuffer& picture) {
    const CSize size = picture.GetWH();
    if (dib.Create(size.cx, size.cy, 24, 0) == 1) {
        picture.CopyBitmap24(static_cast<BYTE*>(dib.GetImageBuffer()), nullptr, 0);
    }
}

/// Colours spread over the cube, as many as the depth has.
static void FillColours(CDib& dib) {
    const int steps = dib.m_ColorEntries >= 216 ? 6 : 2;
    for (int i = 0; i < dib.m_ColorEntries; ++i) {
        const auto level = [&](int digit) {
            return static_cast<BYTE>(digit % steps * 255 / (steps - 1));
        };
        const BYTE half = i >= 8 && steps == 2 ? 2 : 1;  // the second eight are darker
        dib.m_ColorTable[i] = {static_cast<BYTE>(level(i) / half),
                               static_cast<BYTE>(level(i / steps) / half),
                               static_cast<BYTE>(level(i / steps / steps) / half), 0};
    }
    if (dib.m_ColorEntries == 2) {
        dib.m_ColorTable[1] = {255, 255, 255, 0};
    }
}

/// What a context shows, opaque.
static void CopyScreen(CKVFrameBuffer& picture, const CBitmap& screen, LONG width, LONG height) {
    if (picture.CreateFrameBuffer(width, height, 0) == 0) {
        screen.GetBitmapBits(picture.GetSize(), picture.GetBufferByte());
        for (DWORD i = 0; i < picture.GetSize() / 4; ++i) {
            picture.GetBufferDWord()[i] |= 0xFF000000;
        }
    }
}

static void DepthsDrawn(CKVFrameBuffer& picture) {
    CKVFrameBuffer banner;
    DrawBanner(banner);
    CDib original;
    MakeDib(original, banner);
    CBitmap screen;
    screen.CreateBitmap(720, 220, 1, 32, nullptr);
    CDC dc;
    dc.SelectObject(screen);
    LONG place = 0;
    for (const int bits : {1, 4, 8, 16, 24, 32}) {
        CDib dib(CSize(240, 110), bits);
        FillColours(dib);
        const HBITMAP section = dib.CreateSection(&dc);
        CDC memory;
        memory.SelectObject(*section);
        original.Draw(&memory, CPoint(0, 0), CSize(240, 110));  // the nearest colours
        dib.Draw(&dc, CPoint(place % 3 * 240, place / 3 * 110), CSize(240, 110));
        ++place;
    }
    CopyScreen(picture, screen, 720, 220);
}

static void StretchedAndMirrored(CKVFrameBuffer& picture) {
    CKVFrameBuffer banner;
    DrawBanner(banner);
    CDib dib;
    MakeDib(dib, banner);
    CBitmap screen;
    screen.CreateBitmap(720, 220, 1, 32, nullptr);
    CDC dc;
    dc.SelectObject(screen);
    dib.Draw(&dc, CPoint(0, 0), CSize(240, 220));
    dib.Draw(&dc, CRect(479, 0, 239, 110), CRect(0, 0, 240, 110));    // to the left
    dib.Draw(&dc, CRect(240, 219, 480, 109), CRect(0, 0, 240, 110));  // upside down
    dib.Draw(&dc, CRect(480, 0, 720, 220), CRect(20, 30, 80, 85));    // a part, from below
    CopyScreen(picture, screen, 720, 220);
}

static void IconsOfAPicture(CKVFrameBuffer& picture) {
    const auto folder = std::filesystem::temp_directory_path();
    const std::string name = (folder / "kvdraw_gallery.bmp").string();
    const std::string icon = (folder / "kvdraw_gallery_icon.bmp").string();
    CImgFile image;
    DrawBanner(*image.GetImg());
    image.SaveImage(name.c_str());
    Sky(picture, 720, 220);
    image.DrawFrame(&picture);
    LONG left = 256;
    for (const CSize size : {CSize(120, 55), CSize(64, 64), CSize(48, 22), CSize(32, 100)}) {
        CImgFile small(icon.c_str(), left, 12, 0);
        if (image.SaveIconBmp(size.cx, size.cy) == 0 && small.LoadImg() == 0) {
            small.DrawFrame(&picture);
        }
        left += size.cx + 16;
    }
    std::filesystem::remove(name);
    std::filesystem::remove(icon);
}

std::span<const Entry> Bitmaps() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(DepthsDrawn, "Bitmaps of 1, 4, 8, 16, 24 and 32 bits a pixel"),
        GALLERY_ENTRY(StretchedAndMirrored, "A bitmap stretched, mirrored and in part"),
        GALLERY_ENTRY(IconsOfAPicture, "A picture and icons of it"),
    };
    return kEntries;
}

}  // namespace gallery
