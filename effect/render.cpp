#include <limits>

#include <CKVBwDraw.h>

#include "base/narrow.h"
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
    const auto place = [&](const kv::Layer& layer, std::int64_t offset) {
        if (layer.made) {
            const CPoint corner(kv::SaturateToInt32(pInfo->Pos_X + offset),
                                kv::SaturateToInt32(pInfo->Pos_Y + offset));
            kv::PlaceLayer(*pInfo, layer, *pFb, corner, &last);
            touched.MaxBox(last);
        }
    };
    place(layers.shadow, kv::ShadowOffset(*pInfo));
    place(layers.edge, kv::EdgeOffset(*pInfo));
    place(layers.body, 0);
    *pBox = touched;
    return 0;
}
