#include "surface/pixel_rows.h"

#include "surface/pixel_blend.h"

namespace kv {

void BlendRowByKey(DWORD* dst, const DWORD* src, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        dst[i] = BlendByKey(dst[i], src[i]);
    }
}

void BlendRowByMask(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        dst[i] = BlendByMask(dst[i], src[i], mask[i]);
    }
}

}  // namespace kv
