#include "effect/render.h"

#include <limits>

#include <CKVBwDraw.h>

#include "base/narrow.h"

namespace kv {

int DisplayBody(CKVBwDraw& draw, CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers,
                CBox& box) {
    const int made = MakeLayers(draw, info, layers);
    if (made != 0) {
        return made;
    }

    // Starts as the box whose corners are all beaten: with the wrap its right and bottom are -1.
    constexpr LONG kLeast = std::numeric_limits<LONG>::min();
    constexpr LONG kMost = std::numeric_limits<LONG>::max();
    CBox touched(kMost, kMost, kLeast, kLeast);
    // A layer that falls outside the target leaves the box of the one before it.
    CBox last;
    const auto place = [&](const Layer& layer, std::int64_t offset) {
        if (layer.made) {
            const CPoint corner(SaturateToInt32(info.Pos_X + offset),
                                SaturateToInt32(info.Pos_Y + offset));
            PlaceLayer(info, layer, fb, corner, &last);
            touched.MaxBox(last);
        }
    };
    place(layers.shadow, ShadowOffset(info));
    place(layers.edge, EdgeOffset(info));
    place(layers.body, 0);
    box = touched;
    return 0;
}

}  // namespace kv

int CKVBwDraw::DispFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono,
                      CBox* pBox) {
    m_pFb = pFb;
    m_pInfo = pInfo;
    kv::Layers layers;
    const int reduced = MakeAntiGray(pInfo->AntiScale, pMono, &layers.body.coverage);
    return reduced != 0 ? reduced : kv::DisplayBody(*this, *pFb, *pInfo, layers, *pBox);
}
