// The figures of shapes, filled and stroked.

#include "platform/device/shape_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "raster/path.h"
#include "raster/stroker.h"

namespace kv::device {

namespace {

constexpr double kTurnInRadians = 2.0 * std::numbers::pi;
constexpr double kQuarterTurnInRadians = std::numbers::pi / 2.0;

raster::PathPoint Centre(const tagPOINT& pixel) {
    return {pixel.x + 0.5, pixel.y + 0.5};
}

// A box as its path runs, through the centres of the outermost pixels.
struct PathBox {
    explicit PathBox(const ShapeBox& box)
        : left(std::min(box.left, box.right) + 0.5),
          top(std::min(box.top, box.bottom) + 0.5),
          right(std::max(left, std::max(box.left, box.right) - 0.5)),
          bottom(std::max(top, std::max(box.top, box.bottom) - 0.5)) {}

    raster::PathPoint Middle() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
    raster::PathPoint Radii() const { return {(right - left) / 2.0, (bottom - top) / 2.0}; }

    double left;
    double top;
    double right;
    double bottom;
};

// The parameter of the ellipse point that lies in a direction: it is the direction's angle only on
// a circle.
double EllipseParameter(raster::PathPoint direction, raster::PathPoint radii) {
    return std::atan2(direction.y * radii.x, direction.x * radii.y);
}

raster::Pen Geometric(const CPen& pen) {
    return {static_cast<double>(pen.m_Width),
            (pen.m_Style & PS_ENDCAP_MASK) == PS_ENDCAP_FLAT ? raster::PenCap::kFlat
                                                             : raster::PenCap::kRound,
            (pen.m_Style & PS_JOIN_MASK) == PS_JOIN_MITER ? raster::PenJoin::kMitre
                                                          : raster::PenJoin::kRound};
}

// A line for a filled outline, which has no use for the direction of one without length.
void LineTo(raster::PathBuilder& path, raster::PathPoint to, raster::PathPoint /*direction*/) {
    path.LineTo(to);
}

void LineTo(raster::Stroker& path, raster::PathPoint to, raster::PathPoint direction) {
    path.LineTo(to, direction);
}

}  // namespace

template <typename Figure>
void ShapePainter::Fill(const Figure& figure) {
    if (m_Brush.IsNull()) {
        return;
    }
    raster::Area area{{}, raster::FillRule::kAlternate, m_Brush.m_Colour != 0};
    raster::PathBuilder path(area.contours);
    figure(path);
    m_Sink.Paint(std::move(area));
}

template <typename Figure>
void ShapePainter::Stroke(const CPen& pen, const Figure& figure) {
    if (pen.IsNull()) {
        return;
    }
    raster::Area area{{}, raster::FillRule::kWinding, pen.m_Colour != 0};
    raster::Stroker path(Geometric(pen), area.contours);
    figure(path);
    m_Sink.Paint(std::move(area));
}

template <typename Figure>
void ShapePainter::FillAndStroke(const Figure& figure) {
    Fill(figure);
    Stroke(m_Pen, figure);
}

void ShapePainter::Lines(const tagPOINT* points, int count) {
    Stroke(m_Pen, [&](raster::Stroker& path) {
        path.MoveTo(Centre(points[0]));
        for (int i = 1; i < count; ++i) {
            path.LineTo(Centre(points[i]));
        }
        path.End();
    });
}

void ShapePainter::Rectangle(const ShapeBox& box) {
    const PathBox at(box);
    FillAndStroke([&](auto& path) {
        path.MoveTo({at.left, at.top});
        LineTo(path, {at.right, at.top}, {1.0, 0.0});
        LineTo(path, {at.right, at.bottom}, {0.0, 1.0});
        LineTo(path, {at.left, at.bottom}, {-1.0, 0.0});
        LineTo(path, {at.left, at.top}, {0.0, -1.0});
        path.Close();
    });
}

void ShapePainter::RoundRect(const ShapeBox& box, LONG width, LONG height) {
    const PathBox at(box);
    const raster::PathPoint most = at.Radii();
    const raster::PathPoint radii{std::min(std::abs(width / 2.0), most.x),
                                  std::min(std::abs(height / 2.0), most.y)};
    if (radii.x == 0.0 || radii.y == 0.0) {
        Rectangle(box);
        return;
    }
    const double left = at.left + radii.x;
    const double right = at.right - radii.x;
    const double top = at.top + radii.y;
    const double bottom = at.bottom - radii.y;
    FillAndStroke([&](auto& path) {
        path.MoveTo({at.left, top});
        path.ArcTo({{left, top}, radii, std::numbers::pi, kQuarterTurnInRadians});
        path.ArcTo({{right, top}, radii, -kQuarterTurnInRadians, kQuarterTurnInRadians});
        path.ArcTo({{right, bottom}, radii, 0.0, kQuarterTurnInRadians});
        path.ArcTo({{left, bottom}, radii, kQuarterTurnInRadians, kQuarterTurnInRadians});
        path.Close();
    });
}

void ShapePainter::Ellipse(const ShapeBox& box) {
    const PathBox at(box);
    const auto figure = [&](auto& path) {
        path.MoveTo({at.right, at.Middle().y});
        path.ArcTo({at.Middle(), at.Radii(), 0.0, kTurnInRadians});
        path.Close();
    };
    // It has no corner to mitre, not even where it begins when it is flat.
    CPen pen = m_Pen;
    pen.m_Style &= ~PS_JOIN_MASK;
    Fill(figure);
    Stroke(pen, figure);
}

void ShapePainter::Pie(const ShapeBox& box, tagPOINT start, tagPOINT end) {
    const PathBox at(box);
    const raster::PathPoint middle = at.Middle();
    const raster::PathPoint radii = at.Radii();
    const auto parameter = [&](tagPOINT point) {
        return EllipseParameter({point.x - middle.x, point.y - middle.y}, radii);
    };
    const double from = parameter(start);
    double sweep = parameter(end) - from;
    if (sweep == 0.0) {
        Ellipse(box);
        return;
    }
    sweep += sweep < 0.0 ? kTurnInRadians : 0.0;
    FillAndStroke([&](auto& path) {
        path.MoveTo(middle);
        path.ArcTo({middle, radii, from, sweep});
        path.LineTo(middle);
        path.Close();
    });
}

void ShapePainter::Polygon(const tagPOINT* points, int count) {
    FillAndStroke([&](auto& path) {
        path.MoveTo(Centre(points[0]));
        for (int i = 1; i < count; ++i) {
            path.LineTo(Centre(points[i]));
        }
        path.Close();
    });
}

void ShapePainter::PolyBezier(const tagPOINT* points, int count) {
    Stroke(m_Pen, [&](raster::Stroker& path) {
        path.MoveTo(Centre(points[0]));
        for (int i = 1; i + 2 < count; i += 3) {
            path.CubicTo(Centre(points[i]), Centre(points[i + 1]), Centre(points[i + 2]));
        }
        path.End();
    });
}

}  // namespace kv::device
