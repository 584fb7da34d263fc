// The faces that a thread has open, and what was read from them.

#include "platform/font/face_cache.h"

#include <algorithm>
#include <vector>

#include FT_ADVANCES_H

namespace kv::font {

namespace {

// A line draws from at most three faces; a program from a few families in four styles.
constexpr std::size_t kMaxFaces = 24;
// At most 4 MB of points a face: some two thousand kanji.
constexpr std::size_t kMaxPoints = std::size_t{1} << 18;

// FreeType's objects of one thread, closed when it ends.
class ThreadFaces {
  public:
    std::shared_ptr<Face> Find(const FaceRecord& record) {
        const auto found = std::find_if(m_Faces.begin(), m_Faces.end(), [&](const Entry& entry) {
            return entry.record == &record;
        });
        if (found == m_Faces.end()) {
            return Open(record);
        }
        std::rotate(m_Faces.begin(), found, found + 1);
        return m_Faces.front().face;
    }

  private:
    struct Entry {
        const FaceRecord* record;
        std::shared_ptr<Face> face;
    };

    std::shared_ptr<Face> Open(const FaceRecord& record) {
        FreeTypeFace opened =
            m_Library ? OpenFace(m_Library.get(), record.file, record.index) : nullptr;
        if (!opened) {
            return nullptr;
        }
        if (m_Faces.size() == kMaxFaces) {
            m_Faces.pop_back();
        }
        auto face = std::make_shared<Face>(std::move(opened), record);
        m_Faces.insert(m_Faces.begin(), {&record, face});
        return face;
    }

    FreeTypeLibrary m_Library = OpenFreeType();
    std::vector<Entry> m_Faces;  // the last used first
};

}  // namespace

std::uint32_t Face::GlyphOf(std::uint32_t scalar) {
    const auto [known, isNew] = m_Glyphs.try_emplace(scalar, 0);
    if (isNew) {
        known->second = FT_Get_Char_Index(m_Face.get(), scalar);
    }
    return known->second;
}

std::uint32_t Face::VerticalAlternate(std::uint32_t glyph) {
    if (!m_Vertical) {
        m_Vertical.emplace(m_Record.file, m_Record.index);
    }
    return m_Vertical->Alternate(glyph);
}

double Face::Advance(std::uint32_t glyph) {
    const auto [known, isNew] = m_Advances.try_emplace(glyph, 0.0);
    if (isNew) {
        FT_Fixed advance = 0;
        FT_Get_Advance(m_Face.get(), glyph, FT_LOAD_NO_SCALE, &advance);
        known->second = static_cast<double>(advance);
    }
    return known->second;
}

const GlyphOutline& Face::Outline(std::uint32_t glyph, bool embolden) {
    const std::uint64_t key = std::uint64_t{glyph} << 1 | (embolden ? 1U : 0U);
    const auto known = m_Outlines.find(key);
    if (known != m_Outlines.end()) {
        return known->second;
    }
    GlyphOutline outline = ReadGlyph(m_Face.get(), glyph, embolden);
    if (m_OutlinePoints + outline.points.size() > kMaxPoints) {
        m_Outlines.clear();
        m_OutlinePoints = 0;
    }
    m_OutlinePoints += outline.points.size();
    return m_Outlines.emplace(key, std::move(outline)).first->second;
}

std::shared_ptr<Face> ThreadFace(const FaceRecord& record) {
    thread_local ThreadFaces faces;
    return faces.Find(record);
}

}  // namespace kv::font
