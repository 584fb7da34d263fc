#include <cstring>
#include <set>
#include <string>

#include <CDrawText.h>
#include <gtest/gtest.h>

namespace {

TEST(GetFontLogfont, LeavesTheRecordOfAnUnknownFontAlone) {
    tagLOGFONTA font;
    std::memset(&font, 0x5A, sizeof font);
    const tagLOGFONTA before = font;
    EXPECT_EQ(CKVFont().GetFontLogfont(nullptr, "No Such Family At All", &font), -2);
    EXPECT_EQ(std::memcmp(&font, &before, sizeof font), 0);
    CDrawText text;
    EXPECT_EQ(text.CheckFontName(nullptr, "No Such Family At All"), 1);
    EXPECT_EQ(text.CheckFontName(nullptr, text.GetFontName()), 0);
}

TEST(GetAllFontList, ListsEachFamilyOnce) {
    tagENUMER list{};
    ASSERT_EQ(CKVFont().GetAllFontList(nullptr, &list), 0);
    ASSERT_GT(list.Count, 0);
    ASSERT_EQ(GlobalSize(list.Handle), static_cast<std::size_t>(list.Count) * 232);
    const auto* block = static_cast<const BYTE*>(GlobalLock(list.Handle));
    std::set<std::string> names;
    for (LONG i = 0; i < list.Count; ++i) {
        FontEntry entry;
        std::memcpy(&entry, block + i * 232, sizeof entry);
        const tagLOGFONTA& font = entry.LogFont.elfLogFont;
        EXPECT_TRUE(names.insert(font.lfFaceName).second) << font.lfFaceName;
        // Every listed name can be looked up again, and gives the same character set.
        tagLOGFONTA again;
        EXPECT_EQ(CKVFont().GetFontLogfont(nullptr, font.lfFaceName, &again), 0) << font.lfFaceName;
        EXPECT_EQ(again.lfCharSet, font.lfCharSet) << font.lfFaceName;
    }
    GlobalUnlock(list.Handle);
    EXPECT_EQ(GlobalFree(list.Handle), nullptr);
}

}  // namespace
