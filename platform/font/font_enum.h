#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include <platform/font.h>

using LPARAM = std::intptr_t;

/// The display's device context: null.
HDC GetDC(HWND window);
int ReleaseDC(HWND window, HDC dc);

/// Called once a font; 0 ends the enumeration. Both records are the full ENUMLOGFONTA and
/// NEWTEXTMETRICA.
using FONTENUMPROCA = int (*)(const ENUMLOGFONTA* font, const NEWTEXTMETRICA* metric, DWORD type,
                              LPARAM parameter);

/// Delivers the fonts of exactly the named family, or one font of each family for a null name. The
/// last value that the callback returned, 1 when it was never called.
int EnumFontFamiliesA(HDC dc, const char* family, FONTENUMPROCA callback, LPARAM parameter);

namespace kv::font {

/// The first font that an enumeration of the named family delivers; empty when none has that name.
/// Throws where memory ends.
std::optional<LOGFONTA> FirstOf(std::string_view family);

}  // namespace kv::font
