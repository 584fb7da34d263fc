#include <string>
#include <vector>

#include <CKVFont.h>
#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::string>;

// Two double-byte characters; the second one's trail byte is a backslash.
const std::string kKan = "\x8A\xBF";
const std::string kHyo = "\x95\x5C";
const std::string kCircle = "\x81\x9B";
const std::string kHalfKana = "\xB1";

struct SplitCase {
    const char* what;
    std::string text;
    Strings parts;
    std::string multi;
};

TEST(SplitMultiAndSingle, CutsRunsAndCountsCells) {
    const SplitCase cases[] = {
        {"empty", "", {""}, ""},
        {"mixed", "AB" + kKan + " C", {"AB", kKan, "C"}, kCircle + kKan + kCircle},
        {"trailing blank", kKan + " ", {kKan, ""}, kKan},
        {"leading blank", " A", {"A"}, kCircle},
        {"only blanks", "  ", {""}, ""},
        {"blanks in a row", "A   B", {"A", "B"}, kCircle + kCircle},
        {"single after multi", kKan + kHyo + "1", {kKan + kHyo, "1"}, kKan + kHyo + kCircle},
        {"half-width kana", kHalfKana + "A" + kKan, {kHalfKana + "A", kKan}, kCircle + kKan},
        {"lone lead byte", kKan + "\x8A", {kKan, "\x8A"}, kKan + kCircle},
        {"blank as trail byte", "\x8A ", {"\x8A "}, "\x8A "},
    };
    for (const SplitCase& c : cases) {
        CStringArray parts;
        CString multi;
        CKVFont().SplitMultiAndSingle(c.text.c_str(), parts, multi);
        Strings got;
        for (int i = 0; i < parts.GetSize(); ++i) {
            got.emplace_back(parts[i]);
        }
        EXPECT_EQ(got, c.parts) << c.what;
        EXPECT_EQ(std::string(multi), c.multi) << c.what;
    }
}

TEST(ChBreakChar, ReplacesBlanksByBytes) {
    struct {
        wchar_t breakChar;
        int result;
        const char* text;
    } const cases[] = {
        {32, 0, "a b  c"},
        {0xA0, 1,
         "a\xA0"
         "b\xA0\xA0"
         "c"},
        {255, 1,
         "a\xFF"
         "b\xFF\xFF"
         "c"},
        {256, -1, "a b  c"},
        {300, -1, "a b  c"},
    };
    for (const auto& c : cases) {
        CString text("a b  c");
        EXPECT_EQ(CKVFont().ChBreakChar(text, c.breakChar), c.result);
        EXPECT_STREQ(text, c.text);
    }
}

// Strings may hold zeros, and a zero may be the break character.
TEST(ChBreakChar, GoesOverTheWholeLength) {
    CString held("a\0 b", 4);
    EXPECT_EQ(CKVFont().ChBreakChar(held, 0xA0), 1);
    EXPECT_TRUE(held == CString("a\0\xA0"
                                "b",
                                4));
    CString zeroed("a b");
    EXPECT_EQ(CKVFont().ChBreakChar(zeroed, 0), 1);
    EXPECT_TRUE(zeroed == CString("a\0b", 3));
}

}  // namespace
