#include <memory>

#include <CDrawText.h>
#include <gtest/gtest.h>

namespace {

TEST(CDrawText, IsMadeByClassNameWithItsDefaults) {
    const std::unique_ptr<CObject> object(CRuntimeClass::CreateObject("CDrawText"));
    const auto* text = dynamic_cast<CDrawText*>(object.get());
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(CDrawText::GetThisClass()->m_wSchema, 0x80000000u);
    EXPECT_STREQ(text->GetFontName(), "\x82\x6C\x82\x72\x20\x83\x53\x83\x56\x83\x62\x83\x4E");
    EXPECT_EQ(text->GetPos(), CPoint(72, 438));
    EXPECT_EQ(text->GetSize(), CSize(100, 32));
    EXPECT_EQ(text->m_Font.AntiScale, 16);
    EXPECT_EQ(text->GetBodyCol(), 0xFFFFFFFF);
    EXPECT_EQ(text->GetShadGrad_Col2(), 0xFF000000);
    EXPECT_EQ(text->GetBodyGrad_x(), -1);
    EXPECT_EQ(text->m_Font.BwDrawInfo.EdgeText.File, static_cast<const char*>(text->m_EdgeFile));
}

TEST(CDrawText, SettersBringIntoRange) {
    struct {
        void (CDrawText::*set)(LONG);
        LONG (CDrawText::*get)() const;
        LONG in, out;
    } const cases[] = {
        {&CDrawText::SetFormat, &CDrawText::GetFormat, 3, 0},
        {&CDrawText::SetFormat, &CDrawText::GetFormat, 2, 2},
        {&CDrawText::SetFormat, &CDrawText::GetFormat, -1, 0},
        {&CDrawText::SetDir, &CDrawText::GetDir, 4, 3},
        {&CDrawText::SetDir, &CDrawText::GetDir, -1, 0},
        {&CDrawText::SetFitMode, &CDrawText::GetFitMode, 5, 2},
        {&CDrawText::SetAspectMode, &CDrawText::GetAspectMode, 2, 0},
        {&CDrawText::SetAddressMode, &CDrawText::GetAddressMode, -1, 0},
        {&CDrawText::SetItalic, &CDrawText::GetItalic, 5, 1},
        {&CDrawText::SetWeight, &CDrawText::GetWeight, -2, 1},
        {&CDrawText::SetAntiScale, &CDrawText::GetAntiScale, 3, 4},
    };
    for (const auto& c : cases) {
        CDrawText text;
        (text.*c.set)(c.in);
        EXPECT_EQ((text.*c.get)(), c.out) << "for " << c.in;
        EXPECT_EQ(text.m_Font.AntiScale, text.m_Font.BwDrawInfo.AntiScale);
    }
}

TEST(CDrawText, FontNameIsCutAt32Bytes) {
    CDrawText text;
    text.SetFontName("0123456789012345678901234567890123456789");
    EXPECT_STREQ(text.GetFontName(), "01234567890123456789012345678901");
    EXPECT_EQ(text.m_Font.FontName[33], 0);
    text.SetFontName("ab");
    for (int i = 2; i < 34; ++i) {
        EXPECT_EQ(text.m_Font.FontName[i], 0);
    }
    text.SetFontName(text.GetFontName());
    EXPECT_STREQ(text.GetFontName(), "ab");
}

TEST(CDrawText, CopiesOwnTheirTextureNames) {
    auto source = std::make_unique<CDrawText>();
    source->SetString("title");
    source->SetBodyText(1, "a-name-too-long-for-any-small-string-buffer.tga");
    source->SetBodyCol(0xFF123456);  // the pointer stays connected whatever the mode
    const CDrawText constructed(*source);
    CDrawText assigned;
    assigned = *source;
    source.reset();
    for (const CDrawText* copy : {&constructed, static_cast<const CDrawText*>(&assigned)}) {
        EXPECT_STREQ(copy->m_Font.BwDrawInfo.BodyText.File,
                     "a-name-too-long-for-any-small-string-buffer.tga");
        EXPECT_EQ(copy->m_Font.BwDrawInfo.BodyText.File,
                  static_cast<const char*>(copy->m_BodyFile));
        EXPECT_EQ(copy->GetBodyMode(), 0);
        EXPECT_STREQ(copy->GetString(), "title");
    }
}

}  // namespace
