#include "text/line_layout.h"

#include <algorithm>

#include "base/narrow.h"
#include "platform/mbcs.h"

namespace kv::text {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0;

int ByteCount(const std::string& text) {
    return SaturateToInt32(static_cast<std::int64_t>(text.size()));
}

}  // namespace

bool IsKnownScale(LONG scale) {
    return scale == 1 || scale == 4 || scale == 8 || scale == 16;
}

LineLayout::LineLayout(HWND window, tagKVFONTINFO& info, const char* text)
    : m_Window(window),
      m_Info(info),
      m_Text(text == nullptr ? "" : text),
      m_Extra(SaturateToInt32(std::int64_t{info.Space} * info.AntiScale)) {}

void LineLayout::Run(CKVMonoBitmap& mask, tagPOINT& pos) {
    m_Dc.CreateCompatibleDC(nullptr);
    DescribeFont();
    m_Dc.SetTextCharacterExtra(m_Extra);
    UseFont();
    WidenFont();
    UseFont();
    AdjustBlanks();
    Measure(m_Text);
    const CPoint placed = Place(StartPoint());
    const CPoint next = Continuation(placed);
    m_Info.NextAddress_X = next.x;
    m_Info.NextAddress_Y = next.y;
    pos = placed;
    Draw(mask);
}

void LineLayout::SetCommonFont(LOGFONTA& description) const {
    description.lfHeight = SaturateToInt32(std::int64_t{m_Info.Size_Height} * Scale());
    description.lfWidth = 0;
    description.lfOrientation = 0;
    description.lfWeight = m_Info.Weight != 0 ? 700 : 400;
    description.lfItalic = static_cast<BYTE>(m_Info.Italic);
}

LONG LineLayout::WidthPercent() const {
    return m_Info.Size_WidthPer != 0 ? m_Info.Size_WidthPer : 100;
}

LONG LineLayout::AlignShift(LONG areaLength) const {
    const std::int64_t length = m_Length / Scale();
    switch (m_Info.Format) {
        case 1:
            return SaturateToInt32(areaLength - length);
        case 2:
            return SaturateToInt32(areaLength / 2 - length / 2);
        default:
            return 0;
    }
}

LONG LineLayout::ItalicOverhang() const {
    return m_Info.Italic != 0 ? m_Metric.tmAveCharWidth / 2 : 0;
}

void LineLayout::UseFont() {
    CFont font;
    font.CreateFontIndirectA(m_Font);
    m_Dc.SelectObject(font);
    m_Dc.GetTextMetricsA(&m_Metric);
}

// Justification widens the font's break character only, so blanks become that character first.
void LineLayout::AdjustBlanks() {
    if (m_Info.SpPer == 0) {
        return;
    }
    const LONG average = m_Metric.tmAveCharWidth;
    const LONG scaled = TruncateToInt32(average * 0.5 * m_Info.SpPer / -100.0);
    m_Dc.SetTextJustification(SaturateToInt32(std::int64_t{-(average / 2)} - scaled), 1);
    if (m_Metric.tmBreakChar != ' ') {
        std::replace(m_Text.begin(), m_Text.end(), ' ', static_cast<char>(m_Metric.tmBreakChar));
    }
}

// The extra behind the last character does not count. A negative one is measured apart and counts
// for two characters less than there are, not one.
void LineLayout::Measure(const std::string& text) {
    tagSIZE extent{};
    if (m_Extra < 0) {
        m_Dc.SetTextCharacterExtra(0);
        m_Dc.GetTextExtentPoint32A(text.c_str(), ByteCount(text), &extent);
        m_Dc.SetTextCharacterExtra(m_Extra);
        const auto count = static_cast<std::int64_t>(_mbslen(text.c_str()));
        m_Length = extent.cx + (count - 2) * m_Extra;
    } else {
        m_Dc.GetTextExtentPoint32A(text.c_str(), ByteCount(text), &extent);
        m_Length = std::int64_t{extent.cx} - m_Extra;
    }
    m_Thickness = extent.cy;
}

void LineLayout::Draw(CKVMonoBitmap& mask) {
    mask.Delete();
    const tagSIZE size = MaskSize();
    CBitmap bitmap;
    if (!bitmap.CreateBitmap(size.cx, size.cy, 1, 1, nullptr)) {
        return;
    }
    m_Dc.SelectObject(bitmap);
    m_Dc.SetTextColor(kWhite);
    m_Dc.SetBkColor(kBlack);
    m_Dc.BitBlt(0, 0, size.cx, size.cy, nullptr, 0, 0, BLACKNESS);
    DrawLine();
    mask.Create(size.cx, size.cy);
    bitmap.GetBitmapBits(mask.Size, mask.Bits);
}

}  // namespace kv::text
