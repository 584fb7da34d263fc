#pragma once

#include <platform/types.h>

namespace pict {

/// The packet decision as it is defined, which looks ahead through the row for each packet: the
/// number of its bytes, and in isRun whether it is a run.
inline int PlainCheck(const BYTE* p, LONG remaining, LONG* isRun) {
    *isRun = p[0] == p[1] ? 1 : 0;
    int count = 1;
    for (LONG i = 1; i < remaining; ++i, ++count) {
        if (i >= 127) {
            return count;
        }
        if ((p[i] == p[i + 1]) == (*isRun == 1)) {
            continue;
        }
        if (*isRun == 1 || remaining <= 2) {
            return count + 1;
        }
        int extra = 0;
        int same = 0;
        for (LONG j = 0; j < remaining; ++j) {
            if (extra + count >= 127) {
                return count;
            }
            if (p[j] == p[j + 1]) {
                ++same;
            } else {
                extra += same;
                same = 0;
            }
            if (same > 3) {
                return count + extra;
            }
        }
        return count;
    }
    return count;
}

}  // namespace pict
