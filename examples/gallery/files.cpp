// Pictures to files and back.

#include <filesystem>

#include "entry.h"

namespace gallery {

static void DrawTitle(CKVFrameBuffer& drawn, DWORD edgeColour) {
    CDrawText title;
    title.SetString(KVFromUtf8("保存して読む"));
    title.SetSize(64, 90);
    title.SetEdgeType(0, 4, 0);
    title.SetEdgeCol(edgeColour);
    CBox area, body, edge, shadow;
    title.DrawFrameEria(nullptr, &drawn, area, body, edge, shadow);
}

static std::string TemporaryFile(const char* name) {
    return (std::filesystem::temp_directory_path() / name).string();
}

static void TargaRoundTrip(CKVFrameBuffer& picture) {
    CKVFrameBuffer drawn;
    DrawTitle(drawn, 0xFF207040);
    const std::string file = TemporaryFile("kvdraw_gallery.tga");
    CKVTargaImage targa;
    if (targa.SaveImage(file.c_str(), &drawn, 1) == 0) {  // run-length, key included
        targa.LoadImg(file.c_str(), &picture);
    }
    std::filesystem::remove(file);
}

static void PictRoundTrip(CKVFrameBuffer& picture) {
    CKVFrameBuffer drawn;
    DrawTitle(drawn, 0xFF204070);
    const std::string file = TemporaryFile("kvdraw_gallery.pct");
    CKVPictImage pict;
    if (pict.SaveImage(file.c_str(), &drawn, 0) == 0) {  // packed, key included
        pict.LoadImg(file.c_str(), &picture);
    }
    std::filesystem::remove(file);
}

static void Composited(CKVFrameBuffer& picture) {
    Sky(picture, 720, 220);
    CDrawText title;
    title.SetString("KV");
    title.SetFontName("Arial");
    title.SetSize(96, 100);
    title.SetBodyCol(0x90FFD040);
    CKVFrameBuffer stamp;
    CBox area, body, edge, shadow;
    title.DrawFrameEria(nullptr, &stamp, area, body, edge, shadow);
    const CSize size = stamp.GetWH();
    for (LONG i = 0; i < 7; ++i) {
        picture.FbCopy(&stamp, 0, 0, size.cx, size.cy, 20 + 85 * i, 15 * i - 20, 1, nullptr);
    }
}

std::span<const Entry> Files() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(TargaRoundTrip, "Written as run-length TGA and read back"),
        GALLERY_ENTRY(PictRoundTrip, "Written as PICT and read back"),
        GALLERY_ENTRY(Composited, "One rendered title, blended seven times"),
    };
    return kEntries;
}

}  // namespace gallery
