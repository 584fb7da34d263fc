#pragma once

#include <memory>
#include <span>

#include "export.h"
#include "font.h"
#include "geometry.h"
#include "palette.h"
#include "pen.h"

namespace kv::device {
class Picture;
}  // namespace kv::device

namespace kv::font {
struct FontInstance;
}  // namespace kv::font

inline constexpr DWORD BLACKNESS = 0x42;
inline constexpr int BLACKONWHITE = 1;  ///< a context's mode at first; bitmaps do not draw in it
inline constexpr int COLORONCOLOR = 3;  ///< the nearest pixel, none blended
inline constexpr int AD_COUNTERCLOCKWISE = 1;
inline constexpr int AD_CLOCKWISE = 2;

/// A font handle: a shared reference to a font made from a logical description. Copies name the
/// same font, which lives until the last handle, a context's included, is gone.
class KVDRAW_API CFont {
  public:
    CFont() = default;

    /// False when no face at all is to be had and for a height or width beyond 2^20 pixels; the
    /// handle is then null and draws nothing.
    bool CreateFontIndirectA(const LOGFONTA& description);
    void DeleteObject() { m_Font.reset(); }
    bool IsNull() const { return m_Font == nullptr; }

    std::shared_ptr<const kv::font::FontInstance> m_Font;
};

/// A bitmap handle, shared like a font's: a one-bit picture for text and shapes, or a colour one
/// for bitmaps.
class KVDRAW_API CBitmap {
  public:
    CBitmap() = default;

    /// A cleared bitmap of 1 or 32 bits. False, and a null handle, for a size below 1 by 1, any
    /// other depth, initial bits that are not null, or no memory.
    bool CreateBitmap(LONG width, LONG height, UINT planes, UINT bitCount, const void* bits);
    bool IsNull() const { return m_Picture == nullptr; }
    bool IsOneBit() const;

    /// The same picture, kept as the shapes drawn onto it: it takes no text and has no bits, but
    /// gives its coverage without holding the enlarged picture. False as above.
    bool CreateDrawing(LONG width, LONG height);

    /// Copies at most count bytes, rows top down: of one bit with bit 7 leftmost, each row padded
    /// to 16 bits; of 32 bits blue, green, red, 0. Others have their own rows, padded to 32 bits.
    /// The number of bytes copied.
    DWORD GetBitmapBits(DWORD count, void* bits) const;

    /// Of a drawing: the coverage of blocks of scale by scale pixels, 1, 4, 8 or 16, for whole
    /// blocks of rows, `columns` bytes of each row of `stride` bytes. It is what the reduction of
    /// the picture's bits gives. False for any other bitmap, for a scale not named, and for lack of
    /// memory.
    bool GetCoverage(LONG scale, LONG columns, BYTE* coverage, DWORD stride) const;

    std::shared_ptr<kv::device::Picture> m_Picture;
};

/// A bitmap handle that somebody owns and gives back by DeleteObject. The picture itself lives on
/// while a context has it selected.
using HBITMAP = CBitmap*;
KVDRAW_API void DeleteObject(HBITMAP bitmap);

/// Reads a font's logical description back; size is 60. The bytes written, 0 for a null font.
KVDRAW_API int GetObjectA(const CFont& font, int size, LOGFONTA* description);

/// A memory device context: a bitmap, a font, a palette, and the state of drawing. Text and shapes
/// draw onto a one-bit bitmap alone, CDib onto a colour one; on the other kind they draw nothing.
/// The background is opaque, text is placed by the corner of its cell. Selecting gives back what it
/// replaced. One context serves one thread.
class KVDRAW_API CDC {
  public:
    bool CreateCompatibleDC(CDC* other);
    void DeleteDC();

    CFont SelectObject(const CFont& font);
    CBitmap SelectObject(const CBitmap& bitmap);

    /// Distance added after every character, the last included. Gives back the old one.
    LONG SetTextCharacterExtra(LONG extra);
    /// Shares a distance out among count break characters: every one of a string (byte 32, not the
    /// ideographic space) gets distance / count added, cut toward zero. Stays until changed; a
    /// count below 1 ends it.
    void SetTextJustification(LONG distance, LONG count);
    /// Of a colour the one-bit picture keeps whether it is black; any other one sets bits.
    COLORREF SetTextColor(COLORREF colour);
    COLORREF SetBkColor(COLORREF colour);

    bool GetTextMetricsA(TEXTMETRICA* metric) const;
    /// Text is bytes in code page 932, delimited by the count alone; advances are whole pixels.
    /// cx is the length along the line, cy the height of the cell, whatever the font's angle.
    bool GetTextExtentPoint32A(const char* text, int byteCount, tagSIZE* extent) const;
    /// Fills the box of the string's extent with the background colour, then draws all glyphs,
    /// clipped to the bitmap. The point is the start of the cell's upper edge in the direction of
    /// writing; with an escapement of -900 the upright pixel (u, v) of the cell goes to (x - 1 - v,
    /// y + u). False without a font, a bitmap or a valid text.
    bool TextOutA(LONG x, LONG y, const char* text, int byteCount);
    /// The one raster operation known is BLACKNESS; the source is null.
    bool BitBlt(LONG x, LONG y, LONG width, LONG height, CDC* source, LONG sourceX, LONG sourceY,
                DWORD operation);

    CPen SelectObject(const CPen& pen);
    CBrush SelectObject(const CBrush& brush);

    /// AD_COUNTERCLOCKWISE at first. Gives back the old one, 0 for an unknown one.
    int SetArcDirection(int direction);
    /// The lines from one MoveTo on are one figure: joined where they meet.
    void MoveTo(LONG x, LONG y);
    bool LineTo(LONG x, LONG y);
    /// Shapes are filled with the brush, by the alternate rule, and then outlined with the pen,
    /// clipped to the bitmap. Boxes take their corners in any order and leave out right and bottom.
    /// False without a bitmap or memory.
    bool Rectangle(LONG left, LONG top, LONG right, LONG bottom);
    /// Width and height are those of the whole corner ellipse, cut to the box.
    bool RoundRect(LONG left, LONG top, LONG right, LONG bottom, LONG width, LONG height);
    bool Ellipse(LONG left, LONG top, LONG right, LONG bottom);
    /// The wedge between the directions of two points as seen from the box's middle; equal ones
    /// give the whole ellipse.
    bool Pie(LONG left, LONG top, LONG right, LONG bottom, LONG startX, LONG startY, LONG endX,
             LONG endY);
    /// False for fewer than 2 points.
    bool Polygon(const tagPOINT* points, int count);
    /// A chain of cubic curves, outlined only. False for a count that is not 3k + 1.
    bool PolyBezier(const tagPOINT* points, int count);

    /// A palette for the colours of bitmaps; a null one takes it away. A context shows true colours
    /// and needs none.
    CPalette SelectPalette(const CPalette& palette, bool background);
    /// The mode of stretching: COLORONCOLOR is the one known. Gives back the old one, 0 for another
    /// mode.
    int SetStretchBltMode(int mode);
    int GetStretchBltMode() const { return m_StretchMode; }
    const CBitmap& GetCurrentBitmap() const { return m_Bitmap; }
    const CPalette& GetCurrentPalette() const { return m_Palette; }

  private:
    CFont m_Font;
    CBitmap m_Bitmap;
    CPalette m_Palette;
    int m_StretchMode = BLACKONWHITE;
    LONG m_CharacterExtra = 0;
    LONG m_BreakExtra = 0;
    COLORREF m_TextColor = 0;
    COLORREF m_BkColor = 0xFFFFFF;
    CPen m_Pen;
    CBrush m_Brush;
    int m_ArcDirection = AD_COUNTERCLOCKWISE;
    tagPOINT m_Figure[3] = {};  ///< the last points of the lines being drawn
    int m_FigurePoints = 1;
};
