#pragma once

#include <string>

#include <CKVMonoBitmap.h>
#include <platform/dc.h>

namespace kv::text {

/// A font, what it was made from and what it says of itself.
struct LineFont {
    LOGFONTA description{};
    CFont font;
    TEXTMETRICA metric{};
};

/// The device context that a line is measured and drawn in, white on black. Lengths are enlarged
/// pixels.
class LineContext {
  public:
    LineContext();

    /// Makes the font of its description, selects it and reads its metrics. Of a font that cannot
    /// be made the metrics stay.
    void Make(LineFont& font);
    /// Sets the font and the character extra of what follows.
    void Select(const CFont& font, LONG extra);
    /// Adds a distance to each of the font's break characters, for good.
    void WidenBlanks(LONG distance) { m_Dc.SetTextJustification(distance, 1); }
    /// A cleared picture to draw onto. False when it cannot be had.
    [[nodiscard]] bool CreatePicture(tagSIZE size);

    tagSIZE Extent(const std::string& text) const;
    void TextOut(LONG x, LONG y, const std::string& text);
    /// Copies the picture's bits to a mask of its size.
    void Read(CKVMonoBitmap& mask) const { m_Picture.GetBitmapBits(mask.Size, mask.Bits); }

  private:
    CDC m_Dc;
    CBitmap m_Picture;
};

}  // namespace kv::text
