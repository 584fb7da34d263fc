// The text object: setters, readers, copies, and its drawing by the layouts.

#include "CDrawText.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "platform/system/class_record.h"

namespace {

// The Japanese gothic face in code page 932.
constexpr char kDefaultFace[] = "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E";
constexpr std::size_t kFontNameKept = 32;

LONG InRangeOr0(LONG value, LONG max) {
    return value < 0 || value > max ? 0 : value;
}

}  // namespace

KV_DEFINE_CLASS_RECORD(CDrawText, VERSIONABLE_SCHEMA);

CDrawText::CDrawText() {
    SetDefault();
}

CDrawText::CDrawText(const CDrawText& other)
    : CKVFont(other),
      CObject(),
      KVEffectAccess<CDrawText>(other),
      KVTextureAccess<CDrawText>(other) {
    *this = other;
}

CDrawText& CDrawText::operator=(const CDrawText& other) {
    m_Font = other.m_Font;
    m_String = other.m_String;
    m_BodyFile = other.m_BodyFile;
    m_EdgeFile = other.m_EdgeFile;
    m_ShadFile = other.m_ShadFile;
    m_DispEria = other.m_DispEria;
    ConnectAll();
    return *this;
}

void CDrawText::SetDefault() {
    const tagKVBWDRAWINFO effect = m_Font.BwDrawInfo;
    m_Font = {};
    m_Font.BwDrawInfo = effect;
    SetDefaultEffect();
    SetAntiScale(16);
    SetFontName(kDefaultFace);
    SetSize(32, 100);
    SetPos(72, 438);
    m_String.Empty();
}

void CDrawText::SetFontName(const char* name) {
    // By way of a copy, since the name may be this object's own.
    char kept[sizeof m_Font.FontName] = {};
    if (name != nullptr) {
        std::memcpy(kept, name, strnlen(name, kFontNameKept));
    }
    std::copy(std::begin(kept), std::end(kept), m_Font.FontName);
}

void CDrawText::SetPos(LONG x, LONG y) {
    m_Font.Pos_X = x;
    m_Font.Pos_Y = y;
}

void CDrawText::SetSize(LONG height, LONG widthPer) {
    m_Font.Size_Height = height;
    m_Font.Size_WidthPer = widthPer;
}

void CDrawText::SetFormat(LONG format) {
    m_Font.Format = InRangeOr0(format, 2);
}

void CDrawText::SetEria(LONG width, LONG height) {
    m_Font.Eria_Width = width;
    m_Font.Eria_Height = height;
}

void CDrawText::SetDir(LONG dir) {
    m_Font.Dir = std::clamp(dir, 0, 3);
}

void CDrawText::SetAntiScale(LONG scale) {
    m_Font.AntiScale = m_Font.BwDrawInfo.AntiScale = kv::SnapAntiScale(scale);
}

void CDrawText::SetFitMode(LONG mode) {
    m_Font.FitMode = std::clamp(mode, 0, 2);
}

void CDrawText::SetFitStrMax(LONG max, LONG min) {
    m_Font.FitStrMax_Max = max;
    m_Font.FitStrMax_Min = min;
}

void CDrawText::SetFitSpMax(LONG max, LONG min) {
    m_Font.FitSpMax_Max = max;
    m_Font.FitSpMax_Min = min;
}

void CDrawText::SetAspectMode(LONG mode) {
    m_Font.AspectMode = InRangeOr0(mode, 1);
}

void CDrawText::SetAddressMode(LONG mode) {
    m_Font.AddressMode = InRangeOr0(mode, 1);
}

void CDrawText::SetNextAddress(LONG x, LONG y) {
    m_Font.NextAddress_X = x;
    m_Font.NextAddress_Y = y;
}

void CDrawText::GetPos(LONG* x, LONG* y) const {
    *x = m_Font.Pos_X;
    *y = m_Font.Pos_Y;
}

void CDrawText::GetNextAddress(LONG* x, LONG* y) const {
    *x = m_Font.NextAddress_X;
    *y = m_Font.NextAddress_Y;
}

void CDrawText::GetSize(LONG* height, LONG* widthPer) const {
    *height = m_Font.Size_Height;
    *widthPer = m_Font.Size_WidthPer;
}

void CDrawText::GetEria(LONG* width, LONG* height) const {
    *width = m_Font.Eria_Width;
    *height = m_Font.Eria_Height;
}

void CDrawText::GetFitStrMax(LONG* max, LONG* min) const {
    *max = m_Font.FitStrMax_Max;
    *min = m_Font.FitStrMax_Min;
}

void CDrawText::GetFitSpMax(LONG* max, LONG* min) const {
    *max = m_Font.FitSpMax_Max;
    *min = m_Font.FitSpMax_Min;
}

int CDrawText::CheckFontName(HWND window, const char* name) {
    tagLOGFONTA found;
    return GetFontLogfont(window, name, &found) == 0 ? 0 : 1;
}

int CDrawText::DrawFrame(HWND window, CKVFrameBuffer* fb) {
    ConnectAll();
    return FontFbDisp(window, &m_Font, m_String, fb, &m_DispEria);
}

int CDrawText::DrawFrameEria(HWND window, CKVFrameBuffer* fb, CBox& disp, CBox& body, CBox& edge,
                             CBox& shad) {
    ConnectAll();
    const int result = FontFbSet(window, &m_Font, m_String, fb, m_DispEria, body, edge, shad);
    disp = m_DispEria;
    return result;
}
