// Pictures to files and back.

#include <filesystem>

#include "entry.h"

namespace gallery {

static void TargaRoundTrip(CKVFrameBuffer& picture) {
    CDrawText title;
    title.SetString(KVFromUtf8("保存して読む"));
    title.SetSize(64, 90);
    title.SetEdgeType(0, 4, 0);
    title.SetEdgeCol(0xFF207040);
    CKVFrameBuffer drawn;
    CBox area, body, edge, shadow;
    title.DrawFrameEria(nullptr, &drawn, area, body, edge, shadow);

    const std::string file =
        (std::filesystem::temp_directory_path() / "kvdraw_gallery.tga").string();
    CKVTargaImage targa;
    if (targa.SaveImage(file.c_str(), &drawn, 1) == 0) {  // run-length, key included
        targa.LoadImg(file.c_str(), &picture);
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
        GALLERY_ENTRY(Composited, "One rendered title, blended seven times"),
    };
    return kEntries;
}

}  // namespace gallery
