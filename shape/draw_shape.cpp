// The kinds as operations, and the two calls that render the mask of the object's own kind.

#include <new>

#include "effect/render.h"
#include "shape/enlarged_shape.h"

namespace {

using kv::shape::EnlargedShape;
using kv::shape::FormOf;

// Memory that runs out leaves the mask empty; a list that is too short reaches the caller.
int DrawAs(const CDrawGraph& shape, LONG kind, CKVMonoBitmap* mask, tagPOINT* pos) {
    const EnlargedShape enlarged(shape, *FormOf(kind));
    *pos = enlarged.Pos();
    mask->Delete();
    try {
        enlarged.ToMask(*mask);
    } catch (const std::bad_alloc&) {
        mask->Delete();
    }
    return 0;
}

// Makes the body of the object's own kind and stores its place. A draw needs the mask's coverage
// only, so it never makes the mask. False when nothing can be rendered.
bool DrawBody(CDrawGraph& shape, const kv::shape::Form& form, CKVGrayBitmap& coverage) {
    const EnlargedShape enlarged(shape, form);
    const tagPOINT pos = enlarged.Pos();
    shape.m_Info.Pos_X = pos.x;
    shape.m_Info.Pos_Y = pos.y;
    try {
        return enlarged.ToCoverage(coverage) == 0;
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace

int CDrawGraph::DrawFrame(CKVFrameBuffer* fb) {
    const kv::shape::Form* const form = FormOf(m_GraphType);
    if (form == nullptr) {
        return 1;
    }
    ConnectAll();
    kv::Layer layer;
    if (DrawBody(*this, *form, layer.coverage) && fb != nullptr) {
        const kv::RenderedOnto rendered = kv::RenderOnto(*fb, m_Info, layer);
        if (rendered.outcome) {
            m_DispEria = rendered.touched;
        }
    }
    return 0;
}

int CDrawGraph::DrawFrameEria(CKVFrameBuffer* fb, CBox& eria, CBox& body, CBox& edge, CBox& shad) {
    const kv::shape::Form* const form = FormOf(m_GraphType);
    if (form == nullptr) {
        return 1;
    }
    ConnectAll();
    kv::Layer layer;
    if (DrawBody(*this, *form, layer.coverage) && fb != nullptr) {
        const kv::RenderedAlone rendered =
            kv::RenderAlone(*fb, m_Info, layer, kv::AloneSize::kToFit);
        if (rendered.outcome) {
            rendered.arranged.CopyTo(m_DispEria, body, edge, shad);
        }
    }
    eria = m_DispEria;
    return 0;
}

int CDrawGraph::DispBwBmp_Line(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kLine, mask, pos);
}

int CDrawGraph::DispBwBmp_PolyLine(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kPolyLine, mask, pos);
}

int CDrawGraph::DispBwBmp_Rect(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kRect, mask, pos);
}

int CDrawGraph::DispBwBmp_RoundRect(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kRoundRect, mask, pos);
}

int CDrawGraph::DispBwBmp_Ellipse(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kEllipse, mask, pos);
}

int CDrawGraph::DispBwBmp_Pie(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kPie, mask, pos);
}

int CDrawGraph::DispBwBmp_PolyGon(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kPolyGon, mask, pos);
}

int CDrawGraph::DispBwBmp_Spline(CKVMonoBitmap* mask, tagPOINT* pos) const {
    return DrawAs(*this, kSpline, mask, pos);
}

void CDrawGraph::GetDegAdd(double deg, int rx, int /*ry*/, tagPOINT* out) const {
    *out = kv::shape::RadialOffset(deg, rx);
}
