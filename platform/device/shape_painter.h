#pragma once

#include <platform/geometry.h>
#include <platform/pen.h>

#include "raster/area.h"

namespace kv::device {

/// A box by its corners in any order, of which right and bottom are exclusive.
struct ShapeBox {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

/// Draws shapes as areas: the brush's first, the pen's over it. Coordinates name pixels: a path
/// runs through their centres. What memory cannot hold throws std::bad_alloc.
class ShapePainter {
  public:
    ShapePainter(raster::AreaSink& sink, const CPen& pen, const CBrush& brush)
        : m_Sink(sink), m_Pen(pen), m_Brush(brush) {}

    /// The lines of one figure; its segments are joined, its ends are the pen's.
    void Lines(const tagPOINT* points, int count);
    void Rectangle(const ShapeBox& box);
    /// The corner ellipse's full width and height, cut to the box.
    void RoundRect(const ShapeBox& box, LONG width, LONG height);
    void Ellipse(const ShapeBox& box);
    /// The wedge from one direction to the other, clockwise as seen. The points tell directions
    /// from the box's middle. Equal directions give the whole ellipse.
    void Pie(const ShapeBox& box, tagPOINT start, tagPOINT end);
    /// Closes itself, filled by the alternate rule.
    void Polygon(const tagPOINT* points, int count);
    /// Stroked only. The count must be 3k + 1, k at least 1.
    void PolyBezier(const tagPOINT* points, int count);

  private:
    template <typename Figure>
    void Fill(const Figure& figure);
    template <typename Figure>
    void Stroke(const CPen& pen, const Figure& figure);
    template <typename Figure>
    void FillAndStroke(const Figure& figure);

    raster::AreaSink& m_Sink;
    const CPen& m_Pen;
    const CBrush& m_Brush;
};

}  // namespace kv::device
