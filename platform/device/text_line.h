#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <platform/types.h>

#include "platform/font/face_cache.h"
#include "platform/font/font_instance.h"

namespace kv::device {

/// What a context adds to the advances, in pixels.
struct TextSpacing {
    LONG afterEach = 0;   ///< after every character, the last included
    LONG afterBreak = 0;  ///< after a break character besides
};

/// A character of a line.
struct PlacedGlyph {
    std::int64_t start;  ///< pixels along the line from its beginning
    std::uint32_t glyph;
    std::uint8_t face;  ///< of the line's faces; kMissing for the missing-glyph box
    bool doubleByte;
};

/// A string cut into glyphs, each on a whole pixel. It belongs to the thread that made it.
struct TextLine {
    static constexpr std::uint8_t kMissing = font::FontInstance::kFaces;

    std::array<std::shared_ptr<font::Face>, font::FontInstance::kFaces>
        faces;  ///< as the font's; null while unused
    std::vector<PlacedGlyph> glyphs;
    std::int64_t length = 0;
};

/// Lays out bytes in code page 932; a lead byte at the end is a single-byte character.
TextLine LayOutText(const font::FontInstance& font, const TextSpacing& spacing,
                    std::string_view text);

}  // namespace kv::device
