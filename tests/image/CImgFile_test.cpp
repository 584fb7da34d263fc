#include <fstream>
#include <memory>
#include <vector>

#include <CImgFile.h>
#include <CKVTargaImage.h>
#include <gtest/gtest.h>

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

void WriteFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

// A picture of 1 by 2 pixels, 24 bits, of which the file holds so many bytes.
std::string Targa24(std::size_t dataBytes) {
    const char header[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 2, 0, 24, 0};
    return std::string(header, 18) + std::string("abcdef", dataBytes);
}

TEST(ImageObject, IsFoundByName) {
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CImgFile"));
    ASSERT_NE(dynamic_cast<CImgFile*>(made.get()), nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), CImgFile::GetThisClass());
    EXPECT_EQ(made->GetRuntimeClass()->m_wSchema, VERSIONABLE_SCHEMA);
    EXPECT_TRUE(made->GetRuntimeClass()->IsDerivedFrom(CObject::GetThisClass()));
}

TEST(ImageObject, CopiesAreIndependent) {
    CImgFile image("a.tga", 3, -4, 1);
    Fill(*image.GetImg(), 5, 4, 0xFF000000);
    image.m_KeyFlag = 1;
    CKVFrameBuffer target(10, 10, 1);
    ASSERT_EQ(image.DrawFrame(&target), 0 - 1);  // wholly above
    image.SetAddress(3, 0);
    ASSERT_EQ(image.DrawFrame(&target), 0);

    CImgFile copy(image), assigned;
    assigned.m_KeyFlag = 7;
    assigned.m_DispEria = CBox(1, 2, 3, 4);
    assigned = image;
    for (CImgFile* other : {&copy, &assigned}) {
        EXPECT_STREQ(other->GetFileName(), "a.tga");
        EXPECT_EQ(other->GetAddress(), CPoint(3, 0));
        EXPECT_EQ(other->GetCopyMode(), 1);
        EXPECT_EQ(PixelsOf(other->m_Img), PixelsOf(image.m_Img));
        EXPECT_NE(other->GetImgBufPointer(), image.GetImgBufPointer());
    }
    EXPECT_EQ(copy.GetKeyFlag(), 0);
    EXPECT_EQ(copy.GetDispEria().width, 0);
    EXPECT_EQ(assigned.GetKeyFlag(), 7);
    EXPECT_EQ(assigned.GetDispEria().width, 3);
}

TEST(ImageObject, DrawsAtItsPosition) {
    CImgFile image;
    Fill(*image.GetImg(), 5, 4, 0x80000001);
    CKVFrameBuffer target(8, 8, 1);
    target.GetBufferDWord()[2 * 8 + 7] = 0xFF0000FF;
    image.SetParam("", 6, 1, 0);
    ASSERT_EQ(image.DrawFrame(&target), 0);
    EXPECT_EQ(image.GetDispEria().GetRect(), CRect(6, 1, 8, 5));
    EXPECT_EQ(target.GetBufferDWord()[2 * 8 + 7], 0x80000007U);  // replaced, key and all

    image.SetCopyMode(5);
    target.GetBufferDWord()[2 * 8 + 7] = 0xFF0000FF;
    ASSERT_EQ(image.DrawFrame(&target), 0);
    EXPECT_EQ(target.GetBufferDWord()[2 * 8 + 7] >> 24, 255U);  // blended

    image.SetAddress(8, 0);
    EXPECT_EQ(image.DrawFrame(&target), -1);
    EXPECT_EQ(image.GetDispEria().GetRect(), CRect(0, 0, 0, 0));
    image.m_DispEria = CBox(1, 2, 3, 4);
    EXPECT_EQ(image.DrawFrame(nullptr), -1);
    EXPECT_EQ(image.GetDispEria().GetRect(), CRect(0, 0, 0, 0));
}

TEST(ImageObject, TakesAndChangesPictures) {
    CImgFile image;
    CKVFrameBuffer empty, other;
    Fill(other, 3, 2, 0x11000000);
    EXPECT_EQ(image.SetImage(nullptr), -1);
    EXPECT_EQ(image.SetImage(&empty), -1);
    EXPECT_EQ(image.CopyImage(&other, 0, 0, 3, 2, 0, 0, 0, nullptr), -1);  // no picture of its own
    const std::vector<DWORD> pixels = PixelsOf(other);
    Fill(*image.GetImg(), 9, 9, 0);
    ASSERT_EQ(image.SetImage(&other), 0);
    *other.GetBufferDWord() = 5;
    EXPECT_EQ(PixelsOf(*image.GetImg()), pixels);
    EXPECT_EQ(image.SetImage(image.GetImg()), 0);
    EXPECT_EQ(PixelsOf(*image.GetImg()), pixels);

    CBox box;
    EXPECT_EQ(image.CopyImage(nullptr, 0, 0, 3, 2, 0, 0, 0, &box), -1);
    EXPECT_EQ(image.CopyImage(&empty, 0, 0, 3, 2, 0, 0, 0, &box), -1);
    EXPECT_EQ(image.CopyImage(&other, 0, 0, 1, 1, 2, 1, 0, &box), 0);
    EXPECT_EQ(image.GetImg()->GetBufferDWord()[5], 5U);
    EXPECT_EQ(box.GetRect(), CRect(2, 1, 3, 2));
    EXPECT_EQ(image.DeleteImage(), 0);
    EXPECT_EQ(image.DeleteImage(), 0);
    EXPECT_EQ(image.GetImgBufPointer(), nullptr);
}

TEST(ImageObject, SavesAndLoadsByExtension) {
    const TempFolder folder;
    CKVFrameBuffer picture;
    Fill(picture, 7, 3, 0x40000000);
    // The second name ends in a double-byte character whose second byte is a backslash.
    for (const char* name : {"a.tga", "\x95\x5C.TgA", "b.pct.TGA", "c.PCT"}) {
        const std::string path = folder / name;
        CImgFile image;
        EXPECT_EQ(image.SaveImage(&picture, path.c_str()), 0) << name;
        EXPECT_EQ(image.GetFileName(), path);
        EXPECT_EQ(image.LoadImg(), 0) << name;
        EXPECT_EQ(PixelsOf(*image.GetImg()), PixelsOf(picture)) << name;
        EXPECT_EQ(image.GetKeyFlag(), 1);

        CKVFrameBuffer direct(2, 2, 1);
        LONG flag = 5;
        EXPECT_EQ(CImgFile::LoadImg(path.c_str(), &direct, &flag), 0);
        EXPECT_EQ(flag, 1);
        EXPECT_EQ(CImgFile::LoadImg(path.c_str(), &direct, nullptr), 0);
        EXPECT_EQ(PixelsOf(direct), PixelsOf(picture));
    }
    // All forms of saving, each to the name it is given or has.
    CImgFile image;
    image.SetImage(&picture);
    EXPECT_EQ(image.SaveImage((folder / "1.tga").c_str()), 0);
    EXPECT_EQ(image.SaveImage((folder / "2.tga").c_str(), 90, 1), 0);
    image.SetFileName((folder / "3.tga").c_str());
    EXPECT_EQ(image.SaveImage(), 0);
    image.SetFileName((folder / "4.tga").c_str());
    EXPECT_EQ(image.SaveImage(&picture), 0);
    EXPECT_EQ(image.SaveImage(&picture, (folder / "5.tga").c_str(), 90, 1), 0);
    for (const char* name : {"1.tga", "2.tga", "3.tga", "4.tga", "5.tga"}) {
        EXPECT_EQ(image.LoadImg((folder / name).c_str()), 0) << name;
        EXPECT_EQ(PixelsOf(*image.GetImg()), PixelsOf(picture)) << name;
    }
}

TEST(ImageObject, AFailedLoadLeavesNoPictureAndTheFlag) {
    const TempFolder folder;
    const std::string cut = folder / "cut.tga", whole = folder / "whole.tga";
    WriteFile(cut, Targa24(5));
    WriteFile(whole, Targa24(6));
    WriteFile(folder / "empty.tga", "");
    WriteFile(folder / "picture.jpg", Targa24(6));
    WriteFile(folder / "tga", Targa24(6));
    std::filesystem::create_directory(folder / "directory.tga");
    const std::string names[] = {cut,
                                 "",
                                 folder / "none.tga",
                                 folder / "directory.tga",
                                 folder / "empty.tga",
                                 folder / "picture.jpg",
                                 folder / "tga",
                                 folder / "a.tga/none.tga",
                                 folder / ("none." + std::string(300, 'x')),
                                 folder / std::string(256, 'x') + ".tga",
                                 folder / std::string(100000, '/') + "whole.tga"};
    for (const std::string& name : names) {
        CImgFile image;
        image.m_KeyFlag = 7;
        Fill(*image.GetImg(), 2, 2, 1);
        EXPECT_EQ(image.LoadImg(name.c_str()), -1) << name;
        EXPECT_EQ(image.GetFileName(), name);
        EXPECT_EQ(image.GetImg()->IsBuffer(), name.empty() ? 0 : 1) << name;
        EXPECT_EQ(image.GetKeyFlag(), 7);

        CKVFrameBuffer fb(2, 2, 1);
        LONG flag = 7;
        EXPECT_EQ(CImgFile::LoadImg(name.c_str(), &fb, &flag), -1) << name;
        EXPECT_EQ(fb.IsBuffer(), 1) << name;
        EXPECT_EQ(flag, 7);
    }
    CKVFrameBuffer fb;
    EXPECT_EQ(CImgFile::LoadImg(whole.c_str(), nullptr, nullptr), -1);
    EXPECT_EQ(CImgFile::LoadImg(nullptr, &fb, nullptr), -1);
    LONG flag = 7;
    EXPECT_EQ(CImgFile::LoadImg(whole.c_str(), &fb, &flag), 0);
    EXPECT_EQ(flag, 0);  // 24 bits
}

TEST(ImageObject, WhatCannotBeSaved) {
    const TempFolder folder;
    CKVFrameBuffer picture(2, 2, 1), empty;
    CImgFile image;
    EXPECT_EQ(image.SaveImage(&picture), -1);                    // no name
    EXPECT_EQ(image.SaveImage((folder / "a.tga").c_str()), -1);  // no picture
    EXPECT_FALSE(std::filesystem::exists(folder / "a.tga"));
    EXPECT_EQ(image.SaveImage(&empty), -1);
    EXPECT_EQ(image.SaveImage(static_cast<CKVFrameBuffer*>(nullptr)), -1);
    for (const char* name : {"a.jpg", "a", "a.tga.gif", "no/a.tga", "/"}) {
        EXPECT_EQ(image.SaveImage(&picture, (folder / name).c_str()), -1) << name;
        EXPECT_EQ(image.GetFileName(), folder / name);
        EXPECT_FALSE(std::filesystem::is_regular_file(folder / name)) << name;
    }
    EXPECT_EQ(image.SaveImage(&picture, nullptr), -1);
    EXPECT_STREQ(image.GetFileName(), "");
}

}  // namespace
