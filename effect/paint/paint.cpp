// The choice among the paints.

#include "effect/paint/paint.h"

namespace kv {
namespace {

template <typename Selected>
std::optional<PaintSource> ReadWhere(const Selected* selected) {
    return selected != nullptr ? std::optional<PaintSource>(*selected) : std::nullopt;
}

}  // namespace

std::optional<PaintSource> SourceOf(LONG mode, const DWORD* colour, const tagGRADINFO* grad,
                                    const tagTEXTUREINFO* texture) {
    switch (PaintKind{mode}) {
        case kColourPaint:
            return ReadWhere(colour);
        case kGradientPaint:
            return ReadWhere(grad);
        case kTexturePaint:
            return ReadWhere(texture);
    }
    return std::nullopt;
}

Outcome Paint(const PaintSource& source, const CKVGrayBitmap& gray, CKVFrameBuffer& fb) {
    return std::visit([&](const auto& chosen) { return PaintWith(chosen, gray, fb); }, source);
}

}  // namespace kv
