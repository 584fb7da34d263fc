#include <CKVBwDraw.h>
#include <CKVGrayBitmap.h>

#include "effect/grown.h"

int CKVBwDraw::MakeEdge(int Type, int Size, int SoftPen, const CKVGrayBitmap* pSrc,
                        CKVGrayBitmap* pDst) {
    if (Size < 1 || pSrc->Bits == nullptr) {
        return -1;
    }
    pDst->Delete();
    if (!kv::CreateGrown(*pDst, kv::Grown(*pSrc, std::int64_t{2} * Size))) {
        return -1;
    }
    return Type == 0 ? GrayMakeNomEdge(Size, pSrc, pDst)
                     : GrayMakeSoftEdge(Size, SoftPen, pSrc, pDst);
}
