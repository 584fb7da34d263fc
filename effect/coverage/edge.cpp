#include "effect/coverage/edge.h"

#include "effect/coverage/grown.h"

bool kv::MakeEdge(int type, int radius, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (radius < 1 || source.Bits == nullptr) {
        return false;
    }
    target.Delete();
    if (!CreateGrown(target, Grown(source, std::int64_t{2} * radius))) {
        return false;
    }
    return type == 0 ? AddHardEdge(radius, source, target) : AddSoftEdge(radius, source, target);
}
