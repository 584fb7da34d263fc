// The frame of all layouts: fonts, blanks, length, fit, place, drawing, in this order.

#include "text/line_layout.h"

#include <algorithm>

#include "base/narrow.h"
#include "platform/text/mbcs.h"

namespace kv::text {
namespace {

// Justification widens the font's break character only, so blanks become that character.
std::string AdjustBlanks(LONG percent, const TEXTMETRICA& metric, const char* text,
                         LineContext& context) {
    CString adjusted(text);
    if (percent != 0) {
        const LONG average = metric.tmAveCharWidth;
        const LONG scaled = TruncateToInt32(average * 0.5 * percent / -100.0);
        context.WidenBlanks(SaturateToInt32(std::int64_t{-(average / 2)} - scaled));
        ReplaceBlanks(adjusted, static_cast<char>(metric.tmBreakChar));
    }
    return static_cast<const char*>(adjusted);
}

std::int64_t CountOf(const std::string& text) {
    return static_cast<std::int64_t>(_mbslen(text.c_str()));
}

// Sets length and thickness. The extra behind the last character does not count: a positive one is
// measured and taken off again, a negative one is not measured and counts n - 2 times, not n - 1.
void Measure(LineContext& context, MeasuredLine& line) {
    context.Select(line.font.font, std::max(line.extra, 0));
    const tagSIZE extent = context.Extent(line.text.measured);
    const std::int64_t uncounted = line.extra < 0 ? 2 - CountOf(line.text.measured) : 1;
    line.length = extent.cx - uncounted * line.extra;
    line.thickness = extent.cy;
}

LONG FittedWidth(const LineForm& form, const WidthStep& step, const FitOutcome& fit,
                 LONG firstAverage, LONG average) {
    if (step.percent == WidthStep::Percent::kPlain) {
        return PercentOf(average, fit.ratio * 100.0, 1.0);
    }
    const bool rounded = step.percent == WidthStep::Percent::kRounded;
    LONG percent = TruncateToInt32(form.WidthPercent() * fit.ratio + (rounded ? 0.5 : 0.0));
    percent = fit.shrinks ? std::max(percent, form.Info().FitStrMax_Min)
                          : std::min(percent, form.Info().FitStrMax_Max);
    return step.fromFirstFont ? PercentOf(firstAverage, percent, form.AspectFactor())
                              : PercentOf(average, percent, 1.0);
}

// The line is measured anew, and that is its length, whatever was aimed at.
void FitToArea(const LineForm& form, const WidthStep& step, LONG firstAverage, LineContext& context,
               MeasuredLine& line) {
    const tagKVFONTINFO& info = form.Info();
    const std::int64_t s = form.Scale();
    // Bounds beyond any distance would only overflow what they are multiplied with.
    const FitOutcome fit = Fit({line.length, form.AreaLength() * s, CountOf(line.text.measured),
                                line.extra, SaturateToInt32(info.FitSpMax_Min * s),
                                SaturateToInt32(info.FitSpMax_Max * s), info.FitMode == 2});
    line.extra = SaturateToInt32(fit.extra);
    if (fit.resized) {
        line.font.description.lfWidth =
            FittedWidth(form, step, fit, firstAverage, line.font.metric.tmAveCharWidth);
    }
    context.Make(line.font);
    Measure(context, line);
}

MeasuredLine SetLine(const LineForm& form, const char* text, const WidthStep* fit,
                     LineContext& context) {
    MeasuredLine line;
    line.extra = SaturateToInt32(std::int64_t{form.Info().Space} * form.Scale());
    line.font.description = form.DescribeFont();
    context.Make(line.font);
    const LONG firstAverage = line.font.metric.tmAveCharWidth;
    form.WidenFont(line.font.metric, line.font.description);
    context.Make(line.font);
    line.text = form.Cut(AdjustBlanks(form.Info().SpPer, line.font.metric, text, context));
    Measure(context, line);
    if (fit != nullptr) {
        FitToArea(form, *fit, firstAverage, context, line);
    }
    return line;
}

void Draw(const LineForm& form, const MeasuredLine& line, LineContext& context,
          CKVMonoBitmap& mask) {
    mask.Delete();
    const tagSIZE size = form.MaskSize(line);
    // The mask first: a picture beyond what it can hold is not even begun.
    if (mask.Create(size.cx, size.cy) != 0) {
        return;
    }
    if (!context.CreatePicture(size)) {
        mask.Delete();
        return;
    }
    form.Draw(line, context);
    context.Read(mask);
}

}  // namespace

void LayOutLine(const LineForm& form, tagKVFONTINFO& info, const char* text, const WidthStep* fit,
                CKVMonoBitmap& mask, tagPOINT& pos) {
    LineContext context;
    const MeasuredLine line = SetLine(form, text, fit, context);
    const CPoint placed = form.Place(line);
    // What follows a fitted line begins its length behind the anchor, wherever the line stands.
    const CPoint next =
        form.Continuation(line, fit != nullptr ? CPoint(info.Pos_X, info.Pos_Y) : placed);
    info.NextAddress_X = next.x;
    info.NextAddress_Y = next.y;
    pos = placed;
    Draw(form, line, context, mask);
}

}  // namespace kv::text
