#pragma once

#include <cstdint>
#include <string>

#include <KVFontInfo.h>
#include <platform/geometry.h>

#include "text/line_context.h"
#include "text/string_runs.h"

namespace kv::text {

/// A length in percent, times a factor, rounded as all font sizes are.
LONG PercentOf(double length, double percent, double factor);

/// A line whose font, blanks, distance and length are settled.
struct MeasuredLine {
    LineFont font;
    LineRuns text;
    LONG extra = 0;           ///< character extra
    std::int64_t length = 0;  ///< along the direction of writing
    LONG thickness = 0;       ///< across the direction of writing
};

/// The steps in which the forms of a line differ. Each reads the record and what it is handed;
/// none keeps anything. Lengths are enlarged pixels, positions final pixels.
class LineForm {
  public:
    /// The record's AntiScale must be a known one.
    explicit LineForm(const tagKVFONTINFO& info) : m_Info(info) {}
    LineForm(const LineForm&) = delete;
    LineForm& operator=(const LineForm&) = delete;
    virtual ~LineForm() = default;

    /// The first font: the face, and what the layout asks of it: height, natural width, angle.
    virtual LOGFONTA DescribeFont() const = 0;
    /// Brings the first font's description, given its metrics, to the working font's size.
    virtual void WidenFont(const TEXTMETRICA& first, LOGFONTA& description) const = 0;
    /// Of the text with its blanks adjusted.
    virtual LineRuns Cut(const std::string& text) const { return {{text}, text}; }
    /// The area's side along the line.
    virtual LONG AreaLength() const = 0;

    virtual tagSIZE MaskSize(const MeasuredLine& line) const = 0;
    /// The mask's upper left corner: start point, cell, baseline and alignment.
    virtual CPoint Place(const MeasuredLine& line) const = 0;
    /// Where a following piece begins, for a line that is taken to begin at `from`.
    virtual CPoint Continuation(const MeasuredLine& line, CPoint from) const = 0;
    virtual void Draw(const MeasuredLine& line, LineContext& context) const = 0;

    const tagKVFONTINFO& Info() const { return m_Info; }
    LONG Scale() const { return m_Info.AntiScale; }
    /// Size_WidthPer, or 100 where that is 0.
    LONG WidthPercent() const { return m_Info.Size_WidthPer != 0 ? m_Info.Size_WidthPer : 100; }
    /// What widens the characters of a horizontal line.
    double AspectFactor() const { return m_Info.AspectMode == 0 ? kWidened : 1.0; }

  protected:
    /// The factor that widens characters beyond the width a font gives them.
    static constexpr double kWidened = 1.125;

    /// The record's family, with nothing yet asked of its font.
    LOGFONTA LookUpFace() const;
    /// Sets what all forms ask of the line's font alike.
    void SetFontSize(LOGFONTA& description) const;
    /// The shift of the line along its area, by the record's Format.
    LONG AlignShift(const MeasuredLine& line) const;
    /// The shift across the line that brings Latin faces to the baseline of Japanese ones.
    LONG BaselineShift(const LineFont& font) const;
    /// How far a slanted line leans out beyond its length.
    LONG ItalicOverhang(const LineFont& font) const;

  private:
    const tagKVFONTINFO& m_Info;
};

}  // namespace kv::text
