#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <platform/types.h>

namespace kv::gdi {

/// What a face says of itself, in font units; sound whatever the file holds.
struct DesignMetrics {
    int unitsPerEm;
    int ascent;   ///< of the cell, above the baseline
    int descent;  ///< of the cell, below it; ascent + descent is above 0
    int externalLeading;
    int averageWidth;
    int greatestWidth;
};

/// One outline font in a file.
struct FaceRecord {
    std::string file;
    int index;  ///< of the face in the file
    std::string fullName;
    std::string style;
    int weight;  ///< 400 normal, 700 bold
    bool italic;
    bool fixedPitch;
    BYTE charSet;
    DesignMetrics metrics;
};

/// Faces that share a name, the plainest first; never empty.
struct FontFamily {
    std::string name;                ///< the Japanese name where there is one
    std::vector<std::string> names;  ///< all, this one included
    std::vector<FaceRecord> faces;

    BYTE CharSet() const { return faces.front().charSet; }
    /// The face nearest to a weight and slant.
    const FaceRecord& Select(int weight, bool italic) const;
};

/// The outcome of a look-up.
struct FoundFamily {
    const FontFamily* family;
    std::string faceName;  ///< at most 31 bytes, "@" included
    bool vertical;         ///< the "@" face
};

/// The installed families. Read-only once made, so that every thread may use it.
class FontCatalogue {
  public:
    explicit FontCatalogue(std::vector<FontFamily> families);
    FontCatalogue(const FontCatalogue&) = delete;
    FontCatalogue& operator=(const FontCatalogue&) = delete;

    /// The process's catalogue, made at the first call.
    static const FontCatalogue& Get();

    const std::vector<FontFamily>& Families() const { return m_Families; }

    /// The family of exactly this name, or the stand-in for a well-known one; case does not matter.
    std::optional<FoundFamily> Find(std::string_view name) const;

    /// The family that draws for a character set when nothing better is known; null when there is
    /// no font at all.
    const FontFamily* Default(BYTE charSet) const;

  private:
    struct Entry {
        const FontFamily* family;
        bool vertical;
        bool standIn;
    };

    void AddFamily(const FontFamily& family);
    void AddName(std::string_view name, const FontFamily& family, bool standIn);
    void AddStandIns();
    const FontFamily* StandIn(const char* const* candidates, BYTE charSet) const;

    std::vector<FontFamily> m_Families;
    std::unordered_map<std::string, Entry> m_Entries;  ///< by folded name
};

}  // namespace kv::gdi
