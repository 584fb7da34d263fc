#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

#include "platform/font/free_type.h"
#include "raster/path.h"

namespace kv::font {

/// A glyph as it was designed: font units, x from its origin along the baseline, y upwards.
struct GlyphOutline {
    /// What a segment adds: kQuad takes two points, kCubic three, the others one.
    enum class Verb : std::uint8_t { kMove, kLine, kQuad, kCubic };

    std::vector<Verb> verbs;
    std::vector<raster::PathPoint> points;
    double unitsPerEm = 1.0;
    double advance = 0.0;
    double verticalTop =
        0.0;  ///< y of the em's upper edge when the glyph stands in a vertical line

    void MoveTo(raster::PathPoint to) { Add(Verb::kMove, {to}); }
    void LineTo(raster::PathPoint to) { Add(Verb::kLine, {to}); }

    /// Hands the outline to a path, each point moved by the function first.
    template <typename Move>
    void Trace(raster::PathBuilder& path, Move&& move) const;

  private:
    void Add(Verb verb, std::initializer_list<raster::PathPoint> list) {
        verbs.push_back(verb);
        points.insert(points.end(), list);
    }
};

template <typename Move>
void GlyphOutline::Trace(raster::PathBuilder& path, Move&& move) const {
    const raster::PathPoint* at = points.data();
    for (const Verb verb : verbs) {
        switch (verb) {
            case Verb::kMove:
                path.MoveTo(move(at[0]));
                at += 1;
                break;
            case Verb::kLine:
                path.LineTo(move(at[0]));
                at += 1;
                break;
            case Verb::kQuad:
                path.QuadTo(move(at[0]), move(at[1]));
                at += 2;
                break;
            case Verb::kCubic:
                path.CubicTo(move(at[0]), move(at[1]), move(at[2]));
                at += 3;
                break;
        }
    }
    path.Close();
}

/// Reads a glyph, without hints. Emboldened strokes grow by a fixed share of the em on both sides
/// alike; the advance stays. Empty for a glyph that does not load.
GlyphOutline ReadGlyph(FT_Face face, std::uint32_t glyph, bool embolden);

/// The box that stands for a character no face has: half an em wide, or a whole one.
const GlyphOutline& MissingGlyph(bool wide);

}  // namespace kv::font
