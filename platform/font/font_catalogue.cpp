// The catalogue of families and the stand-ins for well-known ones.

#include "platform/font/font_catalogue.h"

#include <algorithm>
#include <array>

#include <platform/font.h>

#include "platform/font/font_name.h"
#include "platform/font/font_scan.h"

namespace kv::font {

namespace {

// Well-known faces that documents name and this system seldom has, and the families that draw for
// them, the best first. The end of each list is null.
struct WellKnownFace {
    const char* names[2];
    BYTE charSet;
    const char* candidates[6];
};

constexpr std::array<WellKnownFace, 7> kWellKnownFaces{
    {{{"ＭＳ ゴシック", "MS Gothic"},
      SHIFTJIS_CHARSET,
      {"IPAGothic", "TakaoGothic", "VL Gothic", "Noto Sans Mono CJK JP", "Noto Sans CJK JP"}},
     {{"ＭＳ Ｐゴシック", "MS PGothic"},
      SHIFTJIS_CHARSET,
      {"IPAPGothic", "TakaoPGothic", "VL PGothic", "Noto Sans CJK JP", "IPAGothic"}},
     {{"ＭＳ 明朝", "MS Mincho"},
      SHIFTJIS_CHARSET,
      {"IPAMincho", "TakaoMincho", "Noto Serif CJK JP", "IPAGothic"}},
     {{"ＭＳ Ｐ明朝", "MS PMincho"},
      SHIFTJIS_CHARSET,
      {"IPAPMincho", "TakaoPMincho", "Noto Serif CJK JP", "IPAMincho", "IPAPGothic"}},
     {{"Arial", nullptr}, 0, {"Liberation Sans", "Arimo", "Nimbus Sans", "DejaVu Sans"}},
     {{"Times New Roman", nullptr},
      0,
      {"Liberation Serif", "Tinos", "Nimbus Roman", "DejaVu Serif"}},
     {{"Courier New", nullptr},
      0,
      {"Liberation Mono", "Cousine", "Nimbus Mono PS", "DejaVu Sans Mono"}}}};

constexpr const char* kDefaultJapanese = "MS Gothic";
constexpr const char* kDefaultLatin = "Arial";

}  // namespace

FontCatalogue::FontCatalogue(std::vector<FontFamily> families) : m_Families(std::move(families)) {
    for (const FontFamily& family : m_Families) {
        AddFamily(family);
    }
    AddStandIns();
}

const FontCatalogue& FontCatalogue::Get() {
    static const FontCatalogue catalogue(ScanFonts());
    return catalogue;
}

void FontCatalogue::AddFamily(const FontFamily& family) {
    for (const std::string& name : family.names) {
        AddName(name, family, false);
    }
}

// A name is known whole and as a record's field cuts it; what came first keeps it.
void FontCatalogue::AddName(std::string_view name, const FontFamily& family, bool standIn) {
    const std::string plain = FoldName(name);
    m_Entries.try_emplace(plain, Entry{&family, false, standIn});
    m_Entries.try_emplace(CutName(plain, kFaceNameBytes), Entry{&family, false, standIn});
    if (family.CharSet() == SHIFTJIS_CHARSET) {
        const std::string vertical = "@" + plain;
        m_Entries.try_emplace(vertical, Entry{&family, true, standIn});
        m_Entries.try_emplace(CutName(vertical, kFaceNameBytes), Entry{&family, true, standIn});
    }
}

void FontCatalogue::AddStandIns() {
    for (const WellKnownFace& face : kWellKnownFaces) {
        const FontFamily* const family = StandIn(face.candidates, face.charSet);
        for (const char* name : face.names) {
            const std::string converted = name != nullptr ? NameFromUtf8(name) : std::string();
            if (family != nullptr && !converted.empty()) {
                AddName(converted, *family, true);
            }
        }
    }
}

const FontFamily* FontCatalogue::StandIn(const char* const* candidates, BYTE charSet) const {
    for (; *candidates != nullptr; ++candidates) {
        const auto entry = m_Entries.find(FoldName(*candidates));
        if (entry != m_Entries.end()) {
            return entry->second.family;
        }
    }
    const auto same =
        std::find_if(m_Families.begin(), m_Families.end(),
                     [charSet](const FontFamily& family) { return family.CharSet() == charSet; });
    if (same != m_Families.end()) {
        return &*same;
    }
    return m_Families.empty() ? nullptr : &m_Families.front();
}

std::optional<FoundFamily> FontCatalogue::Find(std::string_view name) const {
    const auto entry = m_Entries.find(FoldName(name));
    if (entry == m_Entries.end()) {
        return std::nullopt;
    }
    const auto& [family, vertical, standIn] = entry->second;
    const std::string own = (vertical ? "@" : "") + family->name;
    return FoundFamily{family, CutName(standIn ? name : own, kFaceNameBytes), vertical};
}

const FontFamily* FontCatalogue::Default(BYTE charSet) const {
    const auto entry =
        m_Entries.find(FoldName(charSet == SHIFTJIS_CHARSET ? kDefaultJapanese : kDefaultLatin));
    return entry == m_Entries.end() ? nullptr : entry->second.family;
}

}  // namespace kv::font
