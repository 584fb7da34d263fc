// Pictures as paint.

#include <filesystem>

#include "entry.h"

namespace gallery {

// A sun over hills, 64 by 48, in a file; its path.
static std::string Landscape() {
    CKVFrameBuffer tile(64, 48, 1);
    tile.ClearCol(0xFF4090D0);
    CDrawGraph shape;
    shape.SetFillMode(1);
    shape.SetPenSize(0);
    const tagRECT sun{34, 6, 56, 28};
    shape.SetEllipse(&sun);
    shape.SetBodyCol(0xFFFFE050);
    shape.DrawFrame(&tile);
    const tagPOINT hills[] = {{0, 50}, {0, 34}, {14, 18}, {32, 38}, {46, 26}, {66, 42}, {66, 50}};
    shape.SetPolyGon(hills, 7);
    shape.SetBodyCol(0xFF206830);
    shape.DrawFrame(&tile);
    std::string file = (std::filesystem::temp_directory_path() / "kvdraw_landscape.tga").string();
    CImgFile().SaveImage(&tile, file.c_str());
    return file;
}

// Diagonal stripes with nothing between them.
static std::string Stripes() {
    CKVFrameBuffer tile(16, 16, 1);
    for (LONG y = 0; y < 16; ++y) {
        for (LONG x = 0; x < 16; ++x) {
            tile.GetBufferDWord()[16 * y + x] = (x + y) % 16 < 10 ? 0xFFA02020 : 0x00A02020;
        }
    }
    std::string file = (std::filesystem::temp_directory_path() / "kvdraw_stripes.tga").string();
    CImgFile().SaveImage(&tile, file.c_str());
    return file;
}

static void TexturedText(CKVFrameBuffer& picture) {
    Sky(picture, 720, 400);
    const std::string file = Landscape();
    CDrawText title;
    title.SetFontName(KVFromUtf8("ＭＳ ゴシック"));
    title.SetString(KVFromUtf8("風景の文字"));
    title.SetWeight(1);
    title.SetSize(110, 100);
    title.SetEdgeType(0, 2, 0);
    title.SetEdgeCol(0xFFFFFFFF);
    for (const LONG mode : {0, 1, 2}) {  // centred, tiled, scaled to the whole line
        title.SetBodyText(mode, file.c_str());
        title.SetPos(20, 125 + 130 * mode);
        title.DrawFrame(nullptr, &picture);
    }
    std::filesystem::remove(file);
}

static void TexturedShapes(CKVFrameBuffer& picture) {
    Sky(picture, 720, 220);
    const std::string file = Landscape();
    CDrawGraph shape;
    shape.SetFillMode(1);
    shape.SetEdgeType(0, 3, 0);
    shape.SetEdgeCol(0xFFFFFFFF);
    shape.SetShadType(2, -2, 8, 0);
    shape.SetShadCol(0xC0000000);
    for (const LONG mode : {0, 1, 2}) {
        shape.SetBodyText(mode, file.c_str());
        const tagRECT box{25 + 235 * mode, 25, 225 + 235 * mode, 190};
        shape.SetEllipse(&box);
        shape.DrawFrame(&picture);
    }
    std::filesystem::remove(file);
}

static void TexturedLayers(CKVFrameBuffer& picture) {
    Sky(picture, 720, 190);
    const std::string landscape = Landscape();
    const std::string stripes = Stripes();
    CDrawText title;
    title.SetFontName("Arial");
    title.SetString("TEXTURE");
    title.SetWeight(1);
    title.SetSize(130, 90);
    title.SetPos(20, 135);
    title.SetBodyText(2, landscape.c_str());
    title.SetEdgeType(0, 6, 0);
    title.SetEdgeText(1, stripes.c_str());
    title.SetShadType(0, 16, 0, 0);
    title.SetShadText(1, stripes.c_str());
    title.DrawFrame(nullptr, &picture);
    std::filesystem::remove(landscape);
    std::filesystem::remove(stripes);
}

std::span<const Entry> Textures() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(TexturedText, "A picture in text: centred, tiled, scaled"),
        GALLERY_ENTRY(TexturedShapes, "The same in shapes"),
        GALLERY_ENTRY(TexturedLayers, "Body, edge and shadow with a texture each"),
    };
    return kEntries;
}

}  // namespace gallery
