#include <fstream>
#include <memory>
#include <vector>

#include <CImgFile.h>
#include <gtest/gtest.h>

#include "tests/support/no_memory.h"
#include "tests/support/temp_folder.h"

namespace {

std::vector<DWORD> PixelsOf(const CKVFrameBuffer& fb) {
    return {fb.GetBufferDWord(), fb.GetBufferDWord() + fb.GetSize() / 4};
}

void Fill(CKVFrameBuffer& fb, LONG width, LONG height, DWORD first) {
    fb.CreateFrameBuffer(width, height, 1);
    for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
        fb.GetBufferDWord()[i] = first + i;
    }
}

TEST(ImageObject, CopiesAreIndependent) {
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CImgFile"));
    auto* const assigned = dynamic_cast<CImgFile*>(made.get());
    ASSERT_NE(assigned, nullptr);
    EXPECT_EQ(assigned->GetRuntimeClass(), CImgFile::GetThisClass());
    CImgFile image("a.tga", 3, -4, 1);
    Fill(*image.GetImg(), 5, 4, 0xFF000000);
    image.m_KeyFlag = 1;
    image.m_DispEria = CBox(9, 9, 9, 9);
    assigned->m_KeyFlag = 7;
    assigned->m_DispEria = CBox(1, 2, 3, 4);
    *assigned = image;
    CImgFile copy(image);
    for (CImgFile* other : {&copy, assigned}) {
        EXPECT_STREQ(other->GetFileName(), "a.tga");
        EXPECT_EQ(other->GetAddress(), CPoint(3, -4));
        EXPECT_EQ(other->GetCopyMode(), 1);
        EXPECT_EQ(PixelsOf(other->m_Img), PixelsOf(image.m_Img));
        EXPECT_NE(other->GetImgBufPointer(), image.GetImgBufPointer());
    }
    EXPECT_EQ(copy.GetKeyFlag(), 0);
    EXPECT_EQ(copy.GetDispEria().width, 0);
    EXPECT_EQ(assigned->GetKeyFlag(), 7);
    EXPECT_EQ(assigned->GetDispEria().width, 3);
}

TEST(ImageObject, DrawsAtItsPosition) {
    CImgFile image("", 6, 1, 0);
    Fill(*image.GetImg(), 5, 4, 0x80000001);
    for (const auto& [mode, key] : {std::pair{0, 0x80U}, std::pair{5, 0xFFU}}) {
        CKVFrameBuffer target;
        Fill(target, 8, 8, 0xFF000000);
        image.SetCopyMode(mode);
        ASSERT_EQ(image.DrawFrame(&target), 0);
        EXPECT_EQ(image.GetDispEria().GetRect(), CRect(6, 1, 8, 5));
        EXPECT_EQ(target.GetBufferDWord()[2 * 8 + 7] >> 24, key);
    }
    CKVFrameBuffer outside(6, 6, 1);
    for (CKVFrameBuffer* target : {&outside, static_cast<CKVFrameBuffer*>(nullptr)}) {
        image.m_DispEria = CBox(1, 2, 3, 4);
        EXPECT_EQ(image.DrawFrame(target), -1);
        EXPECT_EQ(image.GetDispEria().GetRect(), CRect(0, 0, 0, 0));
    }
}

TEST(ImageObject, TakesPictures) {
    CImgFile image;
    CKVFrameBuffer empty, other;
    Fill(other, 3, 2, 0x11000000);
    EXPECT_EQ(image.CopyImage(&other, 0, 0, 3, 2, 0, 0, 0, nullptr), -1);  // no picture of its own
    ASSERT_EQ(image.SetImage(&other), 0);
    EXPECT_EQ(image.SetImage(&empty), -1);
    EXPECT_EQ(image.SetImage(nullptr), -1);
    EXPECT_EQ(image.SetImage(image.GetImg()), 0);
    EXPECT_EQ(PixelsOf(*image.GetImg()), PixelsOf(other));
    EXPECT_EQ(image.CopyImage(&other, 0, 0, 1, 1, 2, 1, 0, nullptr), 0);
    EXPECT_EQ(image.GetImg()->GetBufferDWord()[5], 0x11000000U);
}

struct ImageFiles : testing::Test {
    const TempFolder m_Folder;
    CKVFrameBuffer m_Picture{7, 3, 1};
};

TEST_F(ImageFiles, SaveAndLoadByExtension) {
    CImgFile image;
    Fill(*image.GetImg(), 7, 3, 0x40000000);
    m_Picture = *image.GetImg();
    // The second name ends in a double-byte character whose second byte is a backslash.
    const std::string paths[] = {m_Folder / "a.tga", m_Folder / "\x95\x5C.TgA",
                                 m_Folder / "b.PCT", m_Folder / "c.pct.tga",
                                 m_Folder / "d.tga", m_Folder / "e.tga"};
    EXPECT_EQ(image.SaveImage(paths[0].c_str()), 0);
    EXPECT_EQ(image.SaveImage(&m_Picture, paths[1].c_str()), 0);
    EXPECT_EQ(image.SaveImage(&m_Picture, paths[2].c_str(), 90, 1), 0);
    EXPECT_EQ(image.SaveImage(paths[3].c_str(), 90, 1), 0);
    image.SetFileName(paths[4].c_str());
    EXPECT_EQ(image.SaveImage(), 0);
    image.SetFileName(paths[5].c_str());
    EXPECT_EQ(image.SaveImage(&m_Picture), 0);
    for (const std::string& path : paths) {
        image.m_KeyFlag = 0;
        EXPECT_EQ(image.LoadImg(path.c_str()), 0) << path;
        EXPECT_EQ(PixelsOf(*image.GetImg()), PixelsOf(m_Picture)) << path;
        EXPECT_EQ(image.GetKeyFlag(), 1) << path;
        CKVFrameBuffer direct(2, 2, 1);
        EXPECT_EQ(CImgFile::LoadImg(path.c_str(), &direct, nullptr), 0) << path;
        EXPECT_EQ(PixelsOf(direct), PixelsOf(m_Picture)) << path;
    }
}

TEST_F(ImageFiles, AFailedLoadLeavesNoPictureAndTheFlag) {
    const char header[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 24, 0};
    const std::string whole = std::string(header, 18) + "abcdef";
    for (const char* name : {"whole.tga", "other.jpg", "tga"}) {
        std::ofstream(m_Folder / name, std::ios::binary) << whole;
    }
    std::ofstream(m_Folder / "cut.tga", std::ios::binary) << whole.substr(0, 23);
    std::filesystem::create_directory(m_Folder / "folder.tga");
    const std::string names[] = {"cut.tga",
                                 "none.tga",
                                 "folder.tga",
                                 "other.jpg",
                                 "tga",
                                 "none." + std::string(300, 'x'),
                                 std::string(256, 'x') + ".tga",
                                 std::string(100000, '/') + "whole.tga"};
    CImgFile image;
    image.m_KeyFlag = 7;
    CKVFrameBuffer fb;
    LONG flag = 7;
    for (const std::string& name : names) {
        const std::string path = m_Folder / name;
        image.SetImage(&m_Picture);
        EXPECT_EQ(image.LoadImg(path.c_str()), -1) << name;
        EXPECT_EQ(image.GetFileName(), path);
        EXPECT_EQ(image.GetImg()->IsBuffer(), 1) << name;
        fb.CreateFrameBuffer(2, 2, 1);
        EXPECT_EQ(CImgFile::LoadImg(path.c_str(), &fb, &flag), -1) << name;
        EXPECT_EQ(fb.IsBuffer(), 1) << name;
    }
    EXPECT_EQ(CImgFile::LoadImg(nullptr, &fb, &flag), -1);
    EXPECT_EQ(CImgFile::LoadImg("", nullptr, &flag), -1);
    EXPECT_EQ(image.LoadImg(""), -1);
    EXPECT_EQ(image.GetKeyFlag(), 7);
    EXPECT_EQ(flag, 7);
    EXPECT_EQ(CImgFile::LoadImg((m_Folder / "whole.tga").c_str(), &fb, &flag), 0);
    EXPECT_EQ(flag, 0);  // 24 bits
}

TEST_F(ImageFiles, WhatCannotBeSaved) {
    CImgFile image;
    EXPECT_EQ(image.SaveImage(&m_Picture), -1);                    // no name
    EXPECT_EQ(image.SaveImage((m_Folder / "a.tga").c_str()), -1);  // no picture
    EXPECT_FALSE(std::filesystem::exists(m_Folder / "a.tga"));
    EXPECT_EQ(image.SaveImage(static_cast<CKVFrameBuffer*>(nullptr)), -1);
    for (const char* name : {"a.jpg", "a", "a.tga.gif", "no/a.tga", "/"}) {
        EXPECT_EQ(image.SaveImage(&m_Picture, (m_Folder / name).c_str()), -1) << name;
        EXPECT_EQ(image.GetFileName(), m_Folder / name);
        EXPECT_FALSE(std::filesystem::is_regular_file(m_Folder / name)) << name;
    }
}

// Whatever allocation fails, the answer is -1; the pictures themselves are not made by operator
// new.
TEST_F(ImageFiles, WithoutMemoryLoadsAndSavesFail) {
    SKIP_UNDER_THREAD_SANITIZER();
    for (const char* name : {"a.tga", "a.pct"}) {
        const std::string path = m_Folder / name;
        CImgFile image;
        int calls = 0;
        const auto save = [&] { return image.SaveImage(&m_Picture, path.c_str()); };
        const auto load = [&] { return image.LoadImg(path.c_str()); };
        for (; WithAllocations(calls, save) != 0; ++calls) {
            ASSERT_LT(calls, 30);
        }
        image.SetFileName("");
        for (int left = 0; WithAllocations(left, load) != 0; ++left, ++calls) {
            ASSERT_LT(calls, 30);
        }
        EXPECT_GT(calls, 1);
        EXPECT_EQ(PixelsOf(image.m_Img), PixelsOf(m_Picture));
        EXPECT_EQ(WithAllocations(0, [&] { return CImgFile().LoadImg(path.c_str()); }), -1);
    }
}

}  // namespace
