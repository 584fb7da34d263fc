#include <limits>

#include <CKVDrawWApp.h>
#include <CKVFrameBuffer.h>

#include "surface/holds.h"
#include "surface/resample.h"

namespace {

constexpr int kInterpolationCubic = 4;
constexpr int kInterpolationSuper = 8;  // averages the source pixels under a target pixel

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

bool StepFits(const CKVFrameBuffer& surface) {
    return surface.GetLineByte() <= DWORD{std::numeric_limits<int>::max()};
}

double Ratio(LONG target, LONG source) {
    return static_cast<double>(target) / static_cast<double>(source);
}

// The outside function counts rows in signed bytes: it cannot take rows of 2 GB.
int ResizeOutside(KVResizeFunction resize, const CKVFrameBuffer& source, CKVFrameBuffer& target) {
    if (!StepFits(source) || !StepFits(target)) {
        return -1;
    }
    const double xFactor = Ratio(target.m_Width, source.m_Width);
    const double yFactor = Ratio(target.m_Height, source.m_Height);
    const bool grows = xFactor > 1.0 || yFactor > 1.0;
    const int status =
        resize(source.GetBufferByte(), {source.m_Width, source.m_Height},
               static_cast<int>(source.GetLineByte()), {0, 0, source.m_Width, source.m_Height},
               target.GetBufferByte(), static_cast<int>(target.GetLineByte()),
               {target.m_Width, target.m_Height}, xFactor, yFactor,
               grows ? kInterpolationCubic : kInterpolationSuper);
    return status == 0 ? 0 : -1;
}

int ResizeInto(const CKVFrameBuffer& source, CKVFrameBuffer& target, CSize size, float factorX,
               float factorY) {
    if (ReplaceStore(target, size.cx, size.cy) != 0) {
        return -1;
    }
    if (const KVResizeFunction outside = CKVDrawWApp::Instance().m_IppResize) {
        return ResizeOutside(outside, source, target);
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
