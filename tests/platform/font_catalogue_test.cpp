#include "platform/gdi/font_catalogue.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "platform/gdi/font_enum.h"
#include "platform/gdi/font_scan.h"
#include "tests/platform/text_fixture.h"

namespace kv::gdi {
namespace {

using test::Bytes;

struct Delivered {
    std::vector<LOGFONTA> fonts;
    std::vector<NEWTEXTMETRICA> metrics;
    std::size_t wanted = SIZE_MAX;
};

int Collect(const ENUMLOGFONTA* font, const NEWTEXTMETRICA* metric, DWORD /*type*/, LPARAM list) {
    auto& delivered = *reinterpret_cast<Delivered*>(list);
    delivered.fonts.push_back(font->elfLogFont);
    delivered.metrics.push_back(*metric);
    return delivered.fonts.size() < delivered.wanted ? 1 : 0;
}

Delivered Enumerate(const char* family, std::size_t wanted = SIZE_MAX) {
    Delivered delivered;
    delivered.wanted = wanted;
    EnumFontFamiliesA(GetDC(nullptr), family, Collect, reinterpret_cast<LPARAM>(&delivered));
    return delivered;
}

TEST(FontEnum, FindsAFamilyByEachOfItsNamesWhateverTheCase) {
    struct Case {
        const char* asked;
        const char* faceName;
        BYTE charSet;
    };
    // A well-known face that a stand-in draws keeps the name it was asked by.
    for (const Case& item : {Case{"ipagothic", "IPAゴシック", 128},
                             {"IPAゴシック", "IPAゴシック", 128},
                             {"@ipaMincho", "@IPA明朝", 128},
                             {"liberation SANS", "Liberation Sans", 0},
                             {"ｍｓ ゴシック", "ｍｓ ゴシック", 128},
                             {"@MS PMincho", "@MS PMincho", 128},
                             {"Arial", "Arial", 0}}) {
        const Delivered found = Enumerate(Bytes(item.asked).c_str());
        ASSERT_FALSE(found.fonts.empty()) << item.asked;
        EXPECT_EQ(found.fonts[0].lfFaceName, Bytes(item.faceName)) << item.asked;
        EXPECT_EQ(found.fonts[0].lfCharSet, item.charSet) << item.asked;
        EXPECT_EQ(found.metrics[0].tmCharSet, item.charSet) << item.asked;
    }
    for (const char* name : {"ＭＳ 明朝", "ＭＳ Ｐゴシック", "ＭＳ Ｐ明朝", "MS Gothic",
                             "MS Mincho", "MS PGothic", "Times New Roman", "Courier New"}) {
        EXPECT_FALSE(Enumerate(Bytes(name).c_str()).fonts.empty()) << name;
    }
}

TEST(FontEnum, FindsNothingByAnyOtherName) {
    for (const char* name : {"No Such Face", "", "@", "IPAGothi", "IPAGothic ", "IPA", "sans-serif",
                             "@Liberation Sans", "@Arial", "@@IPAGothic", "ＭＳ ゴチック"}) {
        EXPECT_TRUE(Enumerate(Bytes(name).c_str()).fonts.empty()) << name;
    }
}

TEST(FontEnum, DeliversTheStylesOfANamedFamilyThePlainOneFirst) {
    const Delivered styles = Enumerate("Liberation Serif");
    ASSERT_EQ(styles.fonts.size(), 4U);
    const std::pair<LONG, BYTE> expected[] = {{400, 0}, {700, 0}, {400, 1}, {700, 1}};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(std::pair(styles.fonts[i].lfWeight, styles.fonts[i].lfItalic), expected[i]);
    }
    EXPECT_EQ(Enumerate("Liberation Serif", 2).fonts.size(), 2U);
}

TEST(FontEnum, ListsEachFamilyOnceAndItsVerticalFaceIfJapanese) {
    std::vector<std::string> names;
    for (const LOGFONTA& font : Enumerate(nullptr).fonts) {
        names.emplace_back(font.lfFaceName);
        EXPECT_TRUE(font.lfFaceName[0] != '@' || font.lfCharSet == 128) << names.back();
        EXPECT_STREQ(Enumerate(font.lfFaceName).fonts.at(0).lfFaceName, font.lfFaceName);
    }
    const std::pair<const char*, int> counts[] = {{"IPAゴシック", 1},
                                                  {"@IPAゴシック", 1},
                                                  {"Liberation Mono", 1},
                                                  {"@Liberation Mono", 0},
                                                  {"Arial", 0}};
    for (const auto& [name, expected] : counts) {
        EXPECT_EQ(std::count(names.begin(), names.end(), Bytes(name)), expected) << name;
    }
}

FontFamily MakeFamily(const char* name, BYTE charSet) {
    const FaceRecord face{
        "", 0, "", "", 400, false, false, charSet, {1000, 800, 200, 0, 500, 1000}};
    return {Bytes(name), {Bytes(name)}, {face}};
}

std::string Vertical(const std::string& name) {
    return std::string("@").append(name);
}

TEST(FontCatalogue, CutsALongNameBetweenCharactersAndFindsItAgain) {
    const std::string name = Bytes("aとてもとてもとてもながいなまえのしょたい");
    std::vector<FontFamily> families{MakeFamily("A", 0)};
    families.push_back(MakeFamily("aとてもとてもとてもながいなまえのしょたい", 128));
    const FontCatalogue catalogue(std::move(families));
    for (const auto& [asked, expected] :
         {std::pair(name, name.substr(0, 31)),
          std::pair(Vertical(name), Vertical(name.substr(0, 29)))}) {
        EXPECT_EQ(catalogue.Find(asked).value().faceName, expected);
        EXPECT_EQ(catalogue.Find(expected).value().faceName, expected);
    }
}

TEST(FontCatalogue, StandsInWithWhatIsThere) {
    EXPECT_EQ(FontCatalogue({}).Default(128), nullptr);
    EXPECT_FALSE(FontCatalogue({}).Find("Arial").has_value());
    const FontCatalogue latin({MakeFamily("Some Face", 0)});
    EXPECT_EQ(latin.Default(128)->name, "Some Face");
    const FontCatalogue both({MakeFamily("Some Face", 0), MakeFamily("Other", 128)});
    EXPECT_EQ(both.Default(128)->name, "Other");
    const FontCatalogue own({MakeFamily("IPAGothic", 128), MakeFamily("MS Gothic", 128)});
    EXPECT_EQ(own.Find("MS Gothic")->family->name, "MS Gothic");
}

/// A directory that fontconfig takes for all the fonts there are.
class FontDirectory {
  public:
    FontDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "kvfontsXXXXXX").string();
        m_Path = mkdtemp(name.data());
        std::ofstream(m_Path / "fonts.conf")
            << "<fontconfig><dir>" << m_Path.string() << "</dir><cachedir>" << m_Path.string()
            << "</cachedir></fontconfig>";
        setenv("FONTCONFIG_FILE", (m_Path / "fonts.conf").c_str(), 1);
    }
    FontDirectory(const FontDirectory&) = delete;
    FontDirectory& operator=(const FontDirectory&) = delete;
    ~FontDirectory() {
        unsetenv("FONTCONFIG_FILE");
        std::filesystem::remove_all(m_Path);
    }

    void Add(const char* name, const std::string& bytes) {
        std::ofstream(m_Path / name, std::ios::binary) << bytes;
    }

  private:
    std::filesystem::path m_Path;
};

std::string FileOf(const char* family) {
    const FaceRecord& face = FontCatalogue::Get().Find(family)->family->faces.front();
    std::ifstream file(face.file, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::size_t TableAt(const std::string& font, const char* tag) {
    const std::size_t entry = font.find(tag);
    std::size_t offset = 0;
    for (std::size_t i = entry + 8; i < entry + 12; ++i) {
        offset = offset << 8 | static_cast<unsigned char>(font[i]);
    }
    return offset;
}

/// States 2,000 units as the average width; the em is 2,048.
std::string WithWideAverage(std::string font) {
    font.replace(TableAt(font, "OS/2") + 2, 2, "\x07\xD0");
    return font;
}

TEST(FontScan, CopesWithFontsThatSayLittleOrOdd) {
    std::string bare = FileOf("Liberation Sans");
    bare.replace(bare.find("OS/2"), 4, "OS/X");
    std::string flat = FileOf("DejaVu Sans");
    flat.replace(TableAt(flat, "OS/2") + 74, 4, 4, '\0');
    FontDirectory directory;
    directory.Add("bare.ttf", bare);
    directory.Add("flat.ttf", flat);
    directory.Add("average.ttf", WithWideAverage(FileOf("IPAMincho")));
    directory.Add("latin_average.ttf", WithWideAverage(FileOf("Liberation Serif")));
    directory.Add("cut.ttf", FileOf("IPAGothic").substr(0, 3000));
    directory.Add("junk.ttf", "no font at all");
    const FontCatalogue catalogue(ScanFonts());
    const auto metrics = [&](const char* name) {
        return catalogue.Find(name).value().family->faces.front().metrics;
    };
    EXPECT_EQ(catalogue.Families().size(), 4U);
    EXPECT_EQ(catalogue.Find("Liberation Sans").value().family->CharSet(), 0);
    // Heights for line spacing take the place of those that are missing or 0.
    EXPECT_EQ(metrics("Liberation Sans").ascent, 1854);
    EXPECT_EQ(metrics("Liberation Sans").averageWidth, 1024);
    EXPECT_EQ(metrics("DejaVu Sans").descent, 483);
    EXPECT_EQ(metrics("IPAMincho").averageWidth, 1024);
    EXPECT_EQ(metrics("Liberation Serif").averageWidth, 2000);
}

}  // namespace
}  // namespace kv::gdi
