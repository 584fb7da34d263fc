#include "effect/arrangement.h"

#include <algorithm>

#include "base/wrap.h"

namespace kv {
namespace {

CBox BoxOf(const Layer& layer, CPoint corner) {
    return layer.made ? CBox(corner, layer.picture.GetWH()) : CBox();
}

using Axis = LONG CBox::*;

// Moves all boxes so that the one named starts at 0 or later.
void RaiseToZero(Arrangement& arranged, CBox Arrangement::*named, Axis axis) {
    const LONG start = (arranged.*named).*axis;
    if (start < 0) {
        for (CBox* box : {&arranged.body, &arranged.edge, &arranged.shadow}) {
            box->*axis = WrapSub(box->*axis, start);
        }
    }
}

LONG FurthestEnd(const Arrangement& arranged, Axis start, Axis length) {
    LONG furthest = 0;
    for (const CBox* box : {&arranged.body, &arranged.edge, &arranged.shadow}) {
        furthest = std::max(furthest, WrapAdd(box->*start, box->*length));
    }
    return furthest;
}

}  // namespace

Arrangement Arrange(const tagKVBWDRAWINFO& info, const Layers& layers) {
    Arrangement arranged;
    arranged.shadow = BoxOf(layers.shadow, ShadowOffset(info));
    arranged.edge = BoxOf(layers.edge, EdgeOffset(info));
    arranged.body = CBox(CPoint(0, 0), layers.body.picture.GetWH());
    for (CBox Arrangement::*const named : {&Arrangement::shadow, &Arrangement::edge}) {
        RaiseToZero(arranged, named, &CBox::x);
        RaiseToZero(arranged, named, &CBox::y);
    }
    // Layers that were not made have been moved along.
    for (CBox* box : {&arranged.shadow, &arranged.edge}) {
        if (box->ChEria() == 0) {
            box->x = box->y = 0;
        }
    }
    arranged.area = CBox(WrapSub(info.Pos_X, arranged.body.x), WrapSub(info.Pos_Y, arranged.body.y),
                         FurthestEnd(arranged, &CBox::x, &CBox::width),
                         FurthestEnd(arranged, &CBox::y, &CBox::height));
    return arranged;
}

}  // namespace kv
