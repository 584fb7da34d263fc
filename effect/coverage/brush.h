#pragma once

#include <platform/types.h>

namespace kv {

/// Fills a table of size rows of size bytes with a radial brush: CKVBwDraw::FilterBlush.
void FillBrush(BYTE* table, int size, int pen);

}  // namespace kv
