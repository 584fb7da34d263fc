// Pictures from files, and edges around what their keys show.

#include <filesystem>

#include "entry.h"

namespace gallery {

// A balloon on nothing, 150 by 200, partly transparent.
static void Balloon(CKVFrameBuffer& picture) {
    picture.CreateFrameBuffer(150, 200, 1);
    CDrawGraph shape;
    const tagPOINT string[] = {{75, 138}, {60, 160}, {90, 175}, {72, 198}};
    shape.SetPenSize(3);
    shape.SetSpline(string, 4);
    shape.SetBodyCol(0xFF503020);
    shape.DrawFrame(&picture);
    shape.SetFillMode(1);
    const tagRECT skin{20, 10, 130, 140};
    shape.SetEllipse(&skin);
    shape.SetBodyGrad(0, 6, 40, 35, 0xD0801020, 0xD0FFB0A0);
    shape.DrawFrame(&picture);
}

static void ImageObject(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CKVFrameBuffer balloon;
    Balloon(balloon);
    const std::string stem = (std::filesystem::temp_directory_path() / "kvdraw_balloon").string();
    LONG left = 20;
    for (const char* extension : {".tga", ".PCT"}) {
        CImgFile image((stem + extension).c_str(), left, 15, 0);
        image.SaveImage(&balloon);
        image.LoadImg();
        image.DrawFrame(&picture);  // replaced, keys and all
        image.SetAddress(left + 150, 15);
        image.SetCopyMode(1);
        image.DrawFrame(&picture);  // blended
        std::filesystem::remove(image.GetFileName());
        left += 350;
    }
}

static void PictureEdges(CKVFrameBuffer& picture) {
    Sky(picture, 720, 250);
    CKVFrameBuffer balloon, framed;
    Balloon(balloon);
    CBwDrawInfo effect;
    effect.SetEdgeCol(0xFFFFFFFF);
    effect.SetShadCol(0xC0000000);
    LONG left = 10;
    for (const LONG shadow : {0, 1, 2}) {  // flat, 3D, soft
        effect.SetEdgeType(0, 2 + 3 * shadow, 0);
        effect.SetShadType(shadow, 8, 10, 0);
        CBox area, body, edge, shad;
        balloon.SetEdge(&framed, effect.GetInfo(), area, body, edge, shad);
        picture.FbCopy(&framed, 0, 0, area.width, area.height, left, 10, 1, nullptr);
        left += 230;
    }
}

static void PictureEdgesWithin(CKVFrameBuffer& picture) {
    Sky(picture, 720, 230);
    CKVFrameBuffer balloon, framed;
    Balloon(balloon);
    CBwDrawInfo effect;
    effect.SetEdgeType(0, 15, 0);  // more than there is room for
    effect.SetEdgeGrad(0, 1, -1, -1, 0xFFFFFFFF, 0xFF60A0FF);
    balloon.SetEdgeOrgSize(&framed, effect.GetInfo());
    picture.FbCopy(&framed, 0, 0, 150, 200, 40, 15, 1, nullptr);
    effect.SetEdgeType(1, 20, 0);  // a glow
    effect.SetEdgeCol(0xFFFFFFA0);
    balloon.SetEdgeOrgSize(&framed, effect.GetInfo());
    picture.FbCopy(&framed, 0, 0, 150, 200, 280, 15, 1, nullptr);
    effect.SetEdgeType(0, 0, 0);
    effect.SetShadType(0, 12, 0, 1);  // with a last argument of 1 each layer goes through its keys
    effect.SetShadCol(0xC0000000);
    balloon.SetEdgeOrgSize(&balloon, effect.GetInfo());  // onto itself
    picture.FbCopy(&balloon, 0, 0, 150, 200, 520, 15, 1, nullptr);
}

std::span<const Entry> Images() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(ImageObject, "An image drawn from TGA and PICT, replacing and blended"),
        GALLERY_ENTRY(PictureEdges, "Edges and shadows around a picture's keys, made to fit"),
        GALLERY_ENTRY(PictureEdgesWithin, "The same within the picture's own size"),
    };
    return kEntries;
}

}  // namespace gallery
