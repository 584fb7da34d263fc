#pragma once

#include <CKVMonoBitmap.h>
#include <KVFontInfo.h>

#include "text/fit_rule.h"
#include "text/line_form.h"

namespace kv::text {

/// Takes one line of text from a string to a mask: the frame that every form runs on. info is the
/// form's record and gets the continuation point, pos the mask's upper left corner. A line with a
/// width step is fitted to the record's area; without one it keeps its size.
void LayOutLine(const LineForm& form, tagKVFONTINFO& info, const char* text, const WidthStep* fit,
                CKVMonoBitmap& mask, tagPOINT& pos);

}  // namespace kv::text
