#pragma once

#include <cstdint>

/// The platform's integer types. File formats and pixel values rest on their exact width.
using LONG = std::int32_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using WORD = std::uint16_t;
using BYTE = std::uint8_t;
using COLORREF = std::uint32_t;

/// A window handle. Drawing uses it for nothing but naming a display; null is always good.
using HWND = void*;

/// A device context, named by its object. The one display's is null and always there.
class CDC;
using HDC = CDC*;

/// An open file or a mapping of one.
using HANDLE = void*;
