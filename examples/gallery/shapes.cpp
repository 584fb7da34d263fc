// Shapes: the eight kinds, their pens and fills.

#include "entry.h"

namespace gallery {

// Draws every kind once, in cells of 120 pixels from left to right.
static void DrawKinds(CKVFrameBuffer& picture, CDrawGraph& shape, LONG top) {
    const auto draw = [&] { shape.DrawFrame(&picture); };
    const auto box = [&](LONG cell) {
        return tagRECT{20 + 120 * cell, top + 20, 105 + 120 * cell, top + 100};
    };
    const tagRECT rect = box(0);
    shape.SetRect(&rect), draw();
    const tagRECT rounded = box(1);
    shape.SetRoundRect(&rounded, {40, 40}), draw();
    const tagRECT round = box(2);
    shape.SetEllipse(&round), draw();
    const tagRECT cake = box(3);
    shape.SetPie(&cake, 45, 330), draw();
    const tagPOINT star[] = {
        {542, top + 20}, {570, top + 100}, {500, top + 50}, {585, top + 50}, {515, top + 100}};
    shape.SetPolyGon(star, 5), draw();
    shape.SetLine({625, top + 95}, {700, top + 25}), draw();
    const tagPOINT zigzag[] = {{745, top + 95}, {765, top + 25}, {790, top + 95}, {820, top + 25}};
    shape.SetPolyLine(zigzag, 4), draw();
    const tagPOINT wave[] = {{860, top + 90}, {880, top - 40}, {920, top + 160}, {945, top + 30}};
    shape.SetSpline(wave, 4), draw();
}

static void OutlinedShapes(CKVFrameBuffer& picture) {
    Sky(picture, 970, 240);
    CDrawGraph shape;
    shape.SetPenSize(3);
    DrawKinds(picture, shape, 0);
    shape.SetPenSize(16);
    DrawKinds(picture, shape, 120);
}

static void FilledShapes(CKVFrameBuffer& picture) {
    Sky(picture, 970, 240);
    CDrawGraph shape;
    shape.SetFillMode(1);
    shape.SetBodyCol(0xFFFFE080);
    shape.SetPenSize(4);
    DrawKinds(picture, shape, 0);
    shape.SetEdgeType(0, 4, 0);
    shape.SetEdgeCol(0xFF303080);
    shape.SetShadType(2, 2, 8, 0);
    shape.SetShadCol(0xB0000000);
    DrawKinds(picture, shape, 120);
}

static void FlatPen(CKVFrameBuffer& picture) {
    Sky(picture, 970, 240);
    CDrawGraph shape;
    shape.SetPenType(1);  // flat ends; sharp corners of rectangles and wedges
    shape.SetPenSize(3);
    DrawKinds(picture, shape, 0);
    shape.SetPenSize(16);
    DrawKinds(picture, shape, 120);
}

static void ThickJoins(CKVFrameBuffer& picture) {
    Sky(picture, 970, 400);
    CDrawGraph shape;
    shape.SetPenSize(44);
    for (const LONG penType : {0, 1}) {
        const LONG top = 200 * penType;
        shape.SetPenType(penType);
        const tagRECT box{40, top + 40, 160, top + 160};
        shape.SetRect(&box);
        shape.DrawFrame(&picture);
        const tagPOINT bent[] = {{240, top + 160}, {290, top + 40}, {340, top + 160}};
        shape.SetPolyLine(bent, 3);
        shape.DrawFrame(&picture);
        const tagRECT cake{420, top + 40, 540, top + 160};
        shape.SetPie(&cake, 60, 120);
        shape.DrawFrame(&picture);
        // A bend tighter than the pen, and a cusp.
        const tagPOINT tight[] = {
            {620, top + 150}, {660, top + 0}, {690, top + 0}, {730, top + 150}};
        shape.SetSpline(tight, 4);
        shape.DrawFrame(&picture);
        const tagPOINT cusp[] = {
            {800, top + 150}, {920, top + 0}, {800, top + 0}, {920, top + 150}};
        shape.SetSpline(cusp, 4);
        shape.DrawFrame(&picture);
    }
}

std::span<const Entry> Shapes() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(OutlinedShapes,
                      "The eight kinds, outlined: rectangle, rounded rectangle, "
                      "ellipse, wedge, polygon, line, line chain, spline"),
        GALLERY_ENTRY(FilledShapes, "Filled, and with edge and soft shadow"),
        GALLERY_ENTRY(FlatPen, "The pen with flat ends"),
        GALLERY_ENTRY(ThickJoins,
                      "Thick joins: the round pen above, the flat one below, whose rectangles and "
                      "wedges are sharp"),
    };
    return kEntries;
}

}  // namespace gallery
