#pragma once

#include <platform/string.h>

#include "text/vertical_line.h"

namespace kv::text {

/// A vertical line whose runs of single-byte characters stand upright, each in one cell of the
/// line: squeezed into it, or centred. Blanks fall out of the line.
class UprightRuns : public VerticalLine {
  public:
    using VerticalLine::VerticalLine;

  protected:
    void DescribeFont() override;
    std::string MeasuredText() override;
    void DrawLine() override;

  private:
    void MakeUprightFont();
    LONG DrawTurned(const std::string& run, LONG top);
    LONG DrawUpright(const std::string& run, LONG top);

    LOGFONTA m_PlainFace{};
    CFont m_UprightFont;
    CStringArray m_Runs;
};

}  // namespace kv::text
