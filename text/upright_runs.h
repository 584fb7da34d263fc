#pragma once

#include "text/vertical_line.h"

namespace kv::text {

/// A vertical line whose runs of single-byte characters stand upright, each in one cell of the
/// line: squeezed into it, or centred. Blanks fall out of the line.
class UprightRuns : public VerticalLine {
  public:
    using VerticalLine::VerticalLine;

    LineRuns Cut(const std::string& text) const override { return CutIntoRuns(text.c_str()); }
    void Draw(const MeasuredLine& line, LineContext& context) const override;

  private:
    LineFont MakeUprightFont(const LOGFONTA& vertical, LineContext& context) const;
};

}  // namespace kv::text
