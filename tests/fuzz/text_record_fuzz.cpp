#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include <CDrawText.h>

namespace {

// What would only ask for much memory and time is brought down here, and only here.
void Bound(LONG& value, LONG limit) {
    if (value > limit || value < -limit) {
        value %= limit + 1;
    }
}

void BoundSizes(tagKVFONTINFO& info) {
    Bound(info.Size_Height, 40);
    Bound(info.Size_WidthPer, 400);
    Bound(info.Space, 60);
    Bound(info.SpPer, 2000);
    Bound(info.FitStrMax_Max, 400);
    Bound(info.FitStrMax_Min, 400);
    Bound(info.FitSpMax_Max, 60);
    Bound(info.FitSpMax_Min, 60);
    Bound(info.BwDrawInfo.EdgeType_Size, 40);
    Bound(info.BwDrawInfo.ShadType_Size, 200);
    Bound(info.BwDrawInfo.ShadType_SoftSize, 40);
    if (info.Dir == 3 && info.FitMode != 0) {
        // No bound holds this form's width: a line of next to no length would become a giant.
        Bound(info.Eria_Height, 400);
        const LONG least = -std::abs(info.Size_Height) / 4;
        info.Space = std::max(info.Space, least);
        info.FitSpMax_Min = std::max(info.FitSpMax_Min, least);
    }
}

}  // namespace

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
