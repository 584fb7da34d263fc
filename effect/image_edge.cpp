// A picture as the body of a render.

#include "effect/image_edge.h"

#include "base/vector.h"
#include "surface/store_result.h"

namespace {

KV_FORCE_INLINE void KeysBody(const DWORD* pixels, BYTE* keys, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        keys[i] = static_cast<BYTE>(pixels[i] >> 24);
    }
}

void KeysPlain(const DWORD* pixels, BYTE* keys, std::size_t count) {
    KeysBody(pixels, keys, count);
}

KV_TARGET_AVX2 void KeysAvx2(const DWORD* pixels, BYTE* keys, std::size_t count) {
    KeysBody(pixels, keys, count);
}

}  // namespace

kv::Outcome kv::TakeKeys(const CKVFrameBuffer& picture, CKVGrayBitmap& coverage) {
    coverage.Delete();
    const int result = coverage.Create(picture.m_Width, picture.m_Height);
    const Outcome created = MadeStore(result, picture.m_Size / sizeof(DWORD));
    if (coverage.Bits == nullptr) {
        return created;
    }
    auto* const copyKeys = ForLevel(KeysPlain, KeysAvx2);
    const std::size_t width = picture.GetWidth();
    for (std::size_t row = 0; row < picture.GetHeight(); ++row) {
        copyKeys(picture.GetBufferDWord() + row * width, coverage.Bits + row * coverage.Pitch,
                 width);
    }
    return created;
}

void kv::TakePicture(const CKVFrameBuffer& source, Layer& body) {
    const Outcome keys = TakeKeys(source, body.coverage);
    body.picture = source;
    body.whole = body.picture.GetWH();
    body.outcome = Outcome::DoneDespite(
        source.IsBuffer() == 0 && body.picture.IsBuffer() != 0 ? Cause::kNoMemory : keys.Why());
}
