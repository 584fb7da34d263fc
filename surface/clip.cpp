// What is left of a copy within its two surfaces.

#include "surface/clip.h"

#include <cstdint>

namespace kv {
namespace {

struct Span {
    std::int64_t from;
    std::int64_t to;
    std::int64_t length;
};

// The two negative origins do not act alike: a source run that begins outside is only shortened, so
// that what is left moves to the asked place; a target run that begins outside takes the source
// along. In 64 bits no sum of 32-bit coordinates wraps.
Span ClipSpan(Span span, std::int64_t sourceLength, std::int64_t targetLength) {
    if (span.from < 0) {
        span.length += span.from;
        span.from = 0;
    }
    if (span.from + span.length > sourceLength) {
        span.length = sourceLength - span.from;
    }
    if (span.to < 0) {
        span.length += span.to;
        span.from -= span.to;
        span.to = 0;
    }
    if (span.to + span.length > targetLength) {
        span.length = targetLength - span.to;
    }
    return span;
}

}  // namespace

std::optional<CopyArea> ClipCopy(CSize source, CSize target, LONG sx, LONG sy, LONG w, LONG h,
                                 LONG dx, LONG dy) {
    const Span columns = ClipSpan({sx, dx, w}, source.cx, target.cx);
    const Span rows = ClipSpan({sy, dy, h}, source.cy, target.cy);
    if (columns.length <= 0 || rows.length <= 0) {
        return std::nullopt;
    }
    const auto narrow = [](std::int64_t value) { return static_cast<LONG>(value); };
    return CopyArea{
        narrow(columns.from), narrow(rows.from),
        CBox(narrow(columns.to), narrow(rows.to), narrow(columns.length), narrow(rows.length))};
}

}  // namespace kv
