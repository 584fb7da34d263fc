// The vertical alternates of a font, by its substitution table.

#include "platform/font/vertical_glyphs.h"

#include <array>

#include <hb-ot.h>

namespace kv::font {

namespace {

// The low half names the face; what stands above it is a named instance.
constexpr unsigned int FaceIndex(int index) {
    return static_cast<unsigned int>(index) & 0xFFFFU;
}

}  // namespace

void VerticalGlyphs::Release::operator()(hb_face_t* face) const {
    hb_face_destroy(face);
}
void VerticalGlyphs::Release::operator()(hb_set_t* set) const {
    hb_set_destroy(set);
}

VerticalGlyphs::VerticalGlyphs(const std::string& file, int index) : m_Lookups(hb_set_create()) {
    // A file that does not open gives an empty blob, and that a face without any substitution.
    hb_blob_t* const blob = hb_blob_create_from_file(file.c_str());
    m_Face.reset(hb_face_create(blob, FaceIndex(index)));
    hb_blob_destroy(blob);
    constexpr std::array<hb_tag_t, 2> kFeatures{HB_TAG('v', 'e', 'r', 't'), HB_TAG_NONE};
    hb_ot_layout_collect_lookups(m_Face.get(), HB_OT_TAG_GSUB, nullptr, nullptr, kFeatures.data(),
                                 m_Lookups.get());
}

std::uint32_t VerticalGlyphs::Alternate(std::uint32_t glyph) {
    const auto [known, isNew] = m_Known.try_emplace(glyph, glyph);
    if (isNew) {
        known->second = LookUp(glyph);
    }
    return known->second;
}

std::uint32_t VerticalGlyphs::LookUp(std::uint32_t glyph) const {
    const std::unique_ptr<hb_set_t, Release> reached(hb_set_create());
    hb_codepoint_t lookup = HB_SET_VALUE_INVALID;
    while (hb_set_next(m_Lookups.get(), &lookup)) {
        hb_set_clear(reached.get());
        hb_set_add(reached.get(), glyph);
        hb_ot_layout_lookup_substitute_closure(m_Face.get(), lookup, reached.get());
        hb_set_del(reached.get(), glyph);
        if (!hb_set_is_empty(reached.get())) {
            return hb_set_get_min(reached.get());
        }
    }
    return glyph;
}

}  // namespace kv::font
