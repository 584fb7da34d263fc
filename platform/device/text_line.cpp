// The laying out of a string: the face and glyph of each character, and its place.

#include "platform/device/text_line.h"

#include "platform/text/codepage.h"
#include "platform/text/mbcs.h"

namespace kv::device {

namespace {

// Takes the code of the next character off a text that is not empty.
unsigned int TakeCode(std::string_view& text) {
    const auto first = static_cast<unsigned char>(text[0]);
    if (!_ismbblead(first) || text.size() == 1) {
        text.remove_prefix(1);
        return first;
    }
    const auto second = static_cast<unsigned char>(text[1]);
    text.remove_prefix(2);
    return first * 256U + second;
}

class LayOut {
  public:
    LayOut(const font::FontInstance& font, TextLine& line) : m_Font(font), m_Line(line) {}

    // Places a character at the end of the line. Its advance, before any spacing.
    LONG Place(unsigned int code) {
        PlacedGlyph placed{m_Line.length, 0, TextLine::kMissing, code > 255};
        FindGlyph(ToUnicode(code), placed);
        m_Line.glyphs.push_back(placed);
        return font::RoundToPixel(Ems(placed) * m_Font.emPixels * m_Font.stretch);
    }

  private:
    font::Face* Use(std::size_t index) {
        std::shared_ptr<font::Face>& face = m_Line.faces[index];
        if (!face) {
            face = font::ThreadFace(*m_Font.faces[index].record);
        }
        return face.get();
    }

    void FindGlyph(std::uint32_t scalar, PlacedGlyph& placed) {
        for (std::uint8_t i = 0; i < m_Line.faces.size() && scalar != 0; ++i) {
            font::Face* const face = Use(i);
            const std::uint32_t glyph = face != nullptr ? face->GlyphOf(scalar) : 0;
            if (glyph != 0) {
                placed.face = i;
                placed.glyph =
                    m_Font.vertical && placed.doubleByte ? face->VerticalAlternate(glyph) : glyph;
                return;
            }
        }
    }

    double Ems(const PlacedGlyph& placed) const {
        if (m_Font.vertical && placed.doubleByte) {
            return 1.0;
        }
        if (placed.face == TextLine::kMissing) {
            return font::MissingGlyph(placed.doubleByte).advance;
        }
        font::Face& face = *m_Line.faces[placed.face];
        return face.Advance(placed.glyph) / face.UnitsPerEm();
    }

    const font::FontInstance& m_Font;
    TextLine& m_Line;
};

}  // namespace

TextLine LayOutText(const font::FontInstance& font, const TextSpacing& spacing,
                    std::string_view text) {
    TextLine line;
    line.glyphs.reserve(text.size());
    LayOut layout(font, line);
    while (!text.empty()) {
        const unsigned int code = TakeCode(text);
        line.length += layout.Place(code);
        line.length += spacing.afterEach;
        line.length += code == font.metrics.tmBreakChar ? spacing.afterBreak : 0;
    }
    return line;
}

}  // namespace kv::device
