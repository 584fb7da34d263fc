// Operations on whole pictures: keys, tints, sizes.

#include "entry.h"

namespace gallery {

// Light and dark cells, which show what a key lets through.
static void Board(CKVFrameBuffer& picture, LONG width, LONG height) {
    picture.CreateFrameBuffer(width, height, 0);
    picture.ClearCross(CPoint(12, 12), 0xFFDCDCDC, 0xFFA8A8A8);
}

// A glowing sign on black, 220 by 130.
static void Neon(CKVFrameBuffer& picture) {
    picture.CreateFrameBuffer(220, 130, 0);
    picture.ClearCol(0xFF000000);
    CDrawText sign;
    sign.SetFontName("Arial");
    sign.SetString("Neon");
    sign.SetSize(80, 75);
    sign.SetPos(35, 95);
    sign.SetBodyCol(0xFFFFFFE8);
    sign.SetEdgeType(1, 26, 0);
    sign.SetEdgeCol(0xFFFF6010);
    sign.DrawFrame(nullptr, &picture);
}

// A small scene in many colours, 220 by 140.
static void Scene(CKVFrameBuffer& picture) {
    Sky(picture, 220, 140);
    CDrawGraph shape;
    shape.SetFillMode(1);
    shape.SetPenSize(0);
    const tagPOINT hills[] = {{0, 140},  {0, 90},    {60, 50},  {120, 105},
                              {170, 80}, {220, 110}, {220, 140}};
    shape.SetPolyGon(hills, 7);
    shape.SetBodyGrad(0, 1, -1, -1, 0xFF60B040, 0xFF103818);
    shape.DrawFrame(&picture);
    const tagRECT sun{140, 12, 200, 72};
    shape.SetEllipse(&sun);
    shape.SetBodyGrad(0, 6, -1, -1, 0xFFFF9020, 0xFFFFFFA0);
    shape.DrawFrame(&picture);
    CDrawText title;
    title.SetFontName("Arial");
    title.SetString("Scene");
    title.SetWeight(1);
    title.SetSize(44, 100);
    title.SetPos(12, 128);
    title.SetBodyCol(0xFFF02060);
    title.DrawFrame(nullptr, &picture);
}

static void LuminanceKeys(CKVFrameBuffer& picture) {
    Board(picture, 720, 280);
    const struct { DWORD low, range; } keys[] = {{0, 254}, {20, 60}, {127, 0}};
    for (LONG i = 0; i < 3; ++i) {
        CKVFrameBuffer neon, key;
        Neon(neon);
        neon.MakeLuminanceKey(keys[i].low, keys[i].range);
        picture.FbCopy(&neon, 0, 0, 220, 130, 15 + 235 * i, 5, 1, nullptr);
        neon.GetKeyFreameBuffer(&key);  // grey levels, transparent where they are black
        picture.FbCopy(&key, 0, 0, 220, 130, 15 + 235 * i, 145, 0, nullptr);
    }
}

static void Tints(CKVFrameBuffer& picture) {
    picture.CreateFrameBuffer(720, 300, 1);
    const DWORD colors[] = {0, 0xFFFFFF, 0xFFE2B4, 0xB0D0FF, 0x40FF70, 0xFF3020};
    for (LONG i = 0; i < 6; ++i) {
        CKVFrameBuffer scene;
        Scene(scene);
        if (i > 0) {
            scene.ImageChColor(colors[i]);
        }
        picture.FbCopy(&scene, 0, 0, 220, 140, 15 + i % 3 * 235, 5 + i / 3 * 150, 0, nullptr);
    }
}

static void Enlarged(CKVFrameBuffer& picture) {
    Board(picture, 720, 390);
    CDrawText title;
    title.SetFontName(KVFromUtf8("ＭＳ ゴシック"));
    title.SetString(KVFromUtf8("拡大する"));
    title.SetSize(24, 100);
    title.SetPos(4, 28);
    title.SetBodyCol(0xFFC02020);
    title.SetEdgeType(0, 2, 0);
    title.SetEdgeCol(0xFFFFFFFF);
    LONG row = 5;
    for (const DWORD ground : {0xFF000000, 0xFFFFFFFF}) {  // its colour shows at the rim
        CKVFrameBuffer small(120, 36, 0), large;
        small.ClearCol(ground);
        small.ClearKey();
        title.DrawFrame(nullptr, &small);
        small.SizeChange(&large, 580, 180);  // each axis by itself
        picture.FbCopy(&small, 0, 0, 120, 36, 5, row, 1, nullptr);
        picture.FbCopy(&large, 0, 0, 580, 180, 135, row, 1, nullptr);
        row += 195;
    }
}

static void Reduced(CKVFrameBuffer& picture) {
    Board(picture, 720, 150);
    CKVFrameBuffer scene, smaller;
    Scene(scene);
    LONG column = 10;
    for (const float scale : {1.0F, 0.8F, 0.5F, 0.3F, 0.15F}) {
        scene.SizeChangeScale(&smaller, scale, scale);  // takes no averages: fine lines break
        const CSize size = smaller.GetWH();
        picture.FbCopy(&smaller, 0, 0, size.cx, size.cy, column, 5, 1, nullptr);
        column += size.cx + 10;
    }
}

std::span<const Entry> Pixels() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(
            LuminanceKeys,
            "Keys made from brightness: a full ramp, a short one, a cut; below, the keys"),
        GALLERY_ENTRY(Tints, "A picture, its grey, and tints"),
        GALLERY_ENTRY(Enlarged,
                      "A small title enlarged, on transparent black and on transparent white"),
        GALLERY_ENTRY(Reduced, "Reduction to 0.8, 0.5, 0.3 and 0.15 of the size"),
    };
    return kEntries;
}

}  // namespace gallery
