#include "effect/paint.h"

#include <CKVBwDraw.h>

int kv::MakeLayerSurface(const CKVGrayBitmap& gray, CKVFrameBuffer& fb) {
    constexpr int kNoSize = 4;
    fb.DeleteFrameBuffer();
    const int created = fb.CreateFrameBuffer(gray.Width, gray.Height, 0);
    return created == 0 || created == kNoSize ? 0 : -1;
}

int CKVBwDraw::GrayToFb(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagMAPINFO* pMap) {
    if (pMap == nullptr) {
        return -1;
    }
    switch (pMap->Mode) {
        case 0:
            return MakeFb_Color(pGray, pFb, pMap->Col);
        case 1:
            return MakeFb_Grad(pGray, pFb, pMap->Grad);
        case 2:
            return MakeFb_Text(pGray, pFb, pMap->Text);
        default:
            return -1;
    }
}
