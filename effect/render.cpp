#include "effect/render.h"

#include <limits>

#include "base/narrow.h"
#include "effect/arrangement.h"

namespace kv {

bool DisplayBody(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& box) {
    if (!MakeLayers(info, layers)) {
        return false;
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
    return true;
}

bool SetBody(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, Layers& layers, CBox& eria, CBox& body,
             CBox& edge, CBox& shad) {
    if (!MakeLayers(info, layers)) {
        return false;
    }
    const Arrangement arranged = Arrange(info, layers);
    arranged.Report(eria, body, edge, shad);
    StackAnew(fb, info, layers, arranged, arranged.Whole());
    return true;
}

}  // namespace kv
