#include <algorithm>
#include <filesystem>

#include "tests/codec/tga_support.h"

namespace {

using tga::Bytes;
using tga::Pixels;
using tga::Saved;

CKVFrameBuffer Row(const std::vector<DWORD>& pixels) {
    CKVFrameBuffer fb(static_cast<LONG>(pixels.size()), 1, 1);
    std::ranges::copy(pixels, fb.GetBufferDWord());
    return fb;
}

Bytes WithoutHeader(const Bytes& file) {
    return {file.begin() + 18, file.end()};
}

TEST(TgaWrite, SmallFilesToTheByte) {
    const CKVFrameBuffer one = Row({0x44332211});
    EXPECT_EQ(Saved(one, 0), (Bytes{0, 0, 2, 0, 0, 0,    0, 0,    0,    0,    0,
                                    0, 1, 0, 1, 0, 0x20, 4, 0x11, 0x22, 0x33, 0x44}));
    const CKVFrameBuffer large(640, 480, 1);
    Bytes header = Saved(large, 0);
    EXPECT_EQ(header.size(), 18U + 640 * 480 * 4);
    header.resize(18);
    EXPECT_EQ(header, (Bytes{0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 2, 0xE0, 1, 0x20, 4}));
    EXPECT_EQ(Saved(large, 1)[2], 10);
}

TEST(TgaWrite, PacketsToTheByte) {
    const DWORD a = 0x0A0A0A0A;
    const DWORD b = 0x0B0B0B0B;
    const DWORD c = 0x0C0C0C0C;
    const DWORD d = 0x0D0D0D0D;
    EXPECT_EQ(
        WithoutHeader(Saved(Row({a, a, a, b, c, d, d}), 1)),
        (Bytes{0x82, 10, 10, 10, 10, 0x01, 11, 11, 11, 11, 12, 12, 12, 12, 0x81, 13, 13, 13, 13}));
    EXPECT_EQ(WithoutHeader(Saved(Row({a, b, c, d}), 1)),
              (Bytes{0x03, 10, 10, 10, 10, 11, 11, 11, 11, 12, 12, 12, 12, 13, 13, 13, 13}));
    EXPECT_EQ(WithoutHeader(Saved(Row(std::vector<DWORD>(200, a)), 1)),
              (Bytes{0xFE, 10, 10, 10, 10, 0xC8, 10, 10, 10, 10}));
    // The last pixel of the bottom row is compared with the spare zero word behind it.
    EXPECT_EQ(WithoutHeader(Saved(Row({a, 0}), 1)),
              (Bytes{0x00, 10, 10, 10, 10, 0x80, 0, 0, 0, 0}));
    EXPECT_EQ(WithoutHeader(Saved(Row({0, a}), 1)), (Bytes{0x01, 0, 0, 0, 0, 10, 10, 10, 10}));
}

// The packet rule step by step, with its own count of pixels.
int PlainCheck(const DWORD* p, LONG remaining, LONG* isRun) {
    *isRun = p[0] == p[1] ? 1 : 0;
    int count = 1;
    for (LONG i = 1; i < remaining; ++i, ++count) {
        if (i == 127) {
            return count;
        }
        if (p[i] == p[i + 1] && *isRun == 0) {
            return count;
        }
        if (p[i] != p[i + 1] && *isRun == 1) {
            return count + 1;
        }
    }
    return count;
}

TEST(TgaWrite, EncodesRowByRowFromTheBottomByThePlainRule) {
    for (const LONG width : {1, 2, 31, 127, 128, 129, 255, 600}) {
        CKVFrameBuffer fb(width, 9, 1);
        tga::FillInStretches(fb, 11, static_cast<DWORD>(width) + 3);
        Bytes expected;
        for (LONG y = 8; y >= 0; --y) {
            for (LONG x = 0; x < width;) {
                const DWORD* p = fb.GetBufferDWord() + y * width + x;
                LONG isRun = 0;
                const int count = PlainCheck(p, width - x, &isRun);
                expected.push_back(static_cast<BYTE>((count - 1) | (isRun != 0 ? 0x80 : 0)));
                const auto* bytes = reinterpret_cast<const BYTE*>(p);
                expected.insert(expected.end(), bytes, bytes + (isRun != 0 ? 4 : count * 4));
                x += count;
            }
        }
        ASSERT_EQ(WithoutHeader(Saved(fb, -3)), expected) << width;
    }
}

TEST(TgaWrite, ReadsBackEqualInBothForms) {
    for (const LONG width : {1, 3, 17, 128, 131}) {
        for (const LONG height : {1, 2, 7}) {
            CKVFrameBuffer fb(width, height, 1);
            tga::FillInStretches(fb, static_cast<unsigned int>(width * height), 9);
            for (const LONG mode : {0, 1}) {
                CKVFrameBuffer back;
                LONG keyFlag = 0;
                ASSERT_EQ(tga::Load(Saved(fb, mode), back, &keyFlag), 0);
                EXPECT_EQ(back.m_Width, width);
                EXPECT_EQ(Pixels(back), Pixels(fb));
                EXPECT_EQ(keyFlag, 1);
            }
        }
    }
}

TEST(TgaWrite, WritesNothingForWhatAHeaderCannotHold) {
    const CKVFrameBuffer wide(65536, 1, 1);
    const CKVFrameBuffer high(1, 65536, 1);
    const CKVFrameBuffer empty;
    for (const CKVFrameBuffer* fb :
         {&wide, &high, &empty, static_cast<const CKVFrameBuffer*>(nullptr)}) {
        MemoryFile file;
        CKVTargaImage codec;
        EXPECT_EQ(codec.SaveImage(&file, fb, 1), -1);
        EXPECT_TRUE(file.m_Bytes.empty());
        EXPECT_EQ(codec.GetKeyFlag(), 0);
    }
    const CKVFrameBuffer widest(65535, 1, 1);
    CKVFrameBuffer back;
    EXPECT_EQ(tga::Load(Saved(widest, 1), back), 0);
    EXPECT_EQ(back.m_Width, 65535);
}

TEST(TgaWrite, FailedWritesGiveAFailureAndASeekThrows) {
    const CKVFrameBuffer fb(100, 100, 1);
    for (int call = 1; call < 5; ++call) {  // header and three chunks
        MemoryFile file;
        file.m_CallsUntilThrow = call;
        CKVTargaImage codec;
        EXPECT_EQ(codec.SaveImage(&file, &fb, 0), -1) << call;
        EXPECT_EQ(codec.GetKeyFlag(), 1);
        EXPECT_LE(file.m_LargestTransfer, 16384U);
    }
    MemoryFile file;
    file.m_CallsUntilThrow = 0;
    EXPECT_THROW(CKVTargaImage().SaveImage(&file, &fb, 0), CFileException);
}

class OpenCodec : public CKVTargaImage {
  public:
    using CKVTargaImage::ImgConv_Comp32;
    using CKVTargaImage::ImgConv_TgaToFb;
};

TEST(TgaWrite, StepsByThemselvesHaveDefinedEnds) {
    OpenCodec codec;
    tagTGA_HEADER header{};
    header.ImageType = 3;
    header.Width = header.Height = 1;
    CKVFrameBuffer fb;
    const BYTE bytes[4] = {};
    EXPECT_EQ(codec.ImgConv_TgaToFb(bytes, 4, &header, &fb), -1);
    EXPECT_EQ(fb.IsBuffer(), 1);
    BYTE out[4] = {};
    EXPECT_EQ(codec.ImgConv_Comp32(bytes, 4, out, 0, 1, 0), -1) << "rows without pixels never fill";
    EXPECT_EQ(codec.ImgConv_Comp32(bytes, 4, out, 1, 0, 0), 0);
}

TEST(TgaWrite, ByFileNameReplacesWhatWasThere) {
    const std::string path = testing::TempDir() + "kvdraw_save.tga";
    CKVFrameBuffer fb(20, 20, 1);
    tga::FillInStretches(fb, 3, 4);
    ASSERT_EQ(CKVTargaImage().SaveImage(path.c_str(), &fb, 0), 0);
    ASSERT_EQ(CKVTargaImage().SaveImage(path.c_str(), &fb, 1), 0);
    EXPECT_EQ(std::filesystem::file_size(path), Saved(fb, 1).size());
    CKVFrameBuffer back;
    EXPECT_EQ(CKVTargaImage().LoadImg(path.c_str(), &back), 0);
    EXPECT_EQ(Pixels(back), Pixels(fb));
    EXPECT_EQ(CKVTargaImage().SaveImage("/dev/full", &fb, 0), -1);
    std::filesystem::remove(path);
}

}  // namespace
