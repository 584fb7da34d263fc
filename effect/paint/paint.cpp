// The choice among the paints.

#include "effect/paint/paint.h"

bool kv::PaintByMap(const CKVGrayBitmap& gray, CKVFrameBuffer& fb, const tagMAPINFO& map) {
    enum Paint : LONG { kColour = 0, kGradient = 1, kTexture = 2 };
    switch (map.Mode) {
        case kColour:
            return map.Col != nullptr && PaintColour(gray, fb, *map.Col);
        case kGradient:
            return map.Grad != nullptr && PaintGradient(gray, fb, *map.Grad);
        case kTexture:
            return map.Text != nullptr && PaintTexture(gray, fb, *map.Text);
        default:
            return false;
    }
}
