#include <cerrno>

#include <gtest/gtest.h>
#include <platform/exception.h>
#include <platform/string.h>

#include "platform/text/mbcs.h"

namespace {

TEST(String, TakesItsOwnTextAndKeepsZeroBytes) {
    CString text("abcdef");
    text = static_cast<const char*>(text) + 2;
    EXPECT_STREQ(text, "cdef");
    text += text;
    EXPECT_EQ(text, "cdefcdef");

    const CString bytes("a\0b", 3);
    EXPECT_EQ(bytes.GetLength(), 3);
    EXPECT_FALSE(bytes == "a");
    EXPECT_THROW(CString("x").SetAt(1, 'y'), CInvalidArgException);
}

TEST(StringArray, ChecksItsRange) {
    CStringArray list;
    EXPECT_THROW(list[0], CInvalidArgException);
    EXPECT_EQ(list.Add("x"), 0);
    EXPECT_EQ(list.Add(list[0]), 1);
    EXPECT_THROW(list.GetAt(-1), CInvalidArgException);
    EXPECT_THROW(list.GetAt(2), CInvalidArgException);
    EXPECT_EQ(list.GetAt(1), "x");
}

TEST(Multibyte, LeadBytesAreExactlyTheCodePagesTwoRanges) {
    for (unsigned int byte = 0; byte < 256; ++byte) {
        const bool lead = (byte > 0x80 && byte < 0xA0) || (byte > 0xDF && byte < 0xFD);
        EXPECT_EQ(kv::_ismbblead(byte), lead) << byte;
    }
}

TEST(Multibyte, CountsCharactersWithALoneLeadByteAtTheEnd) {
    struct Case {
        const char* text;
        std::size_t characters;
        std::size_t firstBytes;
        unsigned int code;
    };
    const Case cases[] = {
        {"", 0, 0, 0},
        {"\x82", 1, 1, 0x82},
        {"\xB1z", 2, 1, 0xB1},               // half-width katakana
        {"\x83\x5C\x83\x5C", 2, 2, 0x835C},  // trail byte like a backslash
        {"\x82\xA0\xFC", 2, 2, 0x82A0},
        {"\xFC\xFC\xFC", 2, 2, 0xFCFC},
        {"\xFD\x80\xA0", 3, 1, 0xFD},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(kv::_mbslen(c.text), c.characters) << c.text;
        EXPECT_EQ(kv::CharBytes(c.text), c.firstBytes) << c.text;
        EXPECT_EQ(kv::_mbsinc(c.text), c.text + c.firstBytes) << c.text;
        EXPECT_EQ(kv::CharCode(c.text), c.code) << c.text;
    }
}

TEST(Multibyte, ComparesWithoutCase) {
    EXPECT_EQ(kv::_mbsicmp(".TgA", ".tga"), 0);
    EXPECT_EQ(kv::_mbsicmp("\x82\x60", "\x82\x81"), 0);  // full-width A
    EXPECT_NE(kv::_mbsicmp("\x83\x41", "\x83\x61"), 0);  // letters as trail bytes
    EXPECT_LT(kv::_mbsicmp("a", "B"), 0);
    EXPECT_GT(kv::_mbsicmp("ab", "A"), 0);
    EXPECT_LT(kv::_mbsicmp("", "\x82"), 0);
}

TEST(Multibyte, SplitsPaths) {
    const struct {
        const char* path;
        const char* parts[4];
    } cases[] = {
        {"", {"", "", "", ""}},
        {"c:\\dir.d\\a.b.TGA", {"c:", "\\dir.d\\", "a.b", ".TGA"}},
        {"/dir.tga/name", {"", "/dir.tga/", "name", ""}},
        {"x:.tga", {"x:", "", "", ".tga"}},
        {"1:a.", {"", "", "1:a", "."}},
        {"\x95\x5C.bmp", {"", "", "\x95\x5C", ".bmp"}},          // trail byte like a backslash
        {"\xE5\x83\x8F.tga", {"", "", "\xE5\x83\x8F", ".tga"}},  // UTF-8, a lead byte at its end
        {"a\\\x83", {"", "a\\", "\x83", ""}},
    };
    char drive[3], directory[10], name[8], extension[8];
    for (const auto& c : cases) {
        EXPECT_EQ(kv::_splitpath_s(c.path, drive, directory, name, extension), 0) << c.path;
        const char* const parts[] = {drive, directory, name, extension};
        for (int i = 0; i < 4; ++i) {
            EXPECT_STREQ(parts[i], c.parts[i]) << c.path;
        }
    }
    EXPECT_EQ(kv::_splitpath_s("a.1234567", drive, directory, name, extension), ERANGE);
    EXPECT_STREQ(name, "");
    EXPECT_EQ(kv::_splitpath_s("a.123456", drive, directory, name, extension), 0);
    EXPECT_EQ(kv::_splitpath_s(nullptr, drive, directory, name, extension), EINVAL);
}

}  // namespace
