// The drawing of a vertical line run by run.

#include "text/upright_runs.h"

#include "base/narrow.h"
#include "platform/text/mbcs.h"

namespace kv::text {
namespace {

// Draws a run of double-byte characters. Its length along the line.
LONG DrawTurned(const MeasuredLine& line, const std::string& run, LONG top, LineContext& context) {
    context.Select(line.font.font, line.extra);
    context.TextOut(line.thickness, top, run);
    return context.Extent(run).cx;
}

// Draws a run of single-byte characters. The length of its cell.
LONG DrawUpright(const MeasuredLine& line, const LineFont& upright, const std::string& run,
                 LONG top, LineContext& context) {
    context.Select(line.font.font, line.extra);
    const tagSIZE cell = context.Extent(kLineCell);
    context.Select(upright.font, 0);
    const LONG width = context.Extent(run).cx;
    if (width <= cell.cy) {
        context.TextOut(cell.cy / 2 - width / 2, top, run);
        return cell.cx;
    }
    const LONG percent = TruncateToInt32(static_cast<double>(cell.cy) / width * 100.0);
    LineFont squeezed = upright;
    squeezed.description.lfWidth = PercentOf(upright.metric.tmAveCharWidth, percent, 1.0);
    context.Make(squeezed);
    context.TextOut(0, top, run);
    return cell.cx;
}

}  // namespace

void UprightRuns::Draw(const MeasuredLine& line, LineContext& context) const {
    const LineFont upright = MakeUprightFont(line.font.description, context);
    std::int64_t cursor = 0;
    for (const std::string& run : line.text.runs) {
        if (!run.empty()) {
            const LONG top = SaturateToInt32(cursor);
            const bool turned = CharBytes(run.c_str()) == 2;
            cursor += turned ? DrawTurned(line, run, top, context)
                             : DrawUpright(line, upright, run, top, context);
        }
    }
}

// The upright font's cell is as high as an em of the line is long, and its half em as wide as half
// the line is thick. A line without a width of its own leaves it no height: such runs stay undrawn.
LineFont UprightRuns::MakeUprightFont(const LOGFONTA& vertical, LineContext& context) const {
    LineFont upright{LookUpFace(), {}, {}};
    upright.description.lfHeight = SaturateToInt32(std::int64_t{vertical.lfWidth} * 2);
    upright.description.lfWidth = vertical.lfHeight / 2;
    upright.description.lfOrientation = 0;
    upright.description.lfWeight = vertical.lfWeight;
    upright.description.lfItalic = vertical.lfItalic;
    if (upright.description.lfHeight != 0) {
        context.Make(upright);
    }
    return upright;
}

}  // namespace kv::text
