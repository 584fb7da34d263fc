#pragma once

#include <cstdint>

// Code page 932 to Unicode and back, by tables that the system's iconv fills once a process. Where
// iconv does not know the code page, ASCII and half-width katakana still convert and nothing else.
namespace kv {

/// The Unicode scalar of a single-byte code (below 256) or a double-byte code (lead * 256 + trail);
/// 0 when there is none.
std::uint32_t ToUnicode(unsigned int code);

/// The code of a Unicode scalar, single-byte below 256, else double-byte; 0 when there is none.
/// Signs that the code page has in one spelling only are found under the others too (WAVE DASH as
/// FULLWIDTH TILDE, MINUS SIGN as FULLWIDTH HYPHEN-MINUS and the like).
unsigned int FromUnicode(std::uint32_t scalar);

}  // namespace kv
