// Outlines read from a font file, and the box for a missing one.

#include "platform/font/glyph_outline.h"

#include <new>

#include FT_OUTLINE_H
#include FT_TRUETYPE_TABLES_H

namespace kv::font {

namespace {

// Emboldening rounds to whole units, so it works on finer ones.
constexpr FT_Pos kFineUnits = 64;
// What a bold stroke gains, in shares of the em. Upright strokes gain more, as in bold designs.
constexpr double kBoldAcross = 1.0 / 26.0;
constexpr double kBoldAlong = 1.0 / 52.0;

// Collects FreeType's walk along an outline.
class OutlineReader {
  public:
    OutlineReader(GlyphOutline& outline, FT_Pos scale)
        : m_Outline(outline), m_Unit(1.0 / static_cast<double>(scale)) {}

    bool Read(FT_Outline& source) {
        const FT_Outline_Funcs functions{
            [](const FT_Vector* to, void* self) {
                return Of(self).Add(GlyphOutline::Verb::kMove, {to});
            },
            [](const FT_Vector* to, void* self) {
                return Of(self).Add(GlyphOutline::Verb::kLine, {to});
            },
            [](const FT_Vector* control, const FT_Vector* to, void* self) {
                return Of(self).Add(GlyphOutline::Verb::kQuad, {control, to});
            },
            [](const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to,
               void* self) {
                return Of(self).Add(GlyphOutline::Verb::kCubic, {control1, control2, to});
            },
            0,
            0};
        const FT_Error error = FT_Outline_Decompose(&source, &functions, this);
        if (error == FT_Err_Out_Of_Memory) {
            throw std::bad_alloc();
        }
        return error == 0;
    }

  private:
    static OutlineReader& Of(void* self) { return *static_cast<OutlineReader*>(self); }

    // No exception may pass through FreeType's C functions: an error code ends the walk.
    int Add(GlyphOutline::Verb verb, std::initializer_list<const FT_Vector*> list) noexcept {
        try {
            m_Outline.verbs.push_back(verb);
            for (const FT_Vector* point : list) {
                m_Outline.points.push_back({static_cast<double>(point->x) * m_Unit,
                                            static_cast<double>(point->y) * m_Unit});
            }
        } catch (const std::bad_alloc&) {
            return FT_Err_Out_Of_Memory;
        }
        return 0;
    }

    GlyphOutline& m_Outline;
    double m_Unit;
};

// The em's upper edge: one for all glyphs, since each advances by a whole em. A font made for
// vertical lines states it as the upper of two heights that make up the em; in others the em
// stands in the middle of the line height.
double VerticalTop(FT_Face face) {
    const auto* const os2 = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
    if (os2 != nullptr && os2->sTypoAscender - os2->sTypoDescender == face->units_per_EM) {
        return os2->sTypoAscender;
    }
    return (face->ascender + face->descender + face->units_per_EM) / 2.0;
}

void Embolden(FT_Outline& outline, int unitsPerEm) {
    for (FT_Vector* point = outline.points; point != outline.points + outline.n_points; ++point) {
        point->x *= kFineUnits;
        point->y *= kFineUnits;
    }
    const double em = static_cast<double>(unitsPerEm) * static_cast<double>(kFineUnits);
    const auto across = static_cast<FT_Pos>(em * kBoldAcross);
    const auto along = static_cast<FT_Pos>(em * kBoldAlong);
    // The call grows the outline to the right and upwards only.
    FT_Outline_EmboldenXY(&outline, across, along);
    FT_Outline_Translate(&outline, -across / 2, -along / 2);
}

void AddBox(GlyphOutline& outline, double left, double bottom, double right, double top) {
    outline.MoveTo({left, bottom});
    outline.LineTo({left, top});
    outline.LineTo({right, top});
    outline.LineTo({right, bottom});
}

GlyphOutline MakeMissingGlyph(double width) {
    constexpr double kMargin = 0.06;
    constexpr double kStroke = 0.04;
    constexpr double kHeight = 0.75;
    GlyphOutline box;
    box.advance = width;
    box.verticalTop = (kHeight + 1.0) / 2.0;
    AddBox(box, kMargin, 0.0, width - kMargin, kHeight);
    // The other way round: a hole by the winding rule.
    AddBox(box, width - kMargin - kStroke, kStroke, kMargin + kStroke, kHeight - kStroke);
    return box;
}

}  // namespace

GlyphOutline ReadGlyph(FT_Face face, std::uint32_t glyph, bool embolden) {
    GlyphOutline result;
    result.unitsPerEm = face->units_per_EM;
    if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE) != 0 ||
        face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) {
        return result;
    }
    FT_Outline& outline = face->glyph->outline;
    result.advance = static_cast<double>(face->glyph->metrics.horiAdvance);
    result.verticalTop = VerticalTop(face);
    if (embolden) {
        Embolden(outline, face->units_per_EM);
    }
    if (!OutlineReader(result, embolden ? kFineUnits : 1).Read(outline)) {
        result.verbs.clear();
        result.points.clear();
    }
    return result;
}

const GlyphOutline& MissingGlyph(bool wide) {
    static const GlyphOutline half = MakeMissingGlyph(0.5);
    static const GlyphOutline full = MakeMissingGlyph(1.0);
    return wide ? full : half;
}

}  // namespace kv::font
