#pragma once

#include "text/line_form.h"

namespace kv::text {

/// A line from the top downward: the whole line turned clockwise, in the vertical form of its face
/// where it has one. The anchor is the line's upper left corner on the page.
class VerticalLine : public LineForm {
  public:
    using LineForm::LineForm;

    LOGFONTA DescribeFont() const override;
    void WidenFont(const TEXTMETRICA& first, LOGFONTA& description) const override;
    LONG AreaLength() const override { return Info().Eria_Height; }
    tagSIZE MaskSize(const MeasuredLine& line) const override;
    CPoint Place(const MeasuredLine& line) const override;
    CPoint Continuation(const MeasuredLine& line, CPoint from) const override;
    void Draw(const MeasuredLine& line, LineContext& context) const override;
};

}  // namespace kv::text
