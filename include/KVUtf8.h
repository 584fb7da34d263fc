#pragma once

#include <string>

#include "platform/export.h"
#include "platform/string.h"

/// The bridge for programs that hold UTF-8: the library's own strings are bytes in code page 932.
/// Both conversions always give an answer, take null for the empty string and may run on any
/// thread.

/// UTF-8 to code page 932. A character that the code page lacks, and each maximal malformed part of
/// the input, becomes one '?'. Signs that Unicode has in two spellings convert from either, WAVE
/// DASH and FULLWIDTH TILDE for one; YEN SIGN becomes the full-width one.
KVDRAW_API CString KVFromUtf8(const char* text);
inline CString KVFromUtf8(const std::string& text) {
    return KVFromUtf8(text.c_str());
}

/// Code page 932 to UTF-8. What has no mapping becomes U+FFFD: an unassigned double-byte code as
/// one, a lead byte directly before the terminator as one.
KVDRAW_API std::string KVToUtf8(const char* text);
