// The steps of a horizontal line.

#include "text/horizontal_line.h"

#include "base/narrow.h"

namespace kv::text {

LOGFONTA HorizontalLine::DescribeFont() const {
    LOGFONTA description = LookUpFace();
    SetFontSize(description);
    return description;
}

void HorizontalLine::WidenFont(const TEXTMETRICA& first, LOGFONTA& description) const {
    description.lfWidth = PercentOf(first.tmAveCharWidth, WidthPercent(), AspectFactor());
}

tagSIZE HorizontalLine::MaskSize(const MeasuredLine& line) const {
    const LONG s = Scale();
    const std::int64_t width = (line.length + ItalicOverhang(line.font) + 15) / 16 * 16;
    const std::int64_t height = (std::int64_t{line.thickness} + s - 1) / s * s;
    return {SaturateToInt32(width), SaturateToInt32(height)};
}

CPoint HorizontalLine::Place(const MeasuredLine& line) const {
    const CPoint start = Info().AddressMode == 0
                             ? CPoint(Info().Pos_X, Info().Pos_Y)
                             : CPoint(Info().NextAddress_X, Info().NextAddress_Y);
    const std::int64_t top = std::int64_t{start.y} - line.font.metric.tmHeight / Scale();
    return {SaturateToInt32(std::int64_t{start.x} + AlignShift(line)),
            SaturateToInt32(top + BaselineShift(line.font))};
}

// The row is the anchor's, also when the line itself started elsewhere.
CPoint HorizontalLine::Continuation(const MeasuredLine& line, CPoint from) const {
    return {SaturateToInt32(from.x + line.length / Scale()), Info().Pos_Y};
}

void HorizontalLine::Draw(const MeasuredLine& line, LineContext& context) const {
    context.Select(line.font.font, line.extra);
    context.TextOut(0, 0, line.text.runs.front());
}

}  // namespace kv::text
