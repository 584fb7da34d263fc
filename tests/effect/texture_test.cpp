#include <CKVTargaImage.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"
#include "tests/effect/plain_render.h"
#include "tests/support/temp_folder.h"

namespace {

using effect_test::PixelsOf;

constexpr DWORD kBlack = 0xFF000000;

// Pixels of all keys; the same seed gives the same ones.
void FillPicture(CKVFrameBuffer& fb, LONG width, LONG height, std::mt19937& random) {
    fb.DeleteFrameBuffer();
    fb.CreateFrameBuffer(width, height, 1);
    for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
        fb.GetBufferDWord()[i] = static_cast<DWORD>(random());
    }
}

// By whole copies into the layer, then pixel by pixel through the coverage.
std::vector<DWORD> PlainTexture(const CKVGrayBitmap& gray, const CKVFrameBuffer& picture,
                                LONG mode) {
    const LONG w = picture.m_Width, h = picture.m_Height;
    CKVFrameBuffer layer(gray.Width, gray.Height, 1);
    if (mode == 0) {
        layer.ClearCol(kBlack);
        layer.FbCopy(&picture, 0, 0, w, h, gray.Width / 2 - w / 2, gray.Height / 2 - h / 2, 0,
                     nullptr);
    } else if (mode == 1) {
        for (LONG y = 0; y < gray.Height; y += h) {
            for (LONG x = 0; x < gray.Width; x += w) {
                layer.FbCopy(&picture, 0, 0, w, h, x, y, 0, nullptr);
            }
        }
    } else if (mode == 2) {
        picture.SizeChange(&layer, gray.Width, gray.Height);
    }
    std::vector<DWORD> pixels = PixelsOf(layer);
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        const DWORD g = effect_test::At(gray, static_cast<LONG>(i % layer.GetWidth()),
                                        static_cast<LONG>(i / layer.GetWidth()));
        pixels[i] = g == 0 ? 0 : (pixels[i] >> 24) * g / 255 << 24 | (pixels[i] & 0xFFFFFF);
    }
    return pixels;
}

class Texture : public testing::Test {
  protected:
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
    CKVGrayBitmap m_Gray;
    CKVFrameBuffer m_Fb;
};

TEST_F(Texture, PaintsAsTheCopiesDo) {
    const CSize sizes[] = {{1, 1}, {3, 3}, {4, 7}, {16, 16}, {33, 2}, {90, 50}};
    CKVFrameBuffer picture;
    for (const CSize& size : sizes) {
        FillPicture(picture, size.cx, size.cy, m_Random);
        ASSERT_EQ(CKVTargaImage().SaveImage(m_File.c_str(), &picture, 0), 0);
        for (LONG width = 1; width < 70; width += 1 + width / 9) {
            effect_test::FillRandom(m_Gray, width, 1 + width * 5 % 37, 3, m_Random);
            for (const LONG mode : {0, 1, 2, 3, -1}) {
                const std::vector<DWORD> expected = PlainTexture(m_Gray, picture, mode);
                effect_test::AtEachLevel([&] {
                    ASSERT_EQ(Paint(mode, m_File.c_str()), expected)
                        << size.cx << " onto " << width << " mode " << mode;
                });
            }
        }
    }
}

TEST_F(Texture, ALostFileShowsBlack) {
    effect_test::FillRandom(m_Gray, 9, 4, 3, m_Random);
    std::vector<DWORD> expected;
    for (LONG i = 0; i < 9 * 4; ++i) {
        expected.push_back(DWORD{effect_test::At(m_Gray, i % 9, i / 9)} << 24);
    }
    const char noSize[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 32, 0};
    CFile file;
    ASSERT_TRUE(file.Open(m_File.c_str(), CFile::modeCreate | CFile::modeWrite));
    file.Write(noSize, sizeof noSize);
    file.Close();
    for (const char* name :
         {static_cast<const char*>(nullptr), "", "no_such.tga", "a.xyz", m_File.c_str()}) {
        for (const LONG mode : {0, 1, 2, 7}) {
            EXPECT_EQ(Paint(mode, name), expected);
        }
    }
}

TEST_F(Texture, NullEmptyAndUnknown) {
    tagTEXTUREINFO text{0, ""};
    tagMAPINFO map{3, nullptr, nullptr, &text};
    m_Fb.CreateFrameBuffer(2, 2, 1);
    m_Gray.Create(3, 3);
    CKVBwDraw draw;
    EXPECT_EQ(draw.GrayToFb(&m_Gray, &m_Fb, &map), -1);
    EXPECT_EQ(draw.GrayToFb(&m_Gray, &m_Fb, nullptr), -1);
    EXPECT_EQ(draw.MakeFb_Text(nullptr, &m_Fb, &text), -1);
    EXPECT_EQ(draw.MakeFb_Text(&m_Gray, nullptr, &text), -1);
    EXPECT_EQ(draw.MakeFb_Text(&m_Gray, &m_Fb, nullptr), -1);
    EXPECT_EQ(m_Fb.GetWH(), CSize(2, 2));
    FillPicture(m_Fb, 2, 2, m_Random);
    ASSERT_EQ(CKVTargaImage().SaveImage(m_File.c_str(), &m_Fb, 1), 0);
    m_Gray.Delete();
    for (const LONG mode : {0, 1, 2, 3}) {
        m_Fb.CreateFrameBuffer(2, 2, 1);
        Paint(mode, m_File.c_str());
        EXPECT_EQ(m_Fb.IsBuffer(), 1);
    }
}

// Body, edge and shadow each through the record.
TEST_F(Texture, PaintsAllLayersOfARender) {
    CKVMonoBitmap mask;
    mask.Create(64, 64);
    std::fill_n(mask.Bits, mask.Size, BYTE{255});
    CKVFrameBuffer tile;
    tagKVBWDRAWINFO info{};
    info.AntiScale = 4;
    info.EdgeType_Size = 2;
    info.ShadType_Size = 10;
    info.BodyMode = info.EdgeMode = info.ShadMode = 2;
    std::vector<std::string> names;
    for (const DWORD colour : {0xFF0000AAU, 0xFF00BB00U, 0xFFCC0000U}) {
        tile.DeleteFrameBuffer();
        tile.CreateFrameBuffer(2, 2, 1);
        tile.ClearCol(colour);
        names.push_back(m_Folder / std::to_string(colour) + ".tga");
        ASSERT_EQ(CKVTargaImage().SaveImage(names.back().c_str(), &tile, 1), 0);
    }
    info.BodyText = {1, names[0].c_str()};
    info.EdgeText = {1, names[1].c_str()};
    info.ShadText = {0, names[2].c_str()};
    CBox area, body, edge, shadow;
    ASSERT_EQ(CKVBwDraw().SetFb(&m_Fb, &info, &mask, area, body, edge, shadow), 0);
    const auto at = [&](LONG x, LONG y) { return m_Fb.GetBufferDWord()[y * m_Fb.m_Width + x]; };
    EXPECT_EQ(at(body.x + 8, body.y + 8), 0xFF0000AAU);
    EXPECT_EQ(at(edge.x + 8, edge.y), 0xFF00BB00U);
    EXPECT_EQ(at(shadow.x + 18, shadow.y + 18), kBlack);  // beyond the picture in its middle
    EXPECT_EQ(at(0, 29), 0U);
}

}  // namespace
