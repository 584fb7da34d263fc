// The steps of a vertical line.

#include "text/vertical_line.h"

#include "base/narrow.h"
#include "platform/font/font_enum.h"
#include "platform/font/font_name.h"

namespace kv::text {
namespace {

constexpr LONG kDownward = -900;  // tenths of a degree

}  // namespace

LOGFONTA VerticalLine::DescribeFont() const {
    LOGFONTA description = LookUpFace();
    if (description.lfCharSet == SHIFTJIS_CHARSET) {
        // A name too long for its vertical form, or a family without one, is drawn plain.
        const std::string name = std::string("@") + description.lfFaceName;
        if (name.size() <= font::kFaceNameBytes) {
            description = font::FirstOf(name).value_or(description);
        }
    }
    SetFontSize(description);
    description.lfEscapement = kDownward;
    return description;
}

// The axes change their roles: the font's height is the line's thickness, where a width percent
// acts, and the first font's width becomes the size along the line.
void VerticalLine::WidenFont(const TEXTMETRICA& first, LOGFONTA& description) const {
    const double height = static_cast<double>(Scale()) * Info().Size_Height;
    description.lfHeight = PercentOf(height, WidthPercent(), kWidened);
    description.lfWidth = first.tmAveCharWidth;
}

tagSIZE VerticalLine::MaskSize(const MeasuredLine& line) const {
    const LONG s = Scale();
    const std::int64_t width = (std::int64_t{line.thickness} + 15) / 16 * 16;
    const std::int64_t height = (line.length + ItalicOverhang(line.font) + s - 1) / s * s;
    return {SaturateToInt32(width), SaturateToInt32(height)};
}

CPoint VerticalLine::Place(const MeasuredLine& line) const {
    return {SaturateToInt32(std::int64_t{Info().Pos_X} - BaselineShift(line.font)),
            SaturateToInt32(std::int64_t{Info().Pos_Y} + AlignShift(line))};
}

CPoint VerticalLine::Continuation(const MeasuredLine& line, CPoint from) const {
    return {Info().Pos_X, SaturateToInt32(from.y + line.length / Scale())};
}

void VerticalLine::Draw(const MeasuredLine& line, LineContext& context) const {
    context.Select(line.font.font, line.extra);
    context.TextOut(line.thickness, 0, line.text.runs.front());
}

}  // namespace kv::text
