#pragma once

#include "text/line_layout.h"

namespace kv::text {

/// A line from left to right: the anchor is the lower edge of its cell.
class HorizontalLine : public LineLayout {
  public:
    using LineLayout::LineLayout;

  protected:
    void DescribeFont() override;
    void WidenFont() override;
    tagSIZE MaskSize() const override;
    CPoint StartPoint() const override;
    CPoint Place(CPoint start) const override;
    CPoint Continuation(CPoint placed) const override;
    void DrawLine() override;
};

}  // namespace kv::text
