#pragma once

#include "text/line_layout.h"

namespace kv::text {

/// A line from the top downward: the whole line turned clockwise, in the vertical form of its face
/// where it has one. The anchor is the line's upper left corner on the page.
class VerticalLine : public LineLayout {
  public:
    using LineLayout::LineLayout;

  protected:
    void DescribeFont() override;
    void WidenFont() override;
    LONG AreaLength() const override { return m_Info.Eria_Height; }
    tagSIZE MaskSize() const override;
    CPoint StartPoint() const override;
    CPoint Place(CPoint start) const override;
    CPoint Continuation(CPoint from) const override;
    void DrawLine() override;
};

}  // namespace kv::text
