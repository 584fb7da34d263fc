#include <CImgFile.h>

#include "tests/dib/dib_support.h"
#include "tests/support/no_memory.h"

namespace {

class BmpImage : public dib::Folder {
  protected:
    BmpImage() {
        m_Image.GetImg()->CreateFrameBuffer(5, 3, 1);
        for (DWORD i = 0; i < 15; ++i) {
            m_Image.GetImg()->GetBufferDWord()[i] = 0x40010203 + i * 0x0A0B0C0D;
        }
    }
    static std::vector<DWORD> Solid(const CKVFrameBuffer& fb) {
        std::vector<DWORD> pixels(fb.GetBufferDWord(), fb.GetBufferDWord() + fb.GetSize() / 4);
        for (DWORD& pixel : pixels) {
            pixel |= 0xFF000000;
        }
        return pixels;
    }
    static std::vector<DWORD> Pixels(const CKVFrameBuffer& fb) {
        return {fb.GetBufferDWord(), fb.GetBufferDWord() + fb.GetSize() / 4};
    }

    CImgFile m_Image;
};

TEST_F(BmpImage, LosesNothingButKeys) {
    ASSERT_EQ(m_Image.SaveImage(Path("a.BMP").c_str()), 0);
    const std::vector<DWORD> wanted = Solid(*m_Image.GetImg());
    const dib::Bytes stored = Read(Path("a.BMP"));
    dib::Bytes rows;
    for (std::size_t i : {10U, 5U, 0U}) {
        for (std::size_t x = 0; x < 16; ++x) {
            rows.push_back(x == 15 ? BYTE{0}
                                   : static_cast<BYTE>(wanted[i + x / 3] >> x % 3 * 8 & 0xFF));
        }
    }
    dib::Bytes laidOut = dib::File(5, 3, 24, {}, rows);
    dib::Put(laidOut, 2, 102);
    dib::Put(laidOut, 34, 48);
    EXPECT_EQ(stored, laidOut);
    m_Image.m_KeyFlag = 1;
    ASSERT_EQ(m_Image.LoadImg(), 0);
    EXPECT_EQ(Pixels(*m_Image.GetImg()), wanted);
    EXPECT_EQ(m_Image.GetKeyFlag(), 0);
    // The same picture with its top row first, and a claim of colours.
    std::swap_ranges(laidOut.begin() + 54, laidOut.begin() + 70, laidOut.begin() + 86);
    dib::Put(laidOut, 22, 0xFFFFFFFD);
    dib::Put(laidOut, 46, 16777216);
    ASSERT_EQ(m_Image.LoadImg(Written("b.bmp", laidOut).c_str()), 0);
    EXPECT_EQ(Pixels(*m_Image.GetImg()), wanted);
}

TEST_F(BmpImage, OtherFilesAreRefused) {
    for (const int bits : dib::kDepths) {
        CDib dib(3, 2, bits, 0);
        dib::Fill(dib, 1);
        EXPECT_EQ(m_Image.LoadImg(Written("a.bmp", dib::Saved(dib)).c_str()), bits == 24 ? 0 : -1);
        EXPECT_EQ(m_Image.GetImg()->IsBuffer(), bits == 24 ? 0 : 1);
    }
    // Rows that are not there, hidden behind a compression.
    dib::Bytes file = dib::File(100, 100, 24, {}, dib::Bytes(8));
    dib::Put(file, 30, 5);
    dib::Put(file, 34, 8);
    EXPECT_EQ(m_Image.LoadImg(Written("a.bmp", file).c_str()), -1);
    EXPECT_EQ(m_Image.SaveImage(&*m_Image.GetImg(), Path("no/b.bmp").c_str()), -1);
    EXPECT_EQ(m_Image.SaveImage(static_cast<const CKVFrameBuffer*>(nullptr), Path("c.bmp").c_str()),
              -1);
    EXPECT_FALSE(std::filesystem::exists(Path("c.bmp")));
}

TEST_F(BmpImage, IconsStandBesideThePicture) {
    const CKVFrameBuffer before = *m_Image.GetImg();
    EXPECT_EQ(m_Image.SaveIconBmp(4, 4), -1);  // no name
    EXPECT_EQ(m_Image.SaveIcon("", 4, 4), -1);
    EXPECT_EQ(m_Image.SaveIcon(Path("small.tga").c_str(), 0, 4), -1);
    EXPECT_EQ(m_Image.SaveIcon(Path("small.jpg").c_str(), 4, 4), -1);
    EXPECT_TRUE(std::filesystem::is_empty(Path("")));
    CImgFile small;
    for (const char* name : {"small.tga", "small.bmp", "small.PCT"}) {
        ASSERT_EQ(m_Image.SaveIcon(Path(name).c_str(), 10, 6), 0);
        ASSERT_EQ(small.LoadImg(Path(name).c_str()), 0);
        CKVFrameBuffer wanted;
        before.SizeChange(&wanted, 10, 6);
        const bool keyless = small.GetKeyFlag() == 0;
        EXPECT_EQ(Pixels(*small.GetImg()), keyless ? Solid(wanted) : Pixels(wanted)) << name;
    }
    EXPECT_EQ(Pixels(*m_Image.GetImg()), Pixels(before));

    // An object without a picture loads it, and keeps it.
    m_Image.SaveImage(Path("\x95\x5C.tga").c_str());
    m_Image.DeleteImage();
    EXPECT_EQ(m_Image.SaveIconBmp(7, 2), 0);
    EXPECT_EQ(Pixels(*m_Image.GetImg()), Pixels(before));
    ASSERT_EQ(small.LoadImg(Path("\x95\x5C_icon.bmp").c_str()), 0);
    EXPECT_EQ(small.GetSize(), CSize(7, 2));
    EXPECT_EQ(m_Image.GetSize(), CSize(5, 3));
    m_Image.SetFileName((Path("") + std::string(250, 'x') + ".tga").c_str());
    EXPECT_EQ(m_Image.SaveIconBmp(7, 2), -1);
    m_Image.DeleteImage();
    EXPECT_EQ(m_Image.SaveIcon(Path("d.bmp").c_str(), 7, 2), -1);
}

TEST_F(BmpImage, TheEndOfMemoryIsAFailure) {
    SKIP_UNDER_THREAD_SANITIZER();
    const std::string path = Path(std::string(40, 'p') + ".bmp");
    ASSERT_EQ(m_Image.SaveImage(path.c_str()), 0);
    int calls = 0;
    for (; WithAllocations(calls, [&] { return m_Image.SaveIconBmp(3, 2); }) != 0; ++calls) {
        ASSERT_LT(calls, 40);
    }
    EXPECT_GT(calls, 0);
    for (calls = 0; WithAllocations(calls, [&] { return m_Image.LoadImg(); }) != 0; ++calls) {
        ASSERT_LT(calls, 40);
    }
    EXPECT_EQ(m_Image.GetSize(), CSize(5, 3));
}

}  // namespace
