#include <limits>

#include <CKVBwDraw.h>

#include "base/wrap.h"
#include "effect/layers.h"

int CKVBwDraw::DispFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                      CBox* pBox) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    const int made = kv::MakeLayers(*this, *pInfo, *pMono, layers);
    if (made != 0) {
        return made;
    }

    // Starts as the box whose corners are all beaten: with the wrap its right and bottom are -1.
    constexpr LONG kLeast = std::numeric_limits<LONG>::min();
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    CBox touched(kMost, kMost, kLeast, kLeast);
    // A layer that falls outside the target leaves the box of the one before it.
    CBox last;
    const auto place = [&](const kv::Layer& layer, CPoint offset) {
        if (layer.made) {
            const CPoint corner(kv::WrapAdd(pInfo->Pos_X, offset.x),
                                kv::WrapAdd(pInfo->Pos_Y, offset.y));
            kv::PlaceLayer(*pInfo, layer, *pFb, corner, &last);
            touched.MaxBox(last);
        }
    };
    place(layers.shadow, kv::ShadowOffset(*pInfo));
    place(layers.edge, kv::EdgeOffset(*pInfo));
    place(layers.body, CPoint(0, 0));
    *pBox = touched;
    return 0;
}
