// The drawing of a line of text at any angle.

#include "platform/device/text_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "base/narrow.h"
#include "raster/bit_sink.h"
#include "raster/turned_sink.h"

namespace kv::device {

namespace {

// The slant of a sheared face: 12 degrees.
constexpr double kSlant = 0.2126;
// Angles in tenths of a degree.
constexpr int kTurnInTenths = 3600;
constexpr int kRightAngleInTenths = kTurnInTenths / 4;
constexpr int kDownwardsInTenths = kTurnInTenths - kRightAngleInTenths;

// Tenths of a degree counter-clockwise, 0 to 3599.
int Angle(const font::FontInstance& font) {
    const int angle = font.description.lfEscapement % kTurnInTenths;
    return angle < 0 ? angle + kTurnInTenths : angle;
}

// From u and v to the surface; right angles exactly.
raster::Affine Turn(int angle, const TextTarget& target) {
    constexpr double kSines[4] = {0.0, 1.0, 0.0, -1.0};
    const int quarter = angle / kRightAngleInTenths;
    double sine = kSines[quarter];
    double cosine = kSines[(quarter + 1) % 4];
    if (angle % kRightAngleInTenths != 0) {
        const double radians = angle * (2.0 * std::numbers::pi / kTurnInTenths);
        sine = std::sin(radians);
        cosine = std::cos(radians);
    }
    return {cosine, sine,   static_cast<double>(target.x),
            -sine,  cosine, static_cast<double>(target.y)};
}

// From `left` to right - 1.
struct Columns {
    std::int32_t left;
    std::int32_t right;
};

// The columns that contours reach into.
Columns ColumnsOf(const raster::Contours& contours) {
    if (contours.points.empty()) {
        return {0, 0};
    }
    const auto [first, last] = std::minmax_element(
        contours.points.begin(), contours.points.end(),
        [](const raster::FixedPoint& a, const raster::FixedPoint& b) { return a.x < b.x; });
    return {SaturateToInt32(first->x >> raster::kSubpixelBits),
            SaturateToInt32((last->x >> raster::kSubpixelBits) + 1)};
}

bool Fits32(std::int64_t value) {
    return value == static_cast<std::int32_t>(value);
}

}  // namespace

void TextPainter::Draw(const TextLine& line, const TextTarget& target) {
    const int angle = Angle(m_Font);
    const raster::Affine turn = Turn(angle, target);
    FillPaper(line, target, turn);
    std::optional<raster::TurnedSink> downwards;
    if (angle == kDownwardsInTenths) {
        downwards.emplace(target.surface, SaturateToInt32(target.x), target.ink);
    }
    for (const PlacedGlyph& placed : line.glyphs) {
        const font::GlyphOutline& outline = OutlineOf(line, placed);
        if (angle == 0) {
            DrawUpright(placed, outline, target);
        } else if (downwards) {
            DrawDownwards(placed, outline, target, *downwards);
        } else {
            DrawTurned(placed, outline, target, turn);
        }
    }
}

void TextPainter::FillPaper(const TextLine& line, const TextTarget& target,
                            const raster::Affine& turn) {
    if (line.length <= 0) {
        return;
    }
    const std::int64_t height = m_Font.metrics.tmHeight;
    const int angle = Angle(m_Font);
    if (angle == 0) {
        target.surface.FillRect(target.x, target.y, target.x + line.length, target.y + height,
                                target.paper);
        return;
    }
    if (angle == kDownwardsInTenths) {
        target.surface.FillRect(target.x - height, target.y, target.x, target.y + line.length,
                                target.paper);
        return;
    }
    const raster::PathPoint end{static_cast<double>(line.length), static_cast<double>(height)};
    m_Contours.Clear();
    raster::PathBuilder path(m_Contours);
    path.MoveTo(turn({0.0, 0.0}));
    path.LineTo(turn({end.x, 0.0}));
    path.LineTo(turn(end));
    path.LineTo(turn({0.0, end.y}));
    path.Close();
    raster::BitSink sink(target.surface, 0, 0, target.paper);
    m_Converter.Convert(m_Contours, raster::FillRule::kWinding, sink.Bounds(), sink);
}

const font::GlyphOutline& TextPainter::OutlineOf(const TextLine& line,
                                                 const PlacedGlyph& placed) const {
    if (placed.face == TextLine::kMissing) {
        return font::MissingGlyph(placed.doubleByte);
    }
    return line.faces[placed.face]->Outline(placed.glyph, m_Font.faces[placed.face].embolden);
}

// From font units to u and v, counted from the glyph's start.
raster::Affine TextPainter::GlyphToCell(const PlacedGlyph& placed,
                                        const font::GlyphOutline& outline) const {
    const double scale = m_Font.emPixels / outline.unitsPerEm;
    const double along = scale * m_Font.stretch;  // narrower or wider with the font
    const bool shear = placed.face != TextLine::kMissing && m_Font.faces[placed.face].shear;
    const double slant = shear ? kSlant : 0.0;
    if (!m_Font.vertical || !placed.doubleByte) {
        const double ascent = m_Font.metrics.tmAscent;
        return {along, slant * along, 0.0, 0.0, -scale, ascent};
    }
    // Turned counter-clockwise: the em's upper edge to the glyph's start, its middle to the cell's.
    // It leans before that turn, about the em's middle, which so stays in the middle of the line.
    const double lean = slant * (outline.verticalTop - outline.unitsPerEm / 2.0);
    const double middle = m_Font.metrics.tmHeight / 2.0;
    return {0.0,    -along,         outline.verticalTop * along,
            -scale, -slant * scale, middle + (outline.advance / 2.0 + lean) * scale};
}

void TextPainter::DrawUpright(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                              const TextTarget& target) {
    const std::int64_t x = target.x + placed.start;
    if (!Fits32(x) || !Fits32(target.y)) {
        return;
    }
    m_Contours.Clear();
    raster::PathBuilder path(m_Contours);
    outline.Trace(path, GlyphToCell(placed, outline));
    raster::BitSink sink(target.surface, static_cast<std::int32_t>(x),
                         static_cast<std::int32_t>(target.y), target.ink);
    m_Converter.Convert(m_Contours, raster::FillRule::kWinding, sink.Bounds(), sink);
}

void TextPainter::DrawDownwards(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                                const TextTarget& target, raster::TurnedSink& sink) {
    const std::int64_t y = target.y + placed.start;
    if (!Fits32(y)) {
        return;
    }
    m_Contours.Clear();
    raster::PathBuilder path(m_Contours);
    outline.Trace(path, GlyphToCell(placed, outline));
    const auto [left, right] = ColumnsOf(m_Contours);
    sink.Begin(static_cast<std::int32_t>(y), left, right);
    m_Converter.Convert(m_Contours, raster::FillRule::kWinding, sink.Bounds(), sink);
    sink.End();
}

void TextPainter::DrawTurned(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                             const TextTarget& target, const raster::Affine& turn) {
    const raster::Affine along{1.0, 0.0, static_cast<double>(placed.start), 0.0, 1.0, 0.0};
    m_Contours.Clear();
    raster::PathBuilder path(m_Contours);
    outline.Trace(path, turn.After(along).After(GlyphToCell(placed, outline)));
    raster::BitSink sink(target.surface, 0, 0, target.ink);
    m_Converter.Convert(m_Contours, raster::FillRule::kWinding, sink.Bounds(), sink);
}

}  // namespace kv::device
