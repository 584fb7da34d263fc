#include "text/horizontal_line.h"

#include <cstring>

#include <CKVFont.h>

#include "base/narrow.h"
#include "platform/gdi/font_name.h"

namespace kv::text {

void HorizontalLine::DescribeFont() {
    // The record's field may lack its terminator and hold more than a logical font does.
    const std::size_t length = strnlen(m_Info.FontName, sizeof m_Info.FontName);
    gdi::StoreName({m_Info.FontName, length}, m_Font.lfFaceName);
    // An unknown family leaves all zero but the name: the platform's substitute then draws.
    const LOGFONTA asked = m_Font;
    CKVFont().GetFontLogfont(m_Window, asked.lfFaceName, &m_Font);
    SetCommonFont(m_Font);
}

void HorizontalLine::WidenFont() {
    double width = static_cast<double>(m_Metric.tmAveCharWidth) * WidthPercent();
    if (m_Info.AspectMode == 0) {
        width *= 1.125;
    }
    m_Font.lfWidth = TruncateToInt32((width + 50.0) / 100.0);
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
    const LONG s = Scale();
    std::int64_t y = std::int64_t{start.y} - m_Metric.tmHeight / s;
    if (m_Font.lfCharSet != SHIFTJIS_CHARSET) {
        y += m_Metric.tmDescent / s - TruncateToInt32(m_Metric.tmHeight * 0.05 / s);
    }
    const std::int64_t x = std::int64_t{start.x} + AlignShift(m_Info.Eria_Width);
    return {SaturateToInt32(x), SaturateToInt32(y)};
}

// The row is the anchor's, also when the line itself started elsewhere.
CPoint HorizontalLine::Continuation(CPoint placed) const {
    return {SaturateToInt32(placed.x + m_Length / Scale()), m_Info.Pos_Y};
}

void HorizontalLine::DrawLine() {
    m_Dc.TextOutA(0, 0, m_Text.c_str(), SaturateToInt32(static_cast<std::int64_t>(m_Text.size())));
}

}  // namespace kv::text
