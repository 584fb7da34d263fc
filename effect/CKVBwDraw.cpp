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

int Result(bool done) {
    return done ? 0 : -1;
}

}  // namespace

int CKVBwDraw::DispFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                      CBox* pBox) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    return Result(kv::ReduceMask(pInfo->AntiScale, *pMono, layers.body.coverage) &&
                  kv::DisplayBody(*pFb, *pInfo, layers, *pBox));
}

int CKVBwDraw::SetFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                     CBox& Eria, CBox& Body, CBox& Edge, CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    return Result(kv::ReduceMask(pInfo->AntiScale, *pMono, layers.body.coverage) &&
                  kv::SetBody(*pFb, *pInfo, layers, Eria, Body, Edge, Shad));
}

int CKVBwDraw::SetImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    if (pFb == nullptr || pInfo == nullptr || pSrc == nullptr) {
        return -1;
    }
    kv::SetImage(*pFb, *pInfo, *pSrc, kv::PictureSize::kToFit, Eria, Body, Edge, Shad);
    return 0;
}

int CKVBwDraw::SetFullImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                    const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                    CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    if (pFb == nullptr || pInfo == nullptr || pSrc == nullptr) {
        return -1;
    }
    kv::SetImage(*pFb, *pInfo, *pSrc, kv::PictureSize::kOfSource, Eria, Body, Edge, Shad);
    return 0;
}

int CKVBwDraw::KeyToGray(const CKVFrameBuffer* pFb, CKVGrayBitmap* pGray) {
    return Result(pFb != nullptr && pGray != nullptr && kv::KeysToCoverage(*pFb, *pGray));
}

int CKVBwDraw::MakeAntiGray(int Scale, const CKVMonoBitmap* pMono, CKVGrayBitmap* pGray) {
    return Result(kv::ReduceMask(Scale, *pMono, *pGray));
}

int CKVBwDraw::MakeFb_Color(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const DWORD* pCol) {
    return Result(pGray != nullptr && pFb != nullptr && pCol != nullptr &&
                  kv::PaintColour(*pGray, *pFb, *pCol));
}

int CKVBwDraw::MakeFb_Grad(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb,
                           const tagGRADINFO* pGrad) {
    return Result(pGray != nullptr && pFb != nullptr && pGrad != nullptr &&
                  kv::PaintGradient(*pGray, *pFb, *pGrad));
}

int CKVBwDraw::MakeFb_Text(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb,
                           const tagTEXTUREINFO* pText) {
    return Result(pGray != nullptr && pFb != nullptr && pText != nullptr &&
                  kv::PaintTexture(*pGray, *pFb, *pText));
}

int CKVBwDraw::GrayToFb(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagMAPINFO* pMap) {
    return Result(pGray != nullptr && pFb != nullptr && pMap != nullptr &&
                  kv::PaintByMap(*pGray, *pFb, *pMap));
}

int CKVBwDraw::Pis_Grad_Paint(DWORD* pPixels, int Width, int Height, int x, int y, DWORD Col1,
                              DWORD Col2, int Patern) {
    if (pPixels != nullptr) {
        kv::PaintBareRamp(pPixels, Width, Height, {0, Patern, x, y, Col1, Col2});
    }
    return 0;
}

int CKVBwDraw::Pis_Grad_Paint_Set1(int Type, int x, int y, int Left, int Top, int Right, int Bottom,
                                   int* pCx, int* pCy, int* pLen) {
    const kv::RampExtent extent = kv::MeasureRamp(Type, x, y, {Left, Top, Right, Bottom});
    *pLen = extent.length;
    if (extent.hasCentre) {
        *pCx = extent.centreX;
        *pCy = extent.centreY;
    }
    return 0;
}

int CKVBwDraw::Pis_Grad_Paint_Conv(int Type, int PosX, int PosY, int Left, int Top, int Right,
                                   int Bottom, int Cx, int Cy, double* pOut) {
    *pOut = kv::RampDistance(Type, PosX, PosY, {Left, Top, Right, Bottom}, Cx, Cy);
    return 0;
}

int CKVBwDraw::MakeEdge(int Type, int Size, int /*SoftPen*/, const CKVGrayBitmap* pSrc,
                        CKVGrayBitmap* pDst) {
    return Result(kv::MakeEdge(Type, Size, *pSrc, *pDst));
}

int CKVBwDraw::GrayMakeNomEdge(int Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return Result(kv::AddHardEdge(Size, *pSrc, *pDst));
}

int CKVBwDraw::GrayMakeSoftEdge(int Size, int /*SoftPen*/, const CKVGrayBitmap* pSrc,
                                CKVGrayBitmap* pDst) {
    return Result(kv::AddSoftEdge(Size, *pSrc, *pDst));
}

int CKVBwDraw::FilterBlush(unsigned char* pBuf, int Size, int Pen) {
    kv::FillBrush(pBuf, Size, Pen);
    return 0;
}

int CKVBwDraw::MakeShadow(int Type, int Size, int SoftSize, int /*SoftPen*/,
                          const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return Result(kv::MakeShadow(Type, Size, SoftSize, *pSrc, *pDst));
}

int CKVBwDraw::Make3DShadow(DWORD Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst) {
    return Result(kv::AddExtrusion(static_cast<LONG>(Size), *pSrc, *pDst));
}
