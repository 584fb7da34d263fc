#pragma once

#include <cstdint>

#include "platform/device/text_line.h"
#include "raster/affine.h"
#include "raster/bit_surface.h"
#include "raster/scan_converter.h"

namespace kv::raster {
class TurnedSink;
}  // namespace kv::raster

namespace kv::device {

/// Where a line goes and in what: pixels of the surface, the start of the cell's upper edge.
struct TextTarget {
    raster::BitSurface& surface;
    std::int64_t x;
    std::int64_t y;
    bool ink;    ///< what glyphs write
    bool paper;  ///< what the box of the line is filled with first
};

/// Draws lines in one font. Lengths along a line and down from its cell's upper edge are called u
/// and v; the font's escapement turns them about the start of that edge.
class TextPainter {
  public:
    explicit TextPainter(const font::FontInstance& font) : m_Font(font) {}

    /// Fills the line's box, then draws all glyphs.
    void Draw(const TextLine& line, const TextTarget& target);

  private:
    const font::GlyphOutline& OutlineOf(const TextLine& line, const PlacedGlyph& placed) const;
    raster::Affine GlyphToCell(const PlacedGlyph& placed, const font::GlyphOutline& outline) const;

    void FillPaper(const TextLine& line, const TextTarget& target, const raster::Affine& turn);
    void DrawUpright(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                     const TextTarget& target);
    void DrawDownwards(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                       const TextTarget& target, raster::TurnedSink& sink);
    void DrawTurned(const PlacedGlyph& placed, const font::GlyphOutline& outline,
                    const TextTarget& target, const raster::Affine& turn);

    const font::FontInstance& m_Font;
    raster::ScanConverter m_Converter;
    raster::Contours m_Contours;
};

}  // namespace kv::device
