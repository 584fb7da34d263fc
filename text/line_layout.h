#pragma once

#include <cstdint>
#include <string>

#include <CKVMonoBitmap.h>
#include <KVFontInfo.h>
#include <platform/dc.h>
#include <platform/geometry.h>

#include "text/fit_rule.h"

namespace kv::text {

/// The factor that widens characters beyond the width a font gives them.
inline constexpr double kWidened = 1.125;

/// A length in percent, times a factor, rounded as all font sizes are.
LONG PercentOf(double length, double percent, double factor);

/// One line of text on its way from a string to a mask. The base class is the frame that every
/// layout runs on: fonts, blanks, length, place, drawing. A form overrides the steps in which it
/// differs; a line with a width step is fitted to the record's area. Lengths are enlarged pixels,
/// positions final pixels. An object serves one Run.
class LineLayout {
  public:
    /// info's AntiScale must be a known one. Without a width step the line keeps its size.
    LineLayout(HWND window, tagKVFONTINFO& info, const char* text, const WidthStep* fit = nullptr);
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
    /// What the line's length is measured on, asked once, with the blanks adjusted.
    virtual std::string MeasuredText() { return m_Text; }
    /// The area's side along the line.
    virtual LONG AreaLength() const = 0;
    virtual tagSIZE MaskSize() const = 0;
    virtual CPoint StartPoint() const = 0;
    /// Moves the start point to the mask's corner: cell, baseline and alignment.
    virtual CPoint Place(CPoint start) const = 0;
    /// Where a following piece begins, for a line that is taken to begin at `from`.
    virtual CPoint Continuation(CPoint from) const = 0;
    virtual void DrawLine() = 0;

    LONG Scale() const { return m_Info.AntiScale; }
    /// Size_WidthPer, or 100 where that is 0.
    LONG WidthPercent() const;
    /// Of a horizontal line's characters.
    double AspectFactor() const { return m_Info.AspectMode == 0 ? kWidened : 1.0; }
    /// Finds the record's family.
    void LookUpFace(LOGFONTA& description) const;
    /// Sets what all forms ask of the line's font alike.
    void SetFontSize();
    /// The shift of the line along its area, by the record's Format.
    LONG AlignShift() const;
    /// The shift across the line that brings Latin faces to the baseline of Japanese ones.
    LONG BaselineShift() const;
    /// How far a slanted line leans out beyond its length.
    LONG ItalicOverhang() const;

    void SelectFont(const CFont& font, LONG extra);
    tagSIZE Extent(const std::string& text) const;
    void TextOut(LONG x, LONG y, const std::string& text);

    const HWND m_Window;
    tagKVFONTINFO& m_Info;
    std::string m_Text;
    LONG m_Extra;  ///< character extra
    CDC m_Dc;
    LOGFONTA m_Font{};        ///< the line's logical font
    CFont m_LineFont;         ///< the font last made for the line
    TEXTMETRICA m_Metric{};   ///< its metrics
    std::int64_t m_Length{};  ///< along the direction of writing
    LONG m_Thickness{};       ///< across the direction of writing

  private:
    void UseFont();
    void AdjustBlanks();
    void Measure(const std::string& text);
    void FitToArea(const std::string& measured);
    LONG FittedWidth(const FitOutcome& fit) const;
    void Draw(CKVMonoBitmap& mask);

    const WidthStep* const m_Fit;
    LONG m_FirstAverage{};  ///< tmAveCharWidth of the first font
};

}  // namespace kv::text
