// What the forms of a line have in common: the face, the size asked of it, the shifts.

#include "text/line_form.h"

#include <cstring>

#include "base/narrow.h"
#include "platform/font/font_enum.h"
#include "platform/font/font_family.h"
#include "platform/font/font_name.h"

namespace kv::text {

LONG PercentOf(double length, double percent, double factor) {
    return TruncateToInt32((length * percent * factor + 50.0) / 100.0);
}

LOGFONTA LineForm::LookUpFace() const {
    LOGFONTA asked{};
    // The record's field may lack its terminator and hold more than a logical font does.
    const std::size_t length = strnlen(m_Info.FontName, sizeof m_Info.FontName);
    font::StoreName({m_Info.FontName, length}, asked.lfFaceName);
    // An unknown family leaves all zero but the name: the platform's substitute then draws.
    return font::FirstOf(asked.lfFaceName).value_or(asked);
}

void LineForm::SetFontSize(LOGFONTA& description) const {
    description.lfHeight = SaturateToInt32(std::int64_t{m_Info.Size_Height} * Scale());
    description.lfWidth = 0;
    description.lfOrientation = 0;
    description.lfWeight = m_Info.Weight != 0 ? font::kBoldWeight : font::kNormalWeight;
    description.lfItalic = static_cast<BYTE>(m_Info.Italic);
}

LONG LineForm::AlignShift(const MeasuredLine& line) const {
    const std::int64_t area = AreaLength();
    const std::int64_t length = line.length / Scale();
    switch (m_Info.Format) {
        case 1:
            return SaturateToInt32(area - length);
        case 2:
            return SaturateToInt32(area / 2 - length / 2);
        default:
            return 0;
    }
}

LONG LineForm::BaselineShift(const LineFont& font) const {
    if (font.description.lfCharSet == SHIFTJIS_CHARSET) {
        return 0;
    }
    return font.metric.tmDescent / Scale() - TruncateToInt32(font.metric.tmHeight * 0.05 / Scale());
}

LONG LineForm::ItalicOverhang(const LineFont& font) const {
    return m_Info.Italic != 0 ? font.metric.tmAveCharWidth / 2 : 0;
}

}  // namespace kv::text
