#include <fstream>

#include <CImgFile.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/effect/plain_render.h"
#include "tests/support/no_memory.h"
#include "tests/support/temp_folder.h"

namespace {

using effect_test::PixelsOf;

constexpr DWORD kBlack = 0xFF000000;

// By whole copies into the layer, then pixel by pixel through the coverage.
std::vector<DWORD> PlainTexture(const CKVGrayBitmap& gray, const CKVFrameBuffer& picture,
                                LONG mode) {
    const CSize size = picture.GetWH();
    CKVFrameBuffer layer(gray.Width, gray.Height, 1);
    const auto copy = [&](LONG x, LONG y) {
        layer.FbCopy(&picture, 0, 0, size.cx, size.cy, x, y, 0, nullptr);
    };
    if (mode == 0) {
        layer.ClearCol(kBlack);
        copy(gray.Width / 2 - size.cx / 2, gray.Height / 2 - size.cy / 2);
    } else if (mode == 1) {
        for (LONG i = 0; i <= gray.Width / size.cx; ++i) {
            for (LONG j = 0; j <= gray.Height / size.cy; ++j) {
                copy(i * size.cx, j * size.cy);
            }
        }
    } else if (mode == 2) {
        picture.SizeChange(&layer, gray.Width, gray.Height);
    }
    std::vector<DWORD> pixels = PixelsOf(layer);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const DWORD g = gray.Bits[i / layer.GetWidth() * gray.Pitch + i % layer.GetWidth()];
        pixels[i] = g == 0 ? 0 : (pixels[i] >> 24) * g / 255 << 24 | (pixels[i] & 0xFFFFFF);
    }
    return pixels;
}

class Texture : public testing::Test {
  protected:
    // Saves a picture of random pixels.
    void MakePicture(CSize size) {
        m_Picture.DeleteFrameBuffer();
        m_Picture.CreateFrameBuffer(size.cx, size.cy, 1);
        std::generate_n(m_Picture.GetBufferDWord(), size.cx * size.cy,
                        [&] { return static_cast<DWORD>(m_Random()); });
        ASSERT_EQ(CImgFile().SaveImage(&m_Picture, m_File.c_str()), 0);
    }

    std::vector<DWORD> Paint(LONG mode, const char* file) {
        tagTEXTUREINFO text{mode, file};
        const tagMAPINFO map{2, nullptr, nullptr, &text};
        EXPECT_EQ(CKVBwDraw().GrayToFb(&m_Gray, &m_Fb, &map), 0);
        EXPECT_EQ(m_Fb.GetWH(), CSize(m_Gray.Width, m_Gray.Height));
        return PixelsOf(m_Fb);
    }

    const TempFolder m_Folder;
    const std::string m_File = m_Folder / "texture.tga";
    std::mt19937 m_Random{5};
    CKVFrameBuffer m_Picture;
    CKVGrayBitmap m_Gray;
    CKVFrameBuffer m_Fb;
};

TEST_F(Texture, PaintsAsTheCopiesDo) {
    for (const CSize& size :
         {CSize(1, 1), CSize(4, 7), CSize(16, 16), CSize(33, 2), CSize(90, 50)}) {
        MakePicture(size);
        for (LONG width = 1; width < 70; width += 1 + width / 9) {
            effect_test::FillRandom(m_Gray, width, 1 + width * 5 % 37, 3, m_Random);
            for (const LONG mode : {0, 1, 2, 3, -1}) {
                const std::vector<DWORD> expected = PlainTexture(m_Gray, m_Picture, mode);
                AtEachLevel([&] {
                    ASSERT_EQ(Paint(mode, m_File.c_str()), expected)
                        << size.cx << " onto " << width << " mode " << mode;
                });
            }
        }
    }
}

TEST_F(Texture, ALostFileShowsBlack) {
    const std::string noSize = m_Folder / "no_size.tga";
    const char header[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 32, 0};
    std::ofstream(noSize, std::ios::binary).write(header, sizeof header);
    effect_test::FillRandom(m_Gray, 9, 4, 3, m_Random);
    CKVFrameBuffer black(1, 1, 1);
    black.ClearCol(kBlack);
    const std::vector<DWORD> expected = PlainTexture(m_Gray, black, 1);
    const char* const names[] = {nullptr, "", "no_such.tga", "a.xyz", noSize.c_str()};
    for (const char* name : names) {
        for (const LONG mode : {0, 1, 2, 7}) {
            EXPECT_EQ(Paint(mode, name), expected);
        }
    }
}

TEST_F(Texture, PaintsWithoutMemoryForTheName) {
    SKIP_UNDER_THREAD_SANITIZER();
    MakePicture({5, 4});
    effect_test::FillRandom(m_Gray, 9, 4, 3, m_Random);
    const tagTEXTUREINFO text{1, m_File.c_str()};
    EXPECT_EQ(WithAllocations(0, [&] { return CKVBwDraw().MakeFb_Text(&m_Gray, &m_Fb, &text); }),
              0);
    EXPECT_EQ(PixelsOf(m_Fb), PlainTexture(m_Gray, m_Picture, 1));
}

TEST_F(Texture, AnEmptyCoverageMakesAnEmptyLayer) {
    MakePicture({2, 2});
    for (const LONG mode : {0, 1, 2, 3}) {
        m_Fb.CreateFrameBuffer(2, 2, 1);
        EXPECT_TRUE(Paint(mode, m_File.c_str()).empty());
    }
    const tagMAPINFO unknown{3, nullptr, nullptr, nullptr};
    EXPECT_EQ(CKVBwDraw().GrayToFb(&m_Gray, &m_Fb, &unknown), -1);
}

// Each layer has its own: of the three files only the one named is there, the others show black.
TEST_F(Texture, PaintsEachLayerOfARender) {
    MakePicture({1, 1});
    m_Picture.ClearCol(0xFF0000AA);
    ASSERT_EQ(CImgFile().SaveImage(&m_Picture, m_File.c_str()), 0);
    CKVMonoBitmap mask;
    mask.Create(64, 64);
    std::fill_n(mask.Bits, mask.Size, BYTE{255});
    for (int layer = 0; layer < 3; ++layer) {
        tagKVBWDRAWINFO info{};
        info.AntiScale = 4;
        info.EdgeType_Size = 2;
        info.ShadType_Size = 10;
        info.BodyMode = info.EdgeMode = info.ShadMode = 2;
        tagTEXTUREINFO* const textures[] = {&info.BodyText, &info.EdgeText, &info.ShadText};
        *textures[layer] = {1, m_File.c_str()};
        CBox area, body, edge, shadow;
        ASSERT_EQ(CKVBwDraw().SetFb(&m_Fb, &info, &mask, area, body, edge, shadow), 0);
        const CPoint seen[] = {{10, 10}, {10, 1}, {25, 25}};  // where no other layer covers it
        for (int other = 0; other < 3; ++other) {
            const DWORD pixel = m_Fb.GetBufferDWord()[seen[other].y * m_Fb.m_Width + seen[other].x];
            EXPECT_EQ(pixel, other == layer ? 0xFF0000AA : kBlack) << layer << other;
        }
    }
}

}  // namespace
