#include "platform/gdi/text_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "platform/gdi/bit_sink.h"
#include "platform/gdi/turn.h"

namespace kv::gdi {

namespace {

// The slant of a sheared face: 12 degrees.
constexpr double kSlant = 0.2126;
constexpr int kFullTurn = 3600;
constexpr int kRightAngle = 900;
constexpr int kDownwards = kFullTurn - kRightAngle;

/// Tenths of a degree counter-clockwise, 0 to 3599.
int Angle(const FontInstance& font) {
    const int angle = font.description.lfEscapement % kFullTurn;
    return angle < 0 ? angle + kFullTurn : angle;
}

/// From u and v to the surface; right angles exactly.
Affine Turn(int angle, const TextTarget& target) {
    constexpr double kSines[4] = {0.0, 1.0, 0.0, -1.0};
    const int quarter = angle / kRightAngle;
    double sine = kSines[quarter];
    double cosine = kSines[(quarter + 1) % 4];
    if (angle % kRightAngle != 0) {
        const double radians = angle * (2.0 * std::numbers::pi / kFullTurn);
        sine = std::sin(radians);
        cosine = std::cos(radians);
    }
    return {cosine, sine,   static_cast<double>(target.x),
            -sine,  cosine, static_cast<double>(target.y)};
}

bool Fits32(std::int64_t value) {
    return value == static_cast<std::int32_t>(value);
}

}  // namespace

bool TextPainter::Draw(const TextLine& line, const TextTarget& target) {
    const int angle = Angle(m_Font);
    const Affine turn = Turn(angle, target);
    FillPaper(line, target, turn);
    bool done = true;
    for (const PlacedGlyph& placed : line.glyphs) {
        const GlyphOutline& outline = OutlineOf(line, placed);
        if (angle == 0) {
            DrawUpright(placed, outline, target);
        } else if (angle == kDownwards && target.ink) {
            done = DrawDownwards(placed, outline, target) && done;
        } else {
            DrawTurned(placed, outline, target, turn);
        }
    }
    return done;
}

void TextPainter::FillPaper(const TextLine& line, const TextTarget& target, const Affine& turn) {
    if (line.length <= 0) {
        return;
    }
    const auto length = static_cast<double>(line.length);
    const double height = m_Font.metrics.tmHeight;
    m_Contours.Clear();
    PathBuilder path(m_Contours);
    path.MoveTo(turn({0.0, 0.0}));
    path.LineTo(turn({length, 0.0}));
    path.LineTo(turn({length, height}));
    path.LineTo(turn({0.0, height}));
    path.Close();
    BitSink sink(target.surface, 0, 0, target.paper);
    m_Converter.Convert(m_Contours, FillRule::kWinding, sink.Bounds(), sink);
}

const GlyphOutline& TextPainter::OutlineOf(const TextLine& line, const PlacedGlyph& placed) const {
    if (placed.face == TextLine::kMissing) {
        return MissingGlyph(placed.doubleByte);
    }
    return line.faces[placed.face]->Outline(placed.glyph, m_Font.faces[placed.face].embolden);
}

/// From font units to u and v, counted from the glyph's start.
Affine TextPainter::GlyphToCell(const PlacedGlyph& placed, const GlyphOutline& outline) const {
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

/// Holds all ink of a glyph of the line as drawn upright.
TextPainter::Box TextPainter::InkBox(const PlacedGlyph& placed, const GlyphOutline& outline) const {
    constexpr std::int64_t kNone = std::numeric_limits<std::int64_t>::max();
    Box box{kNone, kNone, -kNone, -kNone};
    const Affine map = GlyphToCell(placed, outline);
    for (const PathPoint& point : outline.points) {
        const PathPoint at = map(point);
        const auto u = static_cast<std::int64_t>(std::floor(at.x)) + placed.start;
        const auto v = static_cast<std::int64_t>(std::floor(at.y));
        box = {std::min(box.left, u), std::min(box.top, v), std::max(box.right, u + 1),
               std::max(box.bottom, v + 1)};
    }
    return box;
}

void TextPainter::DrawUpright(const PlacedGlyph& placed, const GlyphOutline& outline,
                              const TextTarget& target) {
    const std::int64_t x = target.x + placed.start;
    if (!Fits32(x) || !Fits32(target.y)) {
        return;
    }
    m_Contours.Clear();
    PathBuilder path(m_Contours);
    outline.Trace(path, GlyphToCell(placed, outline));
    BitSink sink(target.surface, static_cast<std::int32_t>(x), static_cast<std::int32_t>(target.y),
                 target.ink);
    m_Converter.Convert(m_Contours, FillRule::kWinding, sink.Bounds(), sink);
}

/// Draws the visible part upright on a surface of its own and turns that one: the same pixels as
/// upright, which turned contours would not give where a centre lies on an outline. Turning can
/// only set pixels.
bool TextPainter::DrawDownwards(const PlacedGlyph& placed, const GlyphOutline& outline,
                                const TextTarget& target) {
    const Box ink = InkBox(placed, outline);
    // Pixel (u, v) goes to (x - 1 - v, y + u).
    const std::int64_t left = std::max(ink.left, -target.y);
    const std::int64_t right = std::min(ink.right, target.surface.Height() - target.y);
    const std::int64_t top = std::max(ink.top, target.x - target.surface.Width());
    const std::int64_t bottom = std::min(ink.bottom, target.x);
    if (left >= right || top >= bottom) {
        return true;
    }
    const std::shared_ptr<BitSurface> upright = BitSurface::Create(
        static_cast<std::int32_t>(right - left), static_cast<std::int32_t>(bottom - top));
    if (!upright) {
        return false;
    }
    DrawUpright(placed, outline, {*upright, -left, -top, true, false});
    OrTurned(*upright, target.x - top, target.y + left, target.surface);
    return true;
}

void TextPainter::DrawTurned(const PlacedGlyph& placed, const GlyphOutline& outline,
                             const TextTarget& target, const Affine& turn) {
    const Affine along{1.0, 0.0, static_cast<double>(placed.start), 0.0, 1.0, 0.0};
    m_Contours.Clear();
    PathBuilder path(m_Contours);
    outline.Trace(path, turn.After(along).After(GlyphToCell(placed, outline)));
    BitSink sink(target.surface, 0, 0, target.ink);
    m_Converter.Convert(m_Contours, FillRule::kWinding, sink.Bounds(), sink);
}

}  // namespace kv::gdi
