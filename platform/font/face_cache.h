#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>

#include "platform/font/font_family.h"
#include "platform/font/free_type.h"
#include "platform/font/glyph_outline.h"
#include "platform/font/vertical_glyphs.h"

namespace kv::font {

/// An open font file with what was read from it so far. One serves one thread.
class Face {
  public:
    Face(FreeTypeFace face, const FaceRecord& record) : m_Face(std::move(face)), m_Record(record) {}

    double UnitsPerEm() const { return m_Face->units_per_EM; }
    /// 0 when the font lacks the character.
    std::uint32_t GlyphOf(std::uint32_t scalar);
    std::uint32_t VerticalAlternate(std::uint32_t glyph);
    /// In font units.
    double Advance(std::uint32_t glyph);
    /// Stays valid until the next call.
    const GlyphOutline& Outline(std::uint32_t glyph, bool embolden);

  private:
    FreeTypeFace m_Face;
    const FaceRecord& m_Record;
    std::optional<VerticalGlyphs> m_Vertical;
    std::unordered_map<std::uint32_t, std::uint32_t> m_Glyphs;
    std::unordered_map<std::uint32_t, double> m_Advances;
    std::unordered_map<std::uint64_t, GlyphOutline> m_Outlines;
    std::size_t m_OutlinePoints = 0;
};

/// The calling thread's face for a record of the catalogue, opened at the first call; null when the
/// file is gone. A thread keeps few faces open; one that is in use outlives its place among them.
std::shared_ptr<Face> ThreadFace(const FaceRecord& record);

}  // namespace kv::font
