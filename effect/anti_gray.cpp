#include <limits>

#include <CKVBwDraw.h>
#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>

#include "effect/reduction.h"

int CKVBwDraw::MakeAntiGray(int Scale, const CKVMonoBitmap* pMono, CKVGrayBitmap* pGray) {
    pGray->Delete();
    kv::ReduceRow* const reduce = kv::ReductionFor(Scale);
    if (reduce == nullptr) {
        return -1;
    }
    const auto scale = static_cast<std::size_t>(Scale);
    const std::size_t width = std::size_t{pMono->Pitch} * 8 / scale;
    const LONG height = pMono->Bits != nullptr ? pMono->Height / Scale : 0;
    if (width > std::numeric_limits<LONG>::max()) {
        return -1;
    }
    const int created = pGray->Create(static_cast<LONG>(width), height);
    if (created != 0) {
        return created == 4 ? 0 : -1;  // nothing to reduce is no failure, no memory is one
    }
    for (std::size_t row = 0; row < static_cast<std::size_t>(height); ++row) {
        reduce(pMono->Bits + row * scale * pMono->Pitch, pMono->Pitch, width * scale / 8,
               pGray->Bits + row * pGray->Pitch);
    }
    return 0;
}
