// The layouts as operations, and the two entry points that choose one and render its mask.

#include <new>

#include <CKVBwDraw.h>
#include <CKVFont.h>
#include <platform/exception.h>

#include "text/horizontal_line.h"

namespace {

using kv::text::HorizontalLine;

// Memory that runs out on the way leaves the mask empty: a layout reports nothing and throws
// nothing.
template <class Line>
int LayOut(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask, tagPOINT* pos) {
    *pos = {info->Pos_X, info->Pos_Y};
    mask->Delete();
    if (!kv::text::IsKnownScale(info->AntiScale)) {
        return 0;
    }
    try {
        Line(window, *info, text).Run(*mask, *pos);
    } catch (const std::bad_alloc&) {
        mask->Delete();
    } catch (const CMemoryException&) {
        mask->Delete();
    }
    return 0;
}

// Runs the layout of the record's direction and stores its position in the effect record. No
// layout, no mask: the position stays.
void LayOutByDirection(CKVFont& font, HWND window, tagKVFONTINFO* info, const char* text,
                       CKVMonoBitmap& mask) {
    const bool horizontal = info->Dir == 0 || info->Dir == 2;
    if (!horizontal || info->FitMode != 0) {
        return;
    }
    tagPOINT pos;
    font.NomDispBwBmpH(window, info, text, &mask, &pos);
    info->BwDrawInfo.Pos_X = pos.x;
    info->BwDrawInfo.Pos_Y = pos.y;
}

}  // namespace

int CKVFont::NomDispBwBmpH(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                           tagPOINT* pos) {
    return LayOut<HorizontalLine>(window, info, text, mask, pos);
}

int CKVFont::FontFbDisp(HWND window, tagKVFONTINFO* info, const char* text, CKVFrameBuffer* fb,
                        CBox* box) {
    CKVMonoBitmap mask;
    LayOutByDirection(*this, window, info, text, mask);
    if (fb != nullptr) {
        CKVBwDraw().DispFb(fb, &info->BwDrawInfo, &mask, box);
    }
    return 0;
}

int CKVFont::FontFbSet(HWND window, tagKVFONTINFO* info, const char* text, CKVFrameBuffer* fb,
                       CBox& eria, CBox& body, CBox& edge, CBox& shad) {
    CKVMonoBitmap mask;
    LayOutByDirection(*this, window, info, text, mask);
    if (fb != nullptr) {
        CKVBwDraw().SetFb(fb, &info->BwDrawInfo, &mask, eria, body, edge, shad);
    }
    return 0;
}
