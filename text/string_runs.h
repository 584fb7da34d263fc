#pragma once

#include <string>
#include <vector>

#include <platform/string.h>

namespace kv::text {

/// WHITE CIRCLE: stands for one cell of a vertical line where its length is measured.
inline constexpr char kLineCell[] = "\x81\x9B";

/// What a line is drawn of, piece by piece, and what its length is measured on.
struct LineRuns {
    std::vector<std::string> runs;
    std::string measured;
};

/// Cuts a text where double-byte and single-byte characters meet and at blanks, which are dropped.
/// A single-byte run is measured as one cell. Of an empty text, or behind a last blank, one run is
/// empty.
LineRuns CutIntoRuns(const char* text);

/// Replaces every blank by a font's break character, the one that justification widens.
void ReplaceBlanks(CString& text, char breakChar);

}  // namespace kv::text
