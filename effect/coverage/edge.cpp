// An edge made whole, hard or soft.

#include "effect/coverage/edge.h"

#include "effect/coverage/grown.h"

kv::Outcome kv::MakeEdge(const Edge& edge, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (edge.radius < 1 || source.Bits == nullptr) {
        return Cause::kNothingToDraw;
    }
    if (const Outcome created = CreateGrown(target, source, EdgeGrowth(edge)); !created) {
        return created;
    }
    return edge.type == kHardEdge ? GrowHard(edge.radius, source, target)
                                  : GrowSoft(edge.radius, source, target);
}
