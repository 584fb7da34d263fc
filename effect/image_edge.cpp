#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>

#include "effect/arrangement.h"
#include "effect/vector.h"

namespace {

KV_FORCE_INLINE void KeysBody(const DWORD* pixels, BYTE* keys, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        keys[i] = static_cast<BYTE>(pixels[i] >> 24);
    }
}

void KeysPlain(const DWORD* pixels, BYTE* keys, std::size_t count) {
    KeysBody(pixels, keys, count);
}

KV_TARGET_AVX2 void KeysAvx2(const DWORD* pixels, BYTE* keys, std::size_t count) {
    KeysBody(pixels, keys, count);
}

// The layers of a picture: it is the body, its keys are the coverage. What cannot be had is left
// out. All of the source is taken here, so that it may be the target as well.
void MakeImageLayers(CKVBwDraw& draw, tagKVBWDRAWINFO& info, const CKVFrameBuffer& source,
                     kv::Layers& layers) {
    draw.KeyToGray(&source, &layers.body.coverage);
    layers.body.picture = source;
    layers.body.made = true;
    kv::MakeEdgeAndShadow(draw, info, layers);
}

enum class Size { kToFit, kOfSource };

int SetImage(CKVBwDraw& draw, const CKVFrameBuffer* source, Size size, CBox& eria, CBox& body,
             CBox& edge, CBox& shad) {
    if (draw.m_pFb == nullptr || draw.m_pInfo == nullptr || source == nullptr) {
        return -1;
    }
    tagKVBWDRAWINFO& info = *draw.m_pInfo;
    kv::Layers layers;
    MakeImageLayers(draw, info, *source, layers);
    const kv::Arrangement arranged = kv::Arrange(info, layers);
    kv::StackAnew(*draw.m_pFb, info, layers, arranged,
                  size == Size::kToFit ? arranged.Whole() : arranged.body);
    arranged.Report(eria, body, edge, shad);
    return 0;
}

}  // namespace

int CKVBwDraw::KeyToGray(const CKVFrameBuffer* pFb, CKVGrayBitmap* pGray) {
    if (pFb == nullptr || pGray == nullptr) {
        return -1;
    }
    pGray->Delete();
    const int created = pGray->Create(pFb->m_Width, pFb->m_Height);
    if (created != 0) {
        return created == 4 ? 0 : -1;  // an empty picture has no keys
    }
    auto* const copyKeys = kv::ForLevel(KeysPlain, KeysAvx2);
    const std::size_t width = pFb->GetWidth();
    for (std::size_t row = 0; row < pFb->GetHeight(); ++row) {
        copyKeys(pFb->GetBufferDWord() + row * width, pGray->Bits + row * pGray->Pitch, width);
    }
    return 0;
}

int CKVBwDraw::SetImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    return SetImage(*this, pSrc, Size::kToFit, Eria, Body, Edge, Shad);
}

int CKVBwDraw::SetFullImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                                    const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                                    CBox& Shad) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    return SetImage(*this, pSrc, Size::kOfSource, Eria, Body, Edge, Shad);
}

int CKVFrameBuffer::SetEdge(CKVFrameBuffer* pDst, tagKVBWDRAWINFO* pInfo, CBox& Eria, CBox& Body,
                            CBox& Edge, CBox& Shad) const {
    return CKVBwDraw().SetImgEdgeShadow(pDst, pInfo, this, Eria, Body, Edge, Shad);
}

int CKVFrameBuffer::SetEdgeOrgSize(CKVFrameBuffer* pDst, tagKVBWDRAWINFO* pInfo) const {
    CBox eria, body, edge, shad;
    return CKVBwDraw().SetFullImgEdgeShadow(pDst, pInfo, this, eria, body, edge, shad);
}
