#include "effect/image_edge.h"

#include "base/vector.h"
#include "effect/arrangement.h"

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

// The layers of a picture: it is the body, its keys are the coverage. What cannot be had is left
// out. All of the source is taken here, so that it may be the target as well.
void MakeImageLayers(tagKVBWDRAWINFO& info, const CKVFrameBuffer& source, kv::Layers& layers) {
    kv::KeysToCoverage(source, layers.body.coverage);
    layers.body.picture = source;
    layers.body.made = true;
    kv::MakeEdgeAndShadow(info, layers);
}

}  // namespace

namespace kv {

bool KeysToCoverage(const CKVFrameBuffer& picture, CKVGrayBitmap& coverage) {
    constexpr int kNoSize = 4;
    coverage.Delete();
    const int created = coverage.Create(picture.m_Width, picture.m_Height);
    if (created != 0) {
        return created == kNoSize;  // an empty picture has no keys
    }
    auto* const copyKeys = ForLevel(KeysPlain, KeysAvx2);
    const std::size_t width = picture.GetWidth();
    for (std::size_t row = 0; row < picture.GetHeight(); ++row) {
        copyKeys(picture.GetBufferDWord() + row * width, coverage.Bits + row * coverage.Pitch,
                 width);
    }
    return true;
}

void SetImage(CKVFrameBuffer& fb, tagKVBWDRAWINFO& info, const CKVFrameBuffer& source,
              PictureSize size, CBox& eria, CBox& body, CBox& edge, CBox& shad) {
    Layers layers;
    MakeImageLayers(info, source, layers);
    const Arrangement arranged = Arrange(info, layers);
    StackAnew(fb, info, layers, arranged,
              size == PictureSize::kToFit ? arranged.Whole() : arranged.body);
    arranged.Report(eria, body, edge, shad);
}

}  // namespace kv
