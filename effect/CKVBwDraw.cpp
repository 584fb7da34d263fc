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
    kv::Layer body;
    kv::TakePicture(picture, body);
    return kv::RenderAlone(target, info, body, size).arranged;
}

int PaintBy(const std::optional<kv::PaintSource>& source, const CKVGrayBitmap* gray,
            CKVFrameBuffer* fb) {
    return source && gray != nullptr && fb != nullptr ? ResultOf(kv::Paint(*source, *gray, *fb))
                                                      : kFailed;
}

}  // namespace

int CKVBwDraw::DispFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                      CBox* pBox) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layer body;
    if (!kv::Reduce(pInfo->AntiScale, *pMono, body.coverage)) {
        return kFailed;
    }
    const kv::RenderedOnto rendered = kv::RenderOnto(*pFb, *pInfo, body);
    if (rendered.outcome) {
        *pBox = rendered.touched;
    }
    return ResultOf(rendered.outcome);
}

int CKVBwDraw::SetFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                     CBox& Eria, CBox& Body, CBox& Edge, CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layer body;
    if (!kv::Reduce(pInfo->AntiScale, *pMono, body.coverage)) {
        return kFailed;
    }
    const kv::RenderedAlone rendered = kv::RenderAlone(*pFb, *pInfo, body, kv::AloneSize::kToFit);
    if (rendered.outcome) {
        rendered.arranged.CopyTo(Eria, Body, Edge, Shad);
    }
    return ResultOf(rendered.outcome);
}

int CKVBwDraw::SetImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    if (pFb == nullptr || pInfo == nullptr || pSrc == nullptr) {
        return kFailed;
    }
    RenderPicture(*pFb, *pInfo, *pSrc, kv::AloneSize::kToFit).CopyTo(Eria, Body, Edge, Shad);
    return kDone;
}

int CKVBwDraw::SetFullImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                    const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                    CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    if (pFb == nullptr || pInfo == nullptr || pSrc == nullptr) {
        return kFailed;
    }
    RenderPicture(*pFb, *pInfo, *pSrc, kv::AloneSize::kOfBody).CopyTo(Eria, Body, Edge, Shad);
    return kDone;
}

int CKVBwDraw::KeyToGray(const CKVFrameBuffer* pFb, CKVGrayBitmap* pGray) {
    return pFb != nullptr && pGray != nullptr ? ResultOf(kv::TakeKeys(*pFb, *pGray)) : kFailed;
}

int CKVBwDraw::MakeAntiGray(int Scale, const CKVMonoBitmap* pMono, CKVGrayBitmap* pGray) {
    return ResultOf(kv::Reduce(Scale, *pMono, *pGray));
}

int CKVBwDraw::MakeFb_Color(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const DWORD* pCol) {
    return PaintBy(kv::SourceOf(kv::kColourPaint, pCol, nullptr, nullptr), pGray, pFb);
}

int CKVBwDraw::MakeFb_Grad(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb,
                           const tagGRADINFO* pGrad) {
    return PaintBy(kv::SourceOf(kv::kGradientPaint, nullptr, pGrad, nullptr), pGray, pFb);
}

int CKVBwDraw::MakeFb_Text(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb,
                           const tagTEXTUREINFO* pText) {
    return PaintBy(kv::SourceOf(kv::kTexturePaint, nullptr, nullptr, pText), pGray, pFb);
}

int CKVBwDraw::GrayToFb(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagMAPINFO* pMap) {
    return pMap != nullptr
               ? PaintBy(kv::SourceOf(pMap->Mode, pMap->Col, pMap->Grad, pMap->Text), pGray, pFb)
               : kFailed;
}

int CKVBwDraw::Pis_Grad_Paint(DWORD* pPixels, int Width, int Height, int x, int y, DWORD Col1,
                              DWORD Col2, int Patern) {
    if (pPixels != nullptr) {
        kv::PaintBareRamp(pPixels, Width, Height, {0, Patern, x, y, Col1, Col2});
    }
    return kDone;
}

int CKVBwDraw::Pis_Grad_Paint_Set1(int Type, int x, int y, int Left, int Top, int Right, int Bottom,
                                   int* pCx, int* pCy, int* pLen) {
    const kv::RampExtent extent = kv::MeasureRamp(Type, x, y, {Left, Top, Right, Bottom});
    *pLen = extent.length;
    if (extent.hasCentre) {
        *pCx = extent.centreX;
        *pCy = extent.centreY;
    }
    return kDone;
}

int CKVBwDraw::Pis_Grad_Paint_Conv(int Type, int PosX, int PosY, int Left, int Top, int Right,
                                   int Bottom, int Cx, int Cy, double* pOut) {
    *pOut = kv::RampDistance(Type, PosX, PosY, {Left, Top, Right, Bottom}, Cx, Cy);
    return kDone;
}

int CKVBwDraw::MakeEdge(int Type, int Size, int /*SoftPen*/, const CKVGrayBitmap* pSrc,
                        CKVGrayBitmap* pDst) {
    return ResultOf(kv::MakeEdge({Type, Size}, *pSrc, *pDst));
}

int CKVBwDraw::GrayMakeNomEdge(int Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return ResultOf(kv::GrowHard(Size, *pSrc, *pDst));
}

int CKVBwDraw::GrayMakeSoftEdge(int Size, int /*SoftPen*/, const CKVGrayBitmap* pSrc,
                                CKVGrayBitmap* pDst) {
    return ResultOf(kv::GrowSoft(Size, *pSrc, *pDst));
}

int CKVBwDraw::FilterBlush(unsigned char* pBuf, int Size, int Pen) {
    kv::FillBrush(pBuf, Size, Pen);
    return kDone;
}

int CKVBwDraw::MakeShadow(int Type, int Size, int SoftSize, int /*SoftPen*/,
                          const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return ResultOf(kv::CastShadow({Type, Size, SoftSize}, *pSrc, *pDst));
}

int CKVBwDraw::Make3DShadow(DWORD Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return ResultOf(kv::Extrude(static_cast<LONG>(Size), *pSrc, *pDst));
}
