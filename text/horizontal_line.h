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
    LONG AreaLength() const override { return m_Info.Eria_Width; }
    tagSIZE MaskSize() const override;
    CPoint StartPoint() const override;
    CPoint Place(CPoint start) const override;
    CPoint Continuation(CPoint from) const override;
    void DrawLine() override;
};

}  // namespace kv::text
