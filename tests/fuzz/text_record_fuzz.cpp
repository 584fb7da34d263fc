#include <algorithm>
#include <cstdint>
#include <cstring>

#include <CDrawText.h>

#include "tests/fuzz/drawing_bounds.h"

// A record of any bytes, then a string of any bytes, drawn and rendered by itself. Directions and
// fit modes outside their few values would seldom be left again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CDrawText text;
    tagKVFONTINFO info = text.m_Font;
    const std::size_t used = std::min(size, sizeof info);
    std::memcpy(&info, data, used);
    info.Dir &= 3;
    info.FitMode = info.FitMode % 3;
    BoundSizes(info);
    text.m_Font = info;
    text.m_Font.BwDrawInfo.BodyText.File = text.m_BodyFile;
    text.m_Font.BwDrawInfo.EdgeText.File = text.m_EdgeFile;
    text.m_Font.BwDrawInfo.ShadText.File = text.m_ShadFile;
    text.m_String = CString(reinterpret_cast<const char*>(data + used),
                            static_cast<int>(std::min<std::size_t>(size - used, 24)));

    CKVFrameBuffer fb(96, 64, 1);
    text.DrawFrame(nullptr, &fb);
    CBox disp;
    CBox body;
    CBox edge;
    CBox shad;
    text.DrawFrameEria(nullptr, &fb, disp, body, edge, shad);
    return 0;
}
