// The layouts as operations, and the two entry points that choose one and render its mask.

#include "CKVFont.h"

#include <iterator>
#include <new>

#include <CKVBwDraw.h>
#include <platform/exception.h>

#include "base/scale.h"
#include "text/horizontal_line.h"
#include "text/line_layout.h"
#include "text/upright_runs.h"
#include "text/vertical_line.h"

namespace {

using kv::text::HorizontalLine;
using kv::text::UprightRuns;
using kv::text::VerticalLine;
using kv::text::WidthStep;
using Percent = WidthStep::Percent;

// Memory that runs out on the way leaves the mask empty: a layout reports nothing and throws
// nothing.
template <typename Form>
int LayOut(tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask, tagPOINT* pos,
           const WidthStep* fit = nullptr) {
    *pos = {info->Pos_X, info->Pos_Y};
    mask->Delete();
    if (!kv::IsScale(info->AntiScale)) {
        return 0;
    }
    try {
        kv::text::LayOutLine(Form(*info), *info, text, fit, *mask, *pos);
    } catch (const std::bad_alloc&) {
        mask->Delete();
    } catch (const CMemoryException&) {
        mask->Delete();
    }
    return 0;
}

using Layout = int (CKVFont::*)(HWND, tagKVFONTINFO*, const char*, CKVMonoBitmap*, tagPOINT*);

// By direction: the plain layout and the fitted one.
constexpr Layout kLayouts[][2] = {
    {&CKVFont::NomDispBwBmpH, &CKVFont::FitDispBwBmpH},
    {&CKVFont::NomDispBwBmpV, &CKVFont::FitDispBwBmpV},
    {&CKVFont::NomDispBwBmpH, &CKVFont::FitDispBwBmpH2},
    {&CKVFont::NomDispBwBmpV2, &CKVFont::FitDispBwBmpV2},
};

// Runs the layout of the record's direction and stores its position in the effect record. An
// unknown direction gives no mask, and the position stays.
void LayOutByDirection(CKVFont& font, HWND window, tagKVFONTINFO* info, const char* text,
                       CKVMonoBitmap& mask) {
    if (info->Dir < 0 || info->Dir >= static_cast<LONG>(std::size(kLayouts))) {
        return;
    }
    tagPOINT pos;
    (font.*kLayouts[info->Dir][info->FitMode != 0])(window, info, text, &mask, &pos);
    info->BwDrawInfo.Pos_X = pos.x;
    info->BwDrawInfo.Pos_Y = pos.y;
}

}  // namespace

// Here, so that the class's table stands in the library whoever makes an object.
CKVFont::~CKVFont() = default;

int CKVFont::NomDispBwBmpH(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                           CKVMonoBitmap* mask, tagPOINT* pos) {
    return LayOut<HorizontalLine>(info, text, mask, pos);
}

int CKVFont::NomDispBwBmpV(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                           CKVMonoBitmap* mask, tagPOINT* pos) {
    return LayOut<VerticalLine>(info, text, mask, pos);
}

int CKVFont::NomDispBwBmpV2(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                            CKVMonoBitmap* mask, tagPOINT* pos) {
    return LayOut<UprightRuns>(info, text, mask, pos);
}

int CKVFont::FitDispBwBmpH(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                           CKVMonoBitmap* mask, tagPOINT* pos) {
    static constexpr WidthStep kFit{Percent::kCut, false};
    return LayOut<HorizontalLine>(info, text, mask, pos, &kFit);
}

int CKVFont::FitDispBwBmpH2(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                            CKVMonoBitmap* mask, tagPOINT* pos) {
    static constexpr WidthStep kFit{Percent::kRounded, true};
    return LayOut<HorizontalLine>(info, text, mask, pos, &kFit);
}

int CKVFont::FitDispBwBmpV(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                           CKVMonoBitmap* mask, tagPOINT* pos) {
    static constexpr WidthStep kFit{Percent::kRounded, false};
    return LayOut<VerticalLine>(info, text, mask, pos, &kFit);
}

int CKVFont::FitDispBwBmpV2(HWND /*window*/, tagKVFONTINFO* info, const char* text,
                            CKVMonoBitmap* mask, tagPOINT* pos) {
    static constexpr WidthStep kFit{Percent::kPlain, false};
    return LayOut<UprightRuns>(info, text, mask, pos, &kFit);
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
