#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <platform/types.h>

#include "platform/font/font_family.h"

namespace kv::font {

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

}  // namespace kv::font
