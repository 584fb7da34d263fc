#include "platform/text/codepage.h"

#include <string>

#include <KVUtf8.h>
#include <gtest/gtest.h>

namespace {

TEST(Utf8, KnownTextConvertsBothWays) {
    const std::pair<const char*, const char*> cases[] = {
        {"\\~", "\\~"},
        {"\uFF2D\uFF33 \u30B4\u30B7\u30C3\u30AF",
         "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E"},
        {"\uFF71\uFF9F", "\xB1\xDF"},
        {"\u8868\u80FD", "\x95\x5C\x94\x5C"},  // trail bytes like a backslash
        {"\u2460\u9ED1", "\x87\x40\xFC\x4B"},  // vendor rows
    };
    for (const auto& [utf8, bytes] : cases) {
        EXPECT_EQ(KVFromUtf8(utf8), bytes) << utf8;
        EXPECT_EQ(KVToUtf8(bytes), utf8);
    }
    EXPECT_EQ(KVToUtf8("\x85\x40z\x80\xA0\xFF a\x81"), "\uFFFDz\uFFFD\uFFFD\uFFFD a\uFFFD");
    EXPECT_TRUE(KVFromUtf8(nullptr).IsEmpty());
    EXPECT_TRUE(KVToUtf8(nullptr).empty());
}

TEST(Utf8, OtherSpellingsOfAQuarrelledSignConvert) {
    EXPECT_EQ(KVFromUtf8("\u301C\uFF5E\u2014\u2015\u2016\u2225\u2212\uFF0D"),
              "\x81\x60\x81\x60\x81\x5C\x81\x5C\x81\x61\x81\x61\x81\x7C\x81\x7C");
    EXPECT_EQ(KVFromUtf8("\u00A2\uFFE0\u00A3\uFFE1\u00AC\uFFE2\u00A5\uFFE5"),
              "\x81\x91\x81\x91\x81\x92\x81\x92\x81\xCA\x81\xCA\x81\x8F\x81\x8F");
}

TEST(Utf8, EachMalformedPartBecomesOneQuestionMark) {
    const std::pair<const char*, const char*> cases[] = {
        {"\xF0\x9F\x98\x80", "?"},     // outside the code page
        {"\xE3\x81z", "?z"},           // cut short by another character
        {"\xC0\xAF", "??"},            // overlong
        {"\xE0\x80\xAF", "???"},       // overlong
        {"\xED\xA0\x80", "???"},       // surrogate
        {"\xF4\x90\x80\x80", "????"},  // above the last scalar
        {"\x80\xFF", "??"},            // stray bytes
        {"\xEF\xBF\xBD", "?"},         // the replacement character itself
    };
    for (const auto& [utf8, bytes] : cases) {
        EXPECT_EQ(KVFromUtf8(utf8), bytes) << utf8;
    }
}

TEST(Codepage, EveryMappedCharacterComesBack) {
    int mapped = 0;
    for (unsigned int code = 1; code < 65536; ++code) {
        const std::uint32_t scalar = kv::ToUnicode(code);
        if (scalar != 0) {
            ++mapped;
            EXPECT_EQ(kv::ToUnicode(kv::FromUnicode(scalar)), scalar) << code;
        }
    }
    // The 6,879 characters of the standard's two levels are the core of the code page.
    EXPECT_GT(mapped, 6879);
    EXPECT_EQ(kv::ToUnicode(0x10000 + 'a'), 0U);
    EXPECT_EQ(kv::FromUnicode(0x10000 + 'a'), 0U);
}

}  // namespace
