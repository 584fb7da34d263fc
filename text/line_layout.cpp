#include "text/line_layout.h"

#include <algorithm>
#include <cstring>

#include <CKVFont.h>

#include "base/narrow.h"
#include "platform/font/font_name.h"
#include "platform/text/mbcs.h"

namespace kv::text {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0;

int ByteCount(const std::string& text) {
    return SaturateToInt32(static_cast<std::int64_t>(text.size()));
}

}  // namespace

LONG PercentOf(double length, double percent, double factor) {
    return TruncateToInt32((length * percent * factor + 50.0) / 100.0);
}

LineLayout::LineLayout(HWND window, tagKVFONTINFO& info, const char* text, const WidthStep* fit)
    : m_Window(window),
      m_Info(info),
      m_Text(text == nullptr ? "" : text),
      m_Extra(SaturateToInt32(std::int64_t{info.Space} * info.AntiScale)),
      m_Fit(fit) {}

void LineLayout::Run(CKVMonoBitmap& mask, tagPOINT& pos) {
    m_Dc.CreateCompatibleDC(nullptr);
    DescribeFont();
    UseFont();
    m_FirstAverage = m_Metric.tmAveCharWidth;
    WidenFont();
    UseFont();
    AdjustBlanks();
    const std::string measured = MeasuredText();
    Measure(measured);
    if (m_Fit != nullptr) {
        FitToArea(measured);
    }
    const CPoint placed = Place(StartPoint());
    // What follows a fitted line begins its length behind the anchor, wherever the line stands.
    const CPoint next =
        Continuation(m_Fit != nullptr ? CPoint(m_Info.Pos_X, m_Info.Pos_Y) : placed);
    m_Info.NextAddress_X = next.x;
    m_Info.NextAddress_Y = next.y;
    pos = placed;
    Draw(mask);
}

void LineLayout::LookUpFace(LOGFONTA& description) const {
    // The record's field may lack its terminator and hold more than a logical font does.
    const std::size_t length = strnlen(m_Info.FontName, sizeof m_Info.FontName);
    gdi::StoreName({m_Info.FontName, length}, description.lfFaceName);
    // An unknown family leaves all zero but the name: the platform's substitute then draws.
    const LOGFONTA asked = description;
    CKVFont().GetFontLogfont(m_Window, asked.lfFaceName, &description);
}

void LineLayout::SetFontSize() {
    m_Font.lfHeight = SaturateToInt32(std::int64_t{m_Info.Size_Height} * Scale());
    m_Font.lfWidth = 0;
    m_Font.lfOrientation = 0;
    m_Font.lfWeight = m_Info.Weight != 0 ? 700 : 400;
    m_Font.lfItalic = static_cast<BYTE>(m_Info.Italic);
}

LONG LineLayout::WidthPercent() const {
    return m_Info.Size_WidthPer != 0 ? m_Info.Size_WidthPer : 100;
}

LONG LineLayout::AlignShift() const {
    const std::int64_t area = AreaLength();
    const std::int64_t length = m_Length / Scale();
    switch (m_Info.Format) {
        case 1:
            return SaturateToInt32(area - length);
        case 2:
            return SaturateToInt32(area / 2 - length / 2);
        default:
            return 0;
    }
}

LONG LineLayout::BaselineShift() const {
    if (m_Font.lfCharSet == SHIFTJIS_CHARSET) {
        return 0;
    }
    return m_Metric.tmDescent / Scale() - TruncateToInt32(m_Metric.tmHeight * 0.05 / Scale());
}

LONG LineLayout::ItalicOverhang() const {
    return m_Info.Italic != 0 ? m_Metric.tmAveCharWidth / 2 : 0;
}

void LineLayout::SelectFont(const CFont& font, LONG extra) {
    m_Dc.SelectObject(font);
    m_Dc.SetTextCharacterExtra(extra);
}

tagSIZE LineLayout::Extent(const std::string& text) const {
    tagSIZE extent{};
    m_Dc.GetTextExtentPoint32A(text.c_str(), ByteCount(text), &extent);
    return extent;
}

void LineLayout::TextOut(LONG x, LONG y, const std::string& text) {
    m_Dc.TextOutA(x, y, text.c_str(), ByteCount(text));
}

void LineLayout::UseFont() {
    m_LineFont.CreateFontIndirectA(m_Font);
    SelectFont(m_LineFont, m_Extra);
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
    SelectFont(m_LineFont, std::max(m_Extra, 0));
    const tagSIZE extent = Extent(text);
    m_Dc.SetTextCharacterExtra(m_Extra);
    const auto count = static_cast<std::int64_t>(_mbslen(text.c_str()));
    const std::int64_t uncounted = m_Extra < 0 ? 2 - count : 1;
    m_Length = extent.cx - uncounted * m_Extra;
    m_Thickness = extent.cy;
}

// The line is measured anew, and that is its length, whatever was aimed at.
void LineLayout::FitToArea(const std::string& measured) {
    const std::int64_t s = Scale();
    const auto count = static_cast<std::int64_t>(_mbslen(measured.c_str()));
    // Bounds beyond any distance would only overflow what they are multiplied with.
    const FitOutcome fit =
        Fit({m_Length, AreaLength() * s, count, m_Extra, SaturateToInt32(m_Info.FitSpMax_Min * s),
             SaturateToInt32(m_Info.FitSpMax_Max * s), m_Info.FitMode == 2});
    m_Extra = SaturateToInt32(fit.extra);
    if (fit.resized) {
        m_Font.lfWidth = FittedWidth(fit);
    }
    UseFont();
    Measure(measured);
}

LONG LineLayout::FittedWidth(const FitOutcome& fit) const {
    if (m_Fit->percent == WidthStep::Percent::kPlain) {
        return PercentOf(m_Metric.tmAveCharWidth, fit.ratio * 100.0, 1.0);
    }
    const bool rounded = m_Fit->percent == WidthStep::Percent::kRounded;
    LONG percent = TruncateToInt32(WidthPercent() * fit.ratio + (rounded ? 0.5 : 0.0));
    percent = fit.shrinks ? std::max(percent, m_Info.FitStrMax_Min)
                          : std::min(percent, m_Info.FitStrMax_Max);
    return m_Fit->fromFirstFont ? PercentOf(m_FirstAverage, percent, AspectFactor())
                                : PercentOf(m_Metric.tmAveCharWidth, percent, 1.0);
}

void LineLayout::Draw(CKVMonoBitmap& mask) {
    mask.Delete();
    const tagSIZE size = MaskSize();
    // The mask first: a picture beyond what it can hold is not even begun.
    if (mask.Create(size.cx, size.cy) != 0) {
        return;
    }
    CBitmap bitmap;
    if (!bitmap.CreateBitmap(size.cx, size.cy, 1, 1, nullptr)) {
        mask.Delete();
        return;
    }
    m_Dc.SelectObject(bitmap);
    m_Dc.SetTextColor(kWhite);
    m_Dc.SetBkColor(kBlack);
    m_Dc.BitBlt(0, 0, size.cx, size.cy, nullptr, 0, 0, BLACKNESS);
    DrawLine();
    bitmap.GetBitmapBits(mask.Size, mask.Bits);
}

}  // namespace kv::text
