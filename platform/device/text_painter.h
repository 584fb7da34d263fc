#pragma once

#include <cstdint>

#include "platform/device/text_line.h"
#include "raster/affine.h"
#include "raster/bit_surface.h"
#include "raster/scan_converter.h"

namespace kv::gdi {

class TurnedSink;

/// Where a line goes and in what: pixels of the surface, the start of the cell's upper edge.
struct TextTarget {
    BitSurface& surface;
    std::int64_t x;
    std::int64_t y;
    bool ink;    ///< what glyphs write
    bool paper;  ///< what the box of the line is filled with first
};

/// Draws lines in one font. Lengths along a line and down from its cell's upper edge are called u
/// and v; the font's escapement turns them about the start of that edge.
class TextPainter {
  public:
    explicit TextPainter(const FontInstance& font) : m_Font(font) {}

    /// Fills the line's box, then draws all glyphs.
    void Draw(const TextLine& line, const TextTarget& target);

  private:
    const GlyphOutline& OutlineOf(const TextLine& line, const PlacedGlyph& placed) const;
    Affine GlyphToCell(const PlacedGlyph& placed, const GlyphOutline& outline) const;

    void FillPaper(const TextLine& line, const TextTarget& target, const Affine& turn);
    void DrawUpright(const PlacedGlyph& placed, const GlyphOutline& outline,
                     const TextTarget& target);
    void DrawDownwards(const PlacedGlyph& placed, const GlyphOutline& outline,
                       const TextTarget& target, TurnedSink& sink);
    void DrawTurned(const PlacedGlyph& placed, const GlyphOutline& outline,
                    const TextTarget& target, const Affine& turn);

    const FontInstance& m_Font;
    ScanConverter m_Converter;
    Contours m_Contours;
};

}  // namespace kv::gdi
