#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

struct hb_face_t;
struct hb_set_t;

namespace kv::font {

/// The glyphs that a font swaps in for vertical lines: its `vert` substitutions. One serves one
/// thread.
class VerticalGlyphs {
  public:
    VerticalGlyphs(const std::string& file, int index);

    /// The alternate of a glyph, or the glyph itself.
    std::uint32_t Alternate(std::uint32_t glyph);

  private:
    struct Release {
        void operator()(hb_face_t* face) const;
        void operator()(hb_set_t* set) const;
    };

    std::uint32_t LookUp(std::uint32_t glyph) const;

    std::unique_ptr<hb_face_t, Release> m_Face;
    std::unique_ptr<hb_set_t, Release> m_Lookups;
    std::unordered_map<std::uint32_t, std::uint32_t> m_Known;
};

}  // namespace kv::font
