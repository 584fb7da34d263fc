// The one call from the paints up to the image files: a texture is a picture read for itself.

#include "effect/paint/texture_picture.h"

#include <CImgFile.h>

kv::Outcome kv::LoadTexture(const char* file, CKVFrameBuffer& picture) {
    return CImgFile::LoadImg(file, &picture, nullptr) == 0 ? Outcome() : Outcome(Cause::kNoFile);
}
