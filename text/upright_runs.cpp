#include "text/upright_runs.h"

#include <CKVFont.h>

#include "base/narrow.h"
#include "platform/text/mbcs.h"
#include "text/line_cell.h"

namespace kv::text {

void UprightRuns::DescribeFont() {
    LookUpFace(m_PlainFace);
    VerticalLine::DescribeFont();
}

std::string UprightRuns::MeasuredText() {
    CString multi;
    CKVFont().SplitMultiAndSingle(m_Text.c_str(), m_Runs, multi);
    return {static_cast<const char*>(multi)};
}

void UprightRuns::DrawLine() {
    MakeUprightFont();
    std::int64_t cursor = 0;
    for (int i = 0; i < m_Runs.GetSize(); ++i) {
        const std::string run(m_Runs[i]);
        if (!run.empty()) {
            const LONG top = SaturateToInt32(cursor);
            const bool turned = CharBytes(run.c_str()) == 2;
            cursor += turned ? DrawTurned(run, top) : DrawUpright(run, top);
        }
    }
}

// The upright font's cell is as high as an em of the line is long, and its half em as wide as half
// the line is thick. A line without a width of its own leaves it no height: such runs stay undrawn.
void UprightRuns::MakeUprightFont() {
    LOGFONTA upright = m_PlainFace;
    upright.lfHeight = SaturateToInt32(std::int64_t{m_Font.lfWidth} * 2);
    upright.lfWidth = m_Font.lfHeight / 2;
    upright.lfOrientation = 0;
    upright.lfWeight = m_Font.lfWeight;
    upright.lfItalic = m_Font.lfItalic;
    if (upright.lfHeight != 0) {
        m_UprightFont.CreateFontIndirectA(upright);
    }
}

// Draws a run of double-byte characters. Its length along the line.
LONG UprightRuns::DrawTurned(const std::string& run, LONG top) {
    SelectFont(m_LineFont, m_Extra);
    TextOut(m_Thickness, top, run);
    return Extent(run).cx;
}

// Draws a run of single-byte characters. The length of its cell.
LONG UprightRuns::DrawUpright(const std::string& run, LONG top) {
    SelectFont(m_LineFont, m_Extra);
    const tagSIZE cell = Extent(kLineCell);
    SelectFont(m_UprightFont, 0);
    const LONG width = Extent(run).cx;
    TEXTMETRICA metric{};
    m_Dc.GetTextMetricsA(&metric);
    // Read back from the font, so that squeezing one run does not squeeze the next.
    LOGFONTA description{};
    GetObjectA(m_UprightFont, sizeof description, &description);
    LONG left = 0;
    CFont fitted = m_UprightFont;
    if (width > cell.cy) {
        const LONG percent = TruncateToInt32(static_cast<double>(cell.cy) / width * 100.0);
        description.lfWidth = PercentOf(metric.tmAveCharWidth, percent, 1.0);
        fitted.CreateFontIndirectA(description);
    } else {
        left = cell.cy / 2 - width / 2;
    }
    SelectFont(fitted, 0);
    TextOut(left, top, run);
    return cell.cx;
}

}  // namespace kv::text
