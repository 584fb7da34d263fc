#include "text/horizontal_line.h"

#include "base/narrow.h"

namespace kv::text {

void HorizontalLine::DescribeFont() {
    LookUpFace(m_Font);
    SetFontSize();
}

void HorizontalLine::WidenFont() {
    m_Font.lfWidth = PercentOf(m_Metric.tmAveCharWidth, WidthPercent(), AspectFactor());
}

tagSIZE HorizontalLine::MaskSize() const {
    const LONG s = Scale();
    const std::int64_t width = (m_Length + ItalicOverhang() + 15) / 16 * 16;
    const std::int64_t height = (std::int64_t{m_Thickness} + s - 1) / s * s;
    return {SaturateToInt32(width), SaturateToInt32(height)};
}

CPoint HorizontalLine::StartPoint() const {
    return m_Info.AddressMode == 0 ? CPoint(m_Info.Pos_X, m_Info.Pos_Y)
                                   : CPoint(m_Info.NextAddress_X, m_Info.NextAddress_Y);
}

CPoint HorizontalLine::Place(CPoint start) const {
    const std::int64_t top = std::int64_t{start.y} - m_Metric.tmHeight / Scale();
    return {SaturateToInt32(std::int64_t{start.x} + AlignShift()),
            SaturateToInt32(top + BaselineShift())};
}

// The row is the anchor's, also when the line itself started elsewhere.
CPoint HorizontalLine::Continuation(CPoint from) const {
    return {SaturateToInt32(from.x + m_Length / Scale()), m_Info.Pos_Y};
}

void HorizontalLine::DrawLine() {
    TextOut(0, 0, m_Text);
}

}  // namespace kv::text
