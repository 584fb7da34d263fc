#include "text/vertical_line.h"

#include <string>

#include <CKVFont.h>

#include "base/narrow.h"
#include "platform/font/font_name.h"

namespace kv::text {
namespace {

constexpr LONG kDownward = -900;  // tenths of a degree

}  // namespace

void VerticalLine::DescribeFont() {
    LookUpFace(m_Font);
    if (m_Font.lfCharSet == SHIFTJIS_CHARSET) {
        // A name too long for its vertical form, or a family without one, is drawn plain.
        const std::string name = std::string("@") + m_Font.lfFaceName;
        if (name.size() <= gdi::kFaceNameBytes) {
            CKVFont().GetFontLogfont(m_Window, name.c_str(), &m_Font);
        }
    }
    SetFontSize();
    m_Font.lfEscapement = kDownward;
}

// The axes change their roles: the font's height is the line's thickness, where a width percent
// acts, and the first font's width becomes the size along the line.
void VerticalLine::WidenFont() {
    const double height = static_cast<double>(Scale()) * m_Info.Size_Height;
    m_Font.lfHeight = PercentOf(height, WidthPercent(), kWidened);
    m_Font.lfWidth = m_Metric.tmAveCharWidth;
}

tagSIZE VerticalLine::MaskSize() const {
    const LONG s = Scale();
    const std::int64_t width = (std::int64_t{m_Thickness} + 15) / 16 * 16;
    const std::int64_t height = (m_Length + ItalicOverhang() + s - 1) / s * s;
    return {SaturateToInt32(width), SaturateToInt32(height)};
}

CPoint VerticalLine::StartPoint() const {
    return {m_Info.Pos_X, m_Info.Pos_Y};
}

CPoint VerticalLine::Place(CPoint start) const {
    return {SaturateToInt32(std::int64_t{start.x} - BaselineShift()),
            SaturateToInt32(std::int64_t{start.y} + AlignShift())};
}

CPoint VerticalLine::Continuation(CPoint from) const {
    return {m_Info.Pos_X, SaturateToInt32(from.y + m_Length / Scale())};
}

void VerticalLine::DrawLine() {
    TextOut(m_Thickness, 0, m_Text);
}

}  // namespace kv::text
