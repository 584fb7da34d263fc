#pragma once

#include <cstdint>
#include <string>

#include <CKVMonoBitmap.h>
#include <KVFontInfo.h>
#include <platform/geometry.h>

#include "platform/gdi/dc.h"

namespace kv::text {

/// True for the enlargements that a layout knows; it divides by nothing else.
bool IsKnownScale(LONG scale);

/// One line of text on its way from a string to a mask. The base class is the frame that every
/// layout runs on: fonts, blanks, length, place, drawing. A form overrides the steps in which it
/// differs. Lengths are enlarged pixels, positions final pixels. An object serves one Run.
class LineLayout {
  public:
    /// info's AntiScale must be a known one.
    LineLayout(HWND window, tagKVFONTINFO& info, const char* text);
    LineLayout(const LineLayout&) = delete;
    LineLayout& operator=(const LineLayout&) = delete;
    virtual ~LineLayout() = default;

    /// Fills mask and pos and leaves the continuation point in the record.
    void Run(CKVMonoBitmap& mask, tagPOINT& pos);

  protected:
    /// Looks up the face and sets what the layout asks of it: height, natural width, angle.
    virtual void DescribeFont() = 0;
    /// With the first font's metrics known, sets the size that the working font is made at.
    virtual void WidenFont() = 0;
    virtual tagSIZE MaskSize() const = 0;
    virtual CPoint StartPoint() const = 0;
    /// Moves the start point to the mask's corner: cell, baseline and alignment.
    virtual CPoint Place(CPoint start) const = 0;
    virtual CPoint Continuation(CPoint placed) const = 0;
    virtual void DrawLine() = 0;

    LONG Scale() const { return m_Info.AntiScale; }
    /// Size_WidthPer, or 100 where that is 0.
    LONG WidthPercent() const;
    /// Sets the fields that all forms set alike; height in enlarged pixels.
    void SetCommonFont(LOGFONTA& description) const;
    /// The shift of a line within an area of the given length, by the record's Format.
    LONG AlignShift(LONG areaLength) const;
    /// How far a slanted line leans out beyond its length.
    LONG ItalicOverhang() const;

    const HWND m_Window;
    tagKVFONTINFO& m_Info;
    std::string m_Text;
    const LONG m_Extra;  ///< character extra
    CDC m_Dc;
    LOGFONTA m_Font{};        ///< the line's logical font
    TEXTMETRICA m_Metric{};   ///< metrics of the font last made for the line
    std::int64_t m_Length{};  ///< along the direction of writing
    LONG m_Thickness{};       ///< across the direction of writing

  private:
    void UseFont();
    void AdjustBlanks();
    void Measure(const std::string& text);
    void Draw(CKVMonoBitmap& mask);
};

}  // namespace kv::text
