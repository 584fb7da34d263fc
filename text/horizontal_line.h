#pragma once

#include "text/line_form.h"

namespace kv::text {

/// A line from left to right: the anchor is the lower edge of its cell.
class HorizontalLine : public LineForm {
  public:
    using LineForm::LineForm;

    LOGFONTA DescribeFont() const override;
    void WidenFont(const TEXTMETRICA& first, LOGFONTA& description) const override;
    LONG AreaLength() const override { return Info().Eria_Width; }
    tagSIZE MaskSize(const MeasuredLine& line) const override;
    CPoint Place(const MeasuredLine& line) const override;
    CPoint Continuation(const MeasuredLine& line, CPoint from) const override;
    void Draw(const MeasuredLine& line, LineContext& context) const override;
};

}  // namespace kv::text
