// The one call from the surface up to the module, which knows the outside resize function.

#include "surface/outside_resize.h"

#include <limits>

#include <CKVDrawWApp.h>

namespace {

constexpr int kInterpolationCubic = 4;
constexpr int kInterpolationSuper = 8;  // averages the source pixels under a target pixel

bool StepFits(const CKVFrameBuffer& surface) {
    return surface.GetLineByte() <= DWORD{std::numeric_limits<int>::max()};
}

double Ratio(LONG target, LONG source) {
    return static_cast<double>(target) / static_cast<double>(source);
}

}  // namespace

// The outside function counts rows in signed bytes: it cannot take rows of 2 GB.
std::optional<bool> kv::ResizeOutside(const CKVFrameBuffer& source, CKVFrameBuffer& target) {
    const KVResizeFunction resize = CKVDrawWApp::Instance().m_IppResize;
    if (resize == nullptr) {
        return std::nullopt;
    }
    if (!StepFits(source) || !StepFits(target)) {
        return false;
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
    return status == 0;
}
