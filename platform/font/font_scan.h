#pragma once

#include <vector>

#include "platform/font/font_family.h"

namespace kv::font {

/// The families of all installed outline fonts, in the order of their names.
std::vector<FontFamily> ScanFonts();

}  // namespace kv::font
