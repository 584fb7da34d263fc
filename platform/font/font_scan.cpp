// The fonts that fontconfig lists, read and ordered by family.

#include "platform/font/font_scan.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <tuple>

#include <fontconfig/fontconfig.h>
#include <platform/font.h>

#include "platform/font/font_name.h"
#include "platform/font/free_type.h"

#include FT_TRUETYPE_TABLES_H

namespace kv::font {

namespace {

template <auto kDestroy>
struct Destroy {
    template <typename T>
    void operator()(T* object) const {
        kDestroy(object);
    }
};

using Config = std::unique_ptr<FcConfig, Destroy<FcConfigDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Destroy<FcPatternDestroy>>;
using ObjectSet = std::unique_ptr<FcObjectSet, Destroy<FcObjectSetDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Destroy<FcFontSetDestroy>>;

// Bit 17 of a font's code page ranges: Japanese.
constexpr FT_ULong kJapaneseCodePage = FT_ULong{1} << 17;

const char* Text(const FcPattern& pattern, const char* object, int position) {
    FcChar8* text = nullptr;
    const FcResult result = FcPatternGetString(&pattern, object, position, &text);
    return result == FcResultMatch ? reinterpret_cast<const char*>(text) : nullptr;
}

std::string FirstName(const FcPattern& pattern, const char* object) {
    const char* const text = Text(pattern, object, 0);
    return text != nullptr ? NameFromUtf8(text) : std::string();
}

// A face's family names by language. A font of a large typographic family lists that one's name
// first; the last of a language is the name of the group of at most four styles, which counts
// here.
std::map<std::string, std::string> FamilyNames(const FcPattern& pattern) {
    std::map<std::string, std::string> names;
    for (int i = 0;; ++i) {
        const char* const family = Text(pattern, FC_FAMILY, i);
        if (family == nullptr) {
            return names;
        }
        const char* const language = Text(pattern, FC_FAMILYLANG, i);
        const std::string name = NameFromUtf8(family);
        if (!name.empty()) {
            names[language != nullptr ? language : ""] = name;
        }
    }
}

std::string PreferredName(const std::map<std::string, std::string>& names) {
    for (const char* language : {"ja", "en"}) {
        const auto found = names.find(language);
        if (found != names.end()) {
            return found->second;
        }
    }
    return names.begin()->second;
}

// The heights are the cell's: by the fields made for clipping, not those for line spacing.
void ReadHeights(const FT_FaceRec& face, const TT_OS2* os2, DesignMetrics& metrics) {
    const auto sound = [&metrics] {
        return metrics.ascent + metrics.descent > 0 &&
               metrics.ascent + metrics.descent <= 16 * metrics.unitsPerEm;
    };
    metrics.ascent = os2 != nullptr ? os2->usWinAscent : 0;
    metrics.descent = os2 != nullptr ? os2->usWinDescent : 0;
    if (!sound()) {
        metrics.ascent = face.ascender;
        metrics.descent = -face.descender;
    }
    if (!sound()) {
        metrics.ascent = metrics.unitsPerEm;
        metrics.descent = 0;
    }
    const int cell = metrics.ascent + metrics.descent;
    metrics.externalLeading = std::max(0, face.height - cell);
}

DesignMetrics ReadMetrics(const FT_FaceRec& face, const TT_OS2* os2, bool japanese) {
    DesignMetrics metrics{};
    metrics.unitsPerEm = face.units_per_EM;
    ReadHeights(face, os2, metrics);
    const int half = std::max(1, metrics.unitsPerEm / 2);
    metrics.averageWidth = os2 != nullptr ? os2->xAvgCharWidth : half;
    // Newer tables average all glyphs, so that kanji hide what a single-byte character takes.
    const bool nearlyFull = metrics.averageWidth * 4 > metrics.unitsPerEm * 3;
    if (metrics.averageWidth <= 0 || (japanese && nearlyFull)) {
        metrics.averageWidth = half;
    }
    metrics.greatestWidth = std::max<int>(face.max_advance_width, metrics.averageWidth);
    return metrics;
}

// Fills in what the font file itself says; false for a file that does not open as an outline font.
bool ReadFace(FT_Library library, FaceRecord& record) {
    const FreeTypeFace opened = OpenFace(library, record.file, record.index);
    if (!opened || !FT_IS_SCALABLE(opened) || opened->units_per_EM == 0) {
        return false;
    }
    // Null for a font without the table.
    const auto* const os2 =
        static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(opened.get(), FT_SFNT_OS2));
    const bool japanese = os2 != nullptr && (os2->ulCodePageRange1 & kJapaneseCodePage) != 0;
    record.fixedPitch = FT_IS_FIXED_WIDTH(opened);
    record.charSet = japanese ? SHIFTJIS_CHARSET : 0;
    record.metrics = ReadMetrics(*opened, os2, japanese);
    return true;
}

// Weight and slant as the catalogue has them: the font's own tables do not know the named
// instances of a font with variation axes.
void ReadStyle(const FcPattern& pattern, FaceRecord& record) {
    double weight = FC_WEIGHT_REGULAR;
    FcPatternGetDouble(&pattern, FC_WEIGHT, 0, &weight);
    record.weight = static_cast<int>(std::lround(FcWeightToOpenTypeDouble(weight)));
    int slant = FC_SLANT_ROMAN;
    FcPatternGetInteger(&pattern, FC_SLANT, 0, &slant);
    record.italic = slant != FC_SLANT_ROMAN;
}

using FamilyMap = std::map<std::string, FontFamily>;

void AddPattern(FT_Library library, const FcPattern& pattern, FamilyMap& families) {
    const std::map<std::string, std::string> names = FamilyNames(pattern);
    const char* const file = Text(pattern, FC_FILE, 0);
    FaceRecord face{};
    if (names.empty() || file == nullptr ||
        FcPatternGetInteger(&pattern, FC_INDEX, 0, &face.index) != FcResultMatch) {
        return;
    }
    face.file = file;
    face.fullName = FirstName(pattern, FC_FULLNAME);
    face.style = FirstName(pattern, FC_STYLE);
    ReadStyle(pattern, face);
    if (!ReadFace(library, face)) {
        return;
    }
    FontFamily& family = families[FoldName(PreferredName(names))];
    if (family.faces.empty()) {
        family.name = PreferredName(names);
    }
    for (const auto& [language, name] : names) {
        if (std::find(family.names.begin(), family.names.end(), name) == family.names.end()) {
            family.names.push_back(name);
        }
    }
    family.faces.push_back(std::move(face));
}

// Puts the face first that stands for the family, and drops second copies of a style, which come
// from links to a file.
void Arrange(FontFamily& family) {
    const auto place = [](const FaceRecord& face) {
        return std::tuple(face.italic, std::abs(face.weight - kNormalWeight), face.weight);
    };
    std::sort(family.faces.begin(), family.faces.end(),
              [&](const FaceRecord& a, const FaceRecord& b) {
                  return std::tuple_cat(place(a), std::tie(a.file, a.index)) <
                         std::tuple_cat(place(b), std::tie(b.file, b.index));
              });
    const auto end =
        std::unique(family.faces.begin(), family.faces.end(),
                    [&](const FaceRecord& a, const FaceRecord& b) { return place(a) == place(b); });
    family.faces.erase(end, family.faces.end());
}

FontSet ListOutlineFonts(FcConfig* config) {
    const Pattern wanted(FcPatternCreate());
    FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    // Of a font with variation axes the named instances count, not the design space as a whole.
    FcPatternAddBool(wanted.get(), FC_VARIABLE, FcFalse);
    const ObjectSet objects(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_FULLNAME, FC_STYLE,
                                             FC_WEIGHT, FC_SLANT, FC_FILE, FC_INDEX,
                                             static_cast<char*>(nullptr)));
    return FontSet(FcFontList(config, wanted.get(), objects.get()));
}

}  // namespace

std::vector<FontFamily> ScanFonts() {
    // A configuration of its own: nothing of what the application does with fontconfig is touched.
    const Config config(FcInitLoadConfigAndFonts());
    const FreeTypeLibrary library = OpenFreeType();
    if (!config || !library) {
        return {};
    }
    FamilyMap families;
    const FontSet fonts = ListOutlineFonts(config.get());
    for (int i = 0; fonts && i < fonts->nfont; ++i) {
        AddPattern(library.get(), *fonts->fonts[i], families);
    }
    std::vector<FontFamily> result;
    for (auto& [key, family] : families) {
        Arrange(family);
        result.push_back(std::move(family));
    }
    return result;
}

}  // namespace kv::font
