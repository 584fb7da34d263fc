// Edges, shadows and keys.

#include "entry.h"

namespace gallery {

static CDrawText Sample() {
    CDrawText title;
    title.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    title.SetString(KVFromUtf8("縁と影 Edge"));
    title.SetSize(64, 90);
    title.SetEdgeCol(0xFF1040A0);
    title.SetShadCol(0xB0000000);
    return title;
}

static void HardEdges(CKVFrameBuffer& picture) {
    Sky(picture, 720, 330);
    CDrawText title = Sample();
    LONG row = 90;
    for (const LONG radius : {1, 4, 12}) {
        title.SetEdgeType(0, radius, 0);
        title.SetPos(40, row);
        title.DrawFrame(nullptr, &picture);
        row += 105;
    }
}

static void SoftEdges(CKVFrameBuffer& picture) {
    Sky(picture, 720, 330);
    CDrawText title = Sample();
    title.SetEdgeCol(0xFFFFF0A0);
    title.SetBodyCol(0xFF802010);
    LONG row = 90;
    for (const LONG radius : {3, 8, 20}) {
        title.SetEdgeType(1, radius, 0);
        title.SetPos(40, row);
        title.DrawFrame(nullptr, &picture);
        row += 105;
    }
}

static void FlatShadows(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CDrawText title = Sample();
    title.SetShadType(0, 6, 0, 0);
    title.SetPos(40, 90);
    title.DrawFrame(nullptr, &picture);
    title.SetShadType(0, -6, 0, 0);
    title.SetEdgeType(0, 2, 0);
    title.SetPos(40, 200);
    title.DrawFrame(nullptr, &picture);
}

static void ExtrudedShadows(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CDrawText title = Sample();
    title.SetShadCol(0xFF401830);
    title.SetShadType(1, 10, 0, 0);
    title.SetPos(40, 90);
    title.DrawFrame(nullptr, &picture);
    title.SetShadType(1, -10, 0, 0);
    title.SetEdgeType(0, 2, 0);
    title.SetPos(40, 200);
    title.DrawFrame(nullptr, &picture);
}

static void SoftShadows(CKVFrameBuffer& picture) {
    Sky(picture, 720, 330);
    CDrawText title = Sample();
    title.SetEdgeType(0, 2, 0);
    LONG row = 90;
    for (const LONG radius : {4, 10, 24}) {
        // The shadow's bitmap grows by its radius: moved back by as much it lies under the text.
        title.SetShadType(2, 6 - radius, radius, 0);
        title.SetPos(40, row);
        title.DrawFrame(nullptr, &picture);
        row += 105;
    }
}

static void KeyedLayers(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CDrawText title = Sample();
    title.SetBodyCol(0x60FFFFFF);  // a body that lets through what lies under it
    title.SetEdgeType(0, 4, 0);
    title.SetShadType(0, 8, 0, 0);
    title.SetPos(40, 90);
    title.DrawFrame(nullptr, &picture);
    title.SetShadType(0, 8, 0, 1);  // each layer through its coverage: the body cuts the edge
    title.SetPos(40, 200);
    title.DrawFrame(nullptr, &picture);
}

static void AreaRender(CKVFrameBuffer& picture) {
    CDrawText title = Sample();
    title.SetEdgeType(0, 6, 0);
    title.SetShadType(1, 12, 0, 0);
    CBox area, body, edge, shadow;
    title.DrawFrameEria(nullptr, &picture, area, body, edge, shadow);
}

std::span<const Entry> Effects() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(HardEdges, "Hard edges: radius 1, 4, 12"),
        GALLERY_ENTRY(SoftEdges, "Soft edges: radius 3, 8, 20"),
        GALLERY_ENTRY(FlatShadows, "Flat shadows to both sides"),
        GALLERY_ENTRY(ExtrudedShadows, "3D shadows to both sides"),
        GALLERY_ENTRY(SoftShadows, "Soft shadows: radius 4, 10, 24"),
        GALLERY_ENTRY(KeyedLayers, "A body with a key of 0x60, blended and through its coverage"),
        GALLERY_ENTRY(AreaRender, "A title by itself, in a buffer made to fit, on nothing"),
    };
    return kEntries;
}

}  // namespace gallery
