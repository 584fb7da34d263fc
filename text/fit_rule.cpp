// The decision how far a line is squeezed or stretched, and by what.

#include "text/fit_rule.h"

namespace kv::text {

FitOutcome Fit(const FitTask& line) {
    std::int64_t missing = line.target - line.length;  // negative: the line is too long
    const bool shrinks = missing < 0;
    FitOutcome fit{line.extra, shrinks, false, 1.0};
    if (missing == 0 || (!shrinks && !line.mayStretch)) {
        return fit;
    }
    const std::int64_t gaps = line.count - 1;
    if (gaps > 0) {
        const std::int64_t bound = shrinks ? line.leastExtra : line.mostExtra;
        fit.extra += missing / gaps;
        // A distance exactly at its bound is enough for a stretch and not for a shrink.
        if (shrinks ? fit.extra > bound : fit.extra <= bound) {
            return fit;
        }
        fit.extra = bound;
        missing -= (bound - line.extra) * gaps;
    }
    if (shrinks ? missing >= 0 : missing <= 0) {
        return fit;
    }
    const std::int64_t reached = line.target - missing;
    if (reached == 0 || (!shrinks && reached < 0)) {
        return fit;  // nothing that a ratio could stretch
    }
    fit.resized = true;
    fit.ratio = static_cast<double>(line.target) / static_cast<double>(reached);
    return fit;
}

}  // namespace kv::text
