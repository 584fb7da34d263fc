// The class whole: each call checks what it is given and hands on to what does the work.

#include "CKVBwDraw.h"

#include <CKVMonoBitmap.h>

#include "effect/coverage/brush.h"
#include "effect/coverage/edge.h"
#include "effect/coverage/reduction.h"
#include "effect/coverage/shadow.h"
#include "effect/image_edge.h"
#include "effect/paint/paint.h"
#include "effect/paint/ramp.h"
#include "effect/render.h"

namespace {

constexpr int kDone = 0;
constexpr int kFailed = -1;

int ResultOf(kv::Outcome outcome) {
    return outcome ? kDone : kFailed;
}

// The picture with edge and shadow around it. As a body it is there already, so this cannot fail.
kv::Arrangement RenderPicture(CKVFrameBuffer& target, const tagKVBWDRAWINFO& info,
                              const CKVFrameBuffer& picture, kv::AloneSize size) {
    kv::Layer layer;
    kv::TakePicture(picture, layer);
    return kv::RenderAlone(target, info, layer, size).arranged;
}

int PaintBy(const std::optional<kv::PaintSource>& source, const CKVGrayBitmap* gray,
            CKVFrameBuffer* fb) {
    return source && gray != nullptr && fb != nullptr ? ResultOf(kv::Paint(*source, *gray, *fb))
                                                      : kFailed;
}

}  // namespace

int CKVBwDraw::DispFb(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info, const CKVMonoBitmap* mask,
                      CBox* box) {
    m_pFb = fb;
    m_pInfo = info;
    kv::Layer layer;
    if (!kv::Reduce(info->AntiScale, *mask, layer.coverage)) {
        return kFailed;
    }
    const kv::RenderedOnto rendered = kv::RenderOnto(*fb, *info, layer);
    if (rendered.outcome) {
        *box = rendered.touched;
    }
    return ResultOf(rendered.outcome);
}

int CKVBwDraw::SetFb(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info, const CKVMonoBitmap* mask,
                     CBox& eria, CBox& body, CBox& edge, CBox& shad) {
    m_pFb = fb;
    m_pInfo = info;
    kv::Layer layer;
    if (!kv::Reduce(info->AntiScale, *mask, layer.coverage)) {
        return kFailed;
    }
    const kv::RenderedAlone rendered = kv::RenderAlone(*fb, *info, layer, kv::AloneSize::kToFit);
    if (rendered.outcome) {
        rendered.arranged.CopyTo(eria, body, edge, shad);
    }
    return ResultOf(rendered.outcome);
}

int CKVBwDraw::SetImgEdgeShadow(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info,
                                const CKVFrameBuffer* source, CBox& eria, CBox& body, CBox& edge,
                                CBox& shad) {
    m_pFb = fb;
    m_pInfo = info;
    if (fb == nullptr || info == nullptr || source == nullptr) {
        return kFailed;
    }
    RenderPicture(*fb, *info, *source, kv::AloneSize::kToFit).CopyTo(eria, body, edge, shad);
    return kDone;
}

int CKVBwDraw::SetFullImgEdgeShadow(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info,
                                    const CKVFrameBuffer* source, CBox& eria, CBox& body,
                                    CBox& edge, CBox& shad) {
    m_pFb = fb;
    m_pInfo = info;
    if (fb == nullptr || info == nullptr || source == nullptr) {
        return kFailed;
    }
    RenderPicture(*fb, *info, *source, kv::AloneSize::kOfBody).CopyTo(eria, body, edge, shad);
    return kDone;
}

int CKVBwDraw::KeyToGray(const CKVFrameBuffer* fb, CKVGrayBitmap* coverage) {
    return fb != nullptr && coverage != nullptr ? ResultOf(kv::TakeKeys(*fb, *coverage)) : kFailed;
}

int CKVBwDraw::MakeAntiGray(int scale, const CKVMonoBitmap* mask, CKVGrayBitmap* coverage) {
    return ResultOf(kv::Reduce(scale, *mask, *coverage));
}

int CKVBwDraw::MakeFb_Color(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb,
                            const DWORD* colour) {
    return PaintBy(kv::SourceOf(kv::kColourPaint, colour, nullptr, nullptr), coverage, fb);
}

int CKVBwDraw::MakeFb_Grad(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb,
                           const tagGRADINFO* grad) {
    return PaintBy(kv::SourceOf(kv::kGradientPaint, nullptr, grad, nullptr), coverage, fb);
}

int CKVBwDraw::MakeFb_Text(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb,
                           const tagTEXTUREINFO* texture) {
    return PaintBy(kv::SourceOf(kv::kTexturePaint, nullptr, nullptr, texture), coverage, fb);
}

int CKVBwDraw::GrayToFb(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb, const tagMAPINFO* map) {
    return map != nullptr
               ? PaintBy(kv::SourceOf(map->Mode, map->Col, map->Grad, map->Text), coverage, fb)
               : kFailed;
}

int CKVBwDraw::Pis_Grad_Paint(DWORD* pixels, int width, int height, int x, int y, DWORD col1,
                              DWORD col2, int patern) {
    if (pixels != nullptr) {
        kv::PaintBareRamp(pixels, width, height, {0, patern, x, y, col1, col2});
    }
    return kDone;
}

int CKVBwDraw::Pis_Grad_Paint_Set1(int type, int x, int y, int left, int top, int right, int bottom,
                                   int* centreX, int* centreY, int* length) {
    const kv::RampExtent extent = kv::MeasureRamp(type, x, y, {left, top, right, bottom});
    *length = extent.length;
    if (extent.hasCentre) {
        *centreX = extent.centreX;
        *centreY = extent.centreY;
    }
    return kDone;
}

int CKVBwDraw::Pis_Grad_Paint_Conv(int type, int posX, int posY, int left, int top, int right,
                                   int bottom, int centreX, int centreY, double* distance) {
    *distance = kv::RampDistance(type, posX, posY, {left, top, right, bottom}, centreX, centreY);
    return kDone;
}

int CKVBwDraw::MakeEdge(int type, int size, int /*softPen*/, const CKVGrayBitmap* source,
                        CKVGrayBitmap* target) {
    return ResultOf(kv::MakeEdge({type, size}, *source, *target));
}

int CKVBwDraw::GrayMakeNomEdge(int size, const CKVGrayBitmap* source, CKVGrayBitmap* target) {
    return ResultOf(kv::GrowHard(size, *source, *target));
}

int CKVBwDraw::GrayMakeSoftEdge(int size, int /*softPen*/, const CKVGrayBitmap* source,
                                CKVGrayBitmap* target) {
    return ResultOf(kv::GrowSoft(size, *source, *target));
}

int CKVBwDraw::FilterBlush(unsigned char* brush, int size, int pen) {
    kv::FillBrush(brush, size, pen);
    return kDone;
}

int CKVBwDraw::MakeShadow(int type, int size, int softSize, int /*softPen*/,
                          const CKVGrayBitmap* source, CKVGrayBitmap* target) {
    return ResultOf(kv::CastShadow({type, size, softSize}, *source, *target));
}

int CKVBwDraw::Make3DShadow(DWORD size, const CKVGrayBitmap* source, CKVGrayBitmap* target) {
    return ResultOf(kv::Extrude(static_cast<LONG>(size), *source, *target));
}
