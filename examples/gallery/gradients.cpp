// Two-colour ramps.

#include <string>

#include "entry.h"

namespace gallery {

// One square for each pattern, 0 to 10, with its number: six a row.
static void Swatches(CKVFrameBuffer& picture, LONG x, LONG y) {
    Sky(picture, 720, 280);
    CDrawText square, number;
    square.SetSize(110, 90);
    square.SetString(KVFromUtf8("■"));
    number.SetSize(18, 90);
    for (LONG patern = 0; patern <= 10; ++patern) {
        const LONG left = 14 + patern % 6 * 118;
        const LONG bottom = 112 + patern / 6 * 136;
        square.SetBodyGrad(0, patern, x, y, 0xFF101848, 0xFFFFE060);
        square.SetPos(left, bottom);
        square.DrawFrame(nullptr, &picture);
        number.SetString(std::to_string(patern).c_str());
        number.SetPos(left + 46, bottom + 20);
        number.DrawFrame(nullptr, &picture);
    }
}

static void Patterns(CKVFrameBuffer& picture) {
    Swatches(picture, -1, -1);  // outside the layer: no centre
}

static void CentredPatterns(CKVFrameBuffer& picture) {
    Swatches(picture, 35, 75);  // pixels of the painted layer
}

static void GradientTitle(CKVFrameBuffer& picture) {
    Sky(picture, 720, 150);
    CDrawText title;
    title.SetString(KVFromUtf8("黄金の夕暮れ Gold"));
    title.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    title.SetWeight(1);
    title.SetSize(72, 90);
    title.SetPos(30, 112);
    // The ramp starts with the second colour, here along the bottom row of each layer.
    title.SetBodyGrad(0, 1, -1, -1, 0xFFFFFFFF, 0xFFE08000);
    title.SetEdgeGrad(0, 8, -1, -1, 0xFF200000, 0xFFA02010);
    title.SetEdgeType(0, 4, 0);
    title.SetShadGrad(0, 0, -1, -1, 0xFF000000, 0xFFFFF0A0);
    title.SetShadType(2, -3, 8, 0);  // its radius moves it right and down, too
    title.DrawFrame(nullptr, &picture);
}

static void TransparentRamp(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CDrawText title;
    title.SetString(KVFromUtf8("消えていく文字 Fade"));
    title.SetWeight(1);
    title.SetSize(64, 90);
    title.SetPos(40, 90);
    title.SetBodyGrad(0, 0, -1, -1, 0xFFFFFFFF, 0x00FFFFFF);  // the key from 255 to 0
    title.DrawFrame(nullptr, &picture);
    title.SetPos(40, 200);
    title.SetBodyGrad(0, 7, -1, -1, 0x00FFFFFF, 0xFFFFFFFF);
    title.DrawFrame(nullptr, &picture);
}

std::span<const Entry> Gradients() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(Patterns, "Gradients: every pattern without a centre"),
        GALLERY_ENTRY(CentredPatterns, "Every pattern with a centre"),
        GALLERY_ENTRY(GradientTitle, "Body, edge and shadow with a gradient each"),
        GALLERY_ENTRY(TransparentRamp, "Ramps of the key, from solid to transparent"),
    };
    return kEntries;
}

}  // namespace gallery
