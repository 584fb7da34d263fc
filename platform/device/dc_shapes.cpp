// The shape calls of a device context. Without a bitmap, and for lack of memory, they draw nothing.

#include <new>
#include <utility>

#include <platform/dc.h>

#include "platform/device/picture.h"
#include "platform/device/shape_painter.h"

using kv::device::ShapePainter;

namespace {

template <typename Draw>
bool Paint(const CBitmap& bitmap, const CPen& pen, const CBrush& brush, const Draw& draw) {
    kv::raster::AreaSink* const sink = bitmap.IsNull() ? nullptr : bitmap.m_Picture->ForShapes();
    if (sink == nullptr) {
        return false;
    }
    try {
        ShapePainter painter(*sink, pen, brush);
        draw(painter);
    } catch (const std::bad_alloc&) {
        return false;
    }
    return true;
}

}  // namespace

CPen CDC::SelectObject(const CPen& pen) {
    return std::exchange(m_Pen, pen);
}

CBrush CDC::SelectObject(const CBrush& brush) {
    return std::exchange(m_Brush, brush);
}

int CDC::SetArcDirection(int direction) {
    if (direction != AD_COUNTERCLOCKWISE && direction != AD_CLOCKWISE) {
        return 0;
    }
    return std::exchange(m_ArcDirection, direction);
}

void CDC::MoveTo(LONG x, LONG y) {
    m_Figure[0] = {x, y};
    m_FigurePoints = 1;
}

// A line drawn with the one before it is joined to it; what both have in common is drawn twice.
// A point that repeats the last one adds nothing, and would part the lines that meet there.
bool CDC::LineTo(LONG x, LONG y) {
    const tagPOINT& last = m_Figure[m_FigurePoints - 1];
    if (m_FigurePoints > 1 && last.x == x && last.y == y) {
        return !m_Bitmap.IsNull();
    }
    if (m_FigurePoints == 3) {
        m_Figure[0] = m_Figure[1];
        m_Figure[1] = m_Figure[2];
        m_FigurePoints = 2;
    }
    m_Figure[m_FigurePoints++] = {x, y};
    return Paint(m_Bitmap, m_Pen, m_Brush,
                 [&](ShapePainter& painter) { painter.Lines(m_Figure, m_FigurePoints); });
}

bool CDC::Rectangle(LONG left, LONG top, LONG right, LONG bottom) {
    return Paint(m_Bitmap, m_Pen, m_Brush, [&](ShapePainter& painter) {
        painter.Rectangle({left, top, right, bottom});
    });
}

bool CDC::RoundRect(LONG left, LONG top, LONG right, LONG bottom, LONG width, LONG height) {
    return Paint(m_Bitmap, m_Pen, m_Brush, [&](ShapePainter& painter) {
        painter.RoundRect({left, top, right, bottom}, width, height);
    });
}

bool CDC::Ellipse(LONG left, LONG top, LONG right, LONG bottom) {
    return Paint(m_Bitmap, m_Pen, m_Brush, [&](ShapePainter& painter) {
        painter.Ellipse({left, top, right, bottom});
    });
}

bool CDC::Pie(LONG left, LONG top, LONG right, LONG bottom, LONG startX, LONG startY, LONG endX,
              LONG endY) {
    tagPOINT from{startX, startY};
    tagPOINT to{endX, endY};
    if (m_ArcDirection != AD_CLOCKWISE) {
        std::swap(from, to);
    }
    return Paint(m_Bitmap, m_Pen, m_Brush, [&](ShapePainter& painter) {
        painter.Pie({left, top, right, bottom}, from, to);
    });
}

bool CDC::Polygon(const tagPOINT* points, int count) {
    if (points == nullptr || count < 2) {
        return false;
    }
    return Paint(m_Bitmap, m_Pen, m_Brush,
                 [&](ShapePainter& painter) { painter.Polygon(points, count); });
}

bool CDC::PolyBezier(const tagPOINT* points, int count) {
    if (points == nullptr || count < 4 || count % 3 != 1) {
        return false;
    }
    return Paint(m_Bitmap, m_Pen, m_Brush,
                 [&](ShapePainter& painter) { painter.PolyBezier(points, count); });
}
