// The road from a mask to a picture, each stage enlarged eight times.

#include "entry.h"

namespace gallery {

static constexpr LONG kEnlarged = 8;

// Blends a picture into another one, each pixel as a square.
static void Magnify(CKVFrameBuffer& picture, const CKVFrameBuffer& from, LONG x, LONG y,
                    LONG side) {
    const DWORD* pixel = from.GetBufferDWord();
    CKVFrameBuffer square(side, side, 1);
    for (LONG row = 0; row < from.m_Height; ++row) {
        for (LONG column = 0; column < from.m_Width; ++column) {
            square.ClearCol(*pixel++);
            picture.FbCopy(&square, 0, 0, side, side, x + column * side, y + row * side, 1,
                           nullptr);
        }
    }
}

static CKVFrameBuffer MaskPicture(const CKVMonoBitmap& mask) {
    CKVFrameBuffer picture(mask.Width, mask.Height, 1);
    for (LONG y = 0; y < mask.Height; ++y) {
        const BYTE* const row = mask.Bits + static_cast<DWORD>(y) * mask.Pitch;
        for (LONG x = 0; x < mask.Width; ++x) {
            const bool set = (row[x / 8] >> (7 - x % 8) & 1) != 0;
            picture.GetBufferDWord()[y * mask.Width + x] = set ? 0xFFFFFFFF : 0xFF000000;
        }
    }
    return picture;
}

static CKVFrameBuffer CoveragePicture(const CKVGrayBitmap& coverage) {
    CKVFrameBuffer picture(coverage.Width, coverage.Height, 1);
    for (LONG y = 0; y < coverage.Height; ++y) {
        const BYTE* const row = coverage.Bits + static_cast<DWORD>(y) * coverage.Pitch;
        for (LONG x = 0; x < coverage.Width; ++x) {
            picture.GetBufferDWord()[y * coverage.Width + x] = 0xFF000000 | row[x] * 0x010101U;
        }
    }
    return picture;
}

static void Caption(CKVFrameBuffer& picture, const char* words, LONG x, LONG y) {
    CDrawText caption;
    caption.SetFontName("Arial");
    caption.SetSize(20, 90);
    caption.SetString(words);
    caption.SetBodyCol(0xFF000000);
    caption.SetPos(x, y);
    caption.DrawFrame(nullptr, &picture);
}

static void FromMaskToPicture(CKVFrameBuffer& picture) {
    picture.CreateFrameBuffer(756, 540, 1);
    picture.ClearCross({8, 8}, 0xFFF4F4F4, 0xFFDDDDDD);
    CDrawText title;
    title.SetString(KVFromUtf8("字"));
    title.SetSize(20, 90);
    title.SetWeight(1);
    title.SetAntiScale(4);
    title.SetPos(2, 22);
    title.SetBodyCol(0xFFFFB020);
    title.SetEdgeType(0, 2, 0);
    title.SetEdgeCol(0xFF203080);
    title.SetShadType(0, 3, 0, 0);
    title.SetShadCol(0x90000000);

    CKVMonoBitmap mask;
    CKVGrayBitmap body, edge;
    tagPOINT corner{};
    CKVFont().NomDispBwBmpH(nullptr, &title.m_Font, title.m_String, &mask, &corner);
    Magnify(picture, MaskPicture(mask), 28, 46, kEnlarged / 4);
    CKVBwDraw draw;
    draw.MakeAntiGray(4, &mask, &body);
    Magnify(picture, CoveragePicture(body), 280, 46, kEnlarged);
    draw.MakeEdge(0, 2, 0, &body, &edge);

    CKVFrameBuffer layer;
    draw.MakeFb_Color(&body, &layer, &title.EffectRecord().BodyCol);
    Magnify(picture, layer, 532, 46, kEnlarged);
    layer.DeleteFrameBuffer();
    draw.MakeFb_Color(&edge, &layer, &title.EffectRecord().EdgeCol);
    Magnify(picture, layer, 12, 302, kEnlarged);
    layer.DeleteFrameBuffer();
    draw.MakeFb_Color(&edge, &layer, &title.EffectRecord().ShadCol);
    Magnify(picture, layer, 288, 326, kEnlarged);
    CKVFrameBuffer drawn(28, 28, 1);
    title.DrawFrame(nullptr, &drawn);
    Magnify(picture, drawn, 516, 302, kEnlarged);

    LONG cell = 0;
    for (const char* const words :
         {"mask, enlarged", "coverage", "body", "edge", "shadow", "shadow, edge, body"}) {
        Caption(picture, words, 28 + 252 * (cell % 3), 30 + 256 * (cell / 3));
        ++cell;
    }
}

std::span<const Entry> Stages() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(FromMaskToPicture,
                      "From the mask to the picture: each stage, eight times enlarged"),
    };
    return kEntries;
}

}  // namespace gallery
