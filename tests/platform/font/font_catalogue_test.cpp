#include "platform/font/font_catalogue.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <tuple>

#include <gtest/gtest.h>

#include "platform/font/font_enum.h"
#include "platform/font/font_scan.h"
#include "tests/platform/device/text_fixture.h"

namespace kv::font {
namespace {

using device::test::Bytes;

struct Delivered {
    std::vector<LOGFONTA> fonts;
    std::size_t wanted = SIZE_MAX;
};

int Collect(const ENUMLOGFONTA* font, const NEWTEXTMETRICA* /*metric*/, DWORD /*type*/,
            LPARAM list) {
    auto& delivered = *reinterpret_cast<Delivered*>(list);
    delivered.fonts.push_back(font->elfLogFont);
    return delivered.fonts.size() < delivered.wanted ? 1 : 0;
}

Delivered Enumerate(const char* family, std::size_t wanted = SIZE_MAX) {
    Delivered delivered;
    delivered.wanted = wanted;
    EnumFontFamiliesA(GetDC(nullptr), family, Collect, reinterpret_cast<LPARAM>(&delivered));
    return delivered;
}

TEST(FontEnum, FindsAFamilyByEachOfItsNamesWhateverTheCase) {
    using Case = std::tuple<const char*, const char*, BYTE>;
    // A well-known face that a stand-in draws keeps the name it was asked by.
    for (const auto& [asked, faceName, charSet] : {Case{"ipagothic", "IPAゴシック", BYTE{128}},
                                                   {"IPAゴシック", "IPAゴシック", BYTE{128}},
                                                   {"@ipaMincho", "@IPA明朝", BYTE{128}},
                                                   {"liberation SANS", "Liberation Sans", BYTE{0}},
                                                   {"ｍｓ ゴシック", "ｍｓ ゴシック", BYTE{128}},
                                                   {"@MS PMincho", "@MS PMincho", BYTE{128}},
                                                   {"Arial", "Arial", BYTE{0}}}) {
        const Delivered found = Enumerate(Bytes(asked).c_str());
        ASSERT_FALSE(found.fonts.empty()) << asked;
        EXPECT_EQ(found.fonts[0].lfFaceName, Bytes(faceName)) << asked;
        EXPECT_EQ(found.fonts[0].lfCharSet, charSet) << asked;
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
    for (const auto& [name, expected] :
         {std::pair("IPAゴシック", 1), {"@IPAゴシック", 1}, {"Liberation Mono", 1}, {"Arial", 0}}) {
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

std::string FileOf(const char* family) {
    const FaceRecord& face = FontCatalogue::Get().Find(family)->family->faces.front();
    std::ifstream file(face.file, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// With a directory of its own for all the fonts there are.
TEST(FontScan, CopesWithFontsThatSayLittleOrOdd) {
    std::string bare = FileOf("Liberation Sans");
    bare.replace(bare.find("OS/2"), 4, "OS/X");
    const std::string cut = FileOf("IPAGothic").substr(0, 3000);
    std::string folder = testing::TempDir() + "kvfontsXXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    std::ofstream(folder + "/bare.ttf", std::ios::binary) << bare;
    std::ofstream(folder + "/cut.ttf", std::ios::binary) << cut;
    std::ofstream(folder + "/junk.ttf") << "no font at all";
    const std::string conf = folder + "/fonts.conf";
    std::ofstream(conf) << "<fontconfig><dir>" << folder << "</dir><cachedir>" << folder
                        << "</cachedir></fontconfig>";
    setenv("FONTCONFIG_FILE", conf.c_str(), 1);
    const FontCatalogue catalogue(ScanFonts());
    unsetenv("FONTCONFIG_FILE");
    std::filesystem::remove_all(folder);
    ASSERT_EQ(catalogue.Families().size(), 1U);
    const FaceRecord& face = catalogue.Find("Liberation Sans")->family->faces.front();
    EXPECT_EQ(face.charSet, 0);
    // Heights for line spacing take the place of those that are missing.
    EXPECT_EQ(face.metrics.ascent, 1854);
    EXPECT_EQ(face.metrics.averageWidth, 1024);
}

}  // namespace
}  // namespace kv::font
