// A frame buffer scaled into another one, by size or by factors.

#include <CKVFrameBuffer.h>

#include "surface/holds.h"
#include "surface/outside_resize.h"
#include "surface/resample.h"

namespace {

// Gives the surface a store of that size; a store that has it already may stay, since every pixel
// is written next. 0, or what the creation failed with.
int ReplaceStore(CKVFrameBuffer& surface, LONG width, LONG height) {
    const kv::ExclusiveHold hold(surface);
    if (surface.IsBuffer() == 0 && surface.GetWH() == CSize(width, height)) {
        return 0;
    }
    surface.UnlockDeleteFrameBuffer();
    return surface.UnlockCreateFrameBuffer(width, height, 0);
}

int ResizeInto(const CKVFrameBuffer& source, CKVFrameBuffer& target, CSize size, float factorX,
               float factorY) {
    if (ReplaceStore(target, size.cx, size.cy) != 0) {
        return -1;
    }
    if (const auto resized = kv::ResizeOutside(source, target)) {
        return *resized ? 0 : -1;
    }
    if (!kv::Resample(source, target, factorX, factorY)) {
        target.DeleteFrameBuffer();
        return -1;
    }
    return 0;
}

bool FitsLong(float value) {
    return value < 2147483648.0F;
}

}  // namespace

int CKVFrameBuffer::SizeChange(CKVFrameBuffer* target, LONG width, LONG height) const {
    if (width < 1 || height < 1 || target == nullptr || target == this || m_Alloc == nullptr) {
        return -1;
    }
    return ResizeInto(*this, *target, {width, height},
                      static_cast<float>(width) / static_cast<float>(m_Width),
                      static_cast<float>(height) / static_cast<float>(m_Height));
}

int CKVFrameBuffer::SizeChangeScale(CKVFrameBuffer* target, float scaleX, float scaleY) const {
    const bool positive = scaleX > 0 && scaleY > 0;  // false for what is not a number, too
    if (!positive || target == nullptr || target == this || m_Alloc == nullptr) {
        return -1;
    }
    const float width = static_cast<float>(m_Width) * scaleX;
    const float height = static_cast<float>(m_Height) * scaleY;
    if (!FitsLong(width) || !FitsLong(height)) {
        return -1;
    }
    return ResizeInto(*this, *target, {static_cast<LONG>(width), static_cast<LONG>(height)}, scaleX,
                      scaleY);
}
