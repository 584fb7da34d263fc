#include <filesystem>

#include "tests/codec/tga_support.h"

namespace {

using tga::Bytes;
using tga::File;
using tga::Load;
using tga::Pixels;

// 3 x 2 pixels, the first row in the file 1, 2, 3.
Bytes Pixels32() {
    return {1, 10, 20, 30, 2, 11, 21, 31, 3, 12, 22, 32,
            4, 13, 23, 33, 5, 14, 24, 34, 6, 15, 25, 35};
}

TEST(TgaRead, RowOrderFollowsTheDescriptor) {
    const std::vector<DWORD> topFirst{0x1E140A01, 0x1F150B02, 0x20160C03,
                                      0x21170D04, 0x22180E05, 0x23190F06};
    const std::vector<DWORD> bottomFirst{0x21170D04, 0x22180E05, 0x23190F06,
                                         0x1E140A01, 0x1F150B02, 0x20160C03};
    CKVFrameBuffer top;
    CKVFrameBuffer bottom;
    EXPECT_EQ(Load(File(2, 3, 2, 32, 0x20, Pixels32()), top), 0);
    EXPECT_EQ(Load(File(2, 3, 2, 32, 0xCF, Pixels32()), bottom), 0);
    EXPECT_EQ(Pixels(top), topFirst);
    EXPECT_EQ(Pixels(bottom), bottomFirst);
}

TEST(TgaRead, TwentyFourBitsAreSolid) {
    const Bytes data{1, 2, 3, 4, 5, 6};
    for (const unsigned int depth : {24U, 15U, 0U, 255U}) {
        CKVFrameBuffer fb;
        LONG keyFlag = -1;
        EXPECT_EQ(Load(File(2, 2, 1, depth, 0, data), fb, &keyFlag), 0) << depth;
        EXPECT_EQ(Pixels(fb), (std::vector<DWORD>{0xFF030201, 0xFF060504}));
        EXPECT_EQ(keyFlag, 0);
    }
}

// What one changed header byte does to a readable file of 3 x 2 pixels.
int ExpectedResult(std::size_t at, BYTE value, std::size_t dataBytes) {
    switch (at) {
        case 0:  // skips pixel bytes, which are then missing
        case 1:
        case 13:
        case 15:
            return value == 0 ? 0 : -1;
        case 2:
            return value == 2 ? 0 : -1;  // as run-length these bytes end early
        case 12:
        case 14:
            return value >= 1 && value * (at == 12 ? 2U : 3U) * 4 <= dataBytes ? 0 : -1;
        case 16:
            return value == 8 || value == 16 ? -1 : 0;
        case 17:
            return (value & 0x10) != 0 ? -1 : 0;
        default:
            return 0;
    }
}

TEST(TgaRead, EveryValueOfEveryHeaderByteHasItsResult) {
    const Bytes good = File(2, 3, 2, 32, 0, Pixels32());
    for (std::size_t at = 0; at < 18; ++at) {
        for (unsigned int value = 0; value < 256; ++value) {
            Bytes changed = good;
            changed[at] = static_cast<BYTE>(value);
            CKVFrameBuffer fb;
            EXPECT_EQ(Load(changed, fb), ExpectedResult(at, changed[at], Pixels32().size()))
                << "byte " << at << " value " << value;
        }
    }
}

TEST(TgaRead, SkipsTheIdentification) {
    const Bytes file = File(2, 3, 2, 32, 0, Pixels32(), 5);
    CKVFrameBuffer fb;
    EXPECT_EQ(Load(file, fb), 0);
    EXPECT_EQ(fb.GetBufferDWord()[3], 0x1E140A01U);
    for (std::size_t length = 0; length < 23; ++length) {
        CKVFrameBuffer cut;
        EXPECT_EQ(Load(Bytes(file.begin(), file.begin() + static_cast<long>(length)), cut), -1);
        EXPECT_EQ(cut.IsBuffer(), 1) << length;
    }
}

// Decodes pixel by pixel; the plain form of the rule. False when the data end early.
bool PlainDecode(const Bytes& data, std::size_t bytesPerPixel, DWORD width, DWORD height, bool top,
                 std::vector<DWORD>& out) {
    out.assign(std::size_t{width} * height, 0);
    std::size_t pos = 0;
    for (std::size_t done = 0; done < out.size();) {
        if (pos == data.size()) {
            return false;
        }
        const BYTE control = data[pos++];
        for (int i = 0; i <= (control & 0x7F) && done < out.size(); ++i, ++done) {
            if (pos + bytesPerPixel > data.size()) {
                return false;
            }
            const DWORD key = bytesPerPixel == 4 ? data[pos + 3] : 255U;
            const std::size_t row = top ? done / width : height - 1 - done / width;
            out[row * width + done % width] =
                static_cast<DWORD>(data[pos] | data[pos + 1] << 8 | data[pos + 2] << 16) |
                key << 24;
            pos += (control & 0x80) != 0 ? 0 : bytesPerPixel;
        }
        pos += (control & 0x80) != 0 ? bytesPerPixel : 0;
    }
    return true;
}

TEST(TgaRead, RunLengthFilesCutAtEveryByteKeepTheirRowsSoFar) {
    std::mt19937 random(7);
    for (const unsigned int depth : {24U, 32U}) {
        for (const unsigned int width : {1U, 5U, 63U, 300U}) {
            Bytes data(700);
            for (BYTE& byte : data) {
                byte = static_cast<BYTE>(random() % 3 == 0 ? random() : random() % 140);
            }
            const unsigned int descriptor = width % 2 == 0 ? tga::kTop : 0;
            for (std::size_t length = 0; length <= data.size(); ++length) {
                const Bytes cut(data.begin(), data.begin() + static_cast<long>(length));
                std::vector<DWORD> expected;
                const bool whole =
                    PlainDecode(cut, depth / 8, width, 40, descriptor != 0, expected);
                CKVFrameBuffer fb;
                LONG keyFlag = 0;
                ASSERT_EQ(Load(File(10, width, 40, depth, descriptor, cut), fb, &keyFlag),
                          whole ? 0 : -1);
                ASSERT_EQ(keyFlag, whole && depth == 32 ? 1 : 0);
                ASSERT_EQ(Pixels(fb), expected) << "width " << width << " length " << length;
            }
        }
    }
}

TEST(TgaRead, ARawFileCutShortLeavesZeros) {
    for (const unsigned int depth : {24U, 32U}) {
        Bytes data(depth / 8 * 6 - 1, 0x55);
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(File(2, 3, 2, depth, 0, data), fb), -1);
        EXPECT_EQ(Pixels(fb), std::vector<DWORD>(6, 0));
        data.push_back(0x55);
        data.push_back(0x66);  // one too many is dropped
        CKVFrameBuffer whole;
        EXPECT_EQ(Load(File(2, 3, 2, depth, 0, data), whole), 0);
    }
}

TEST(TgaRead, PacketsRunOnPastRowsAndStopWithThePicture) {
    CKVFrameBuffer run;
    EXPECT_EQ(Load(File(10, 5, 4, 32, tga::kTop, {0xFF, 1, 2, 3, 4}), run), 0);
    EXPECT_EQ(Pixels(run), std::vector<DWORD>(20, 0x04030201));
    CKVFrameBuffer literal;
    EXPECT_EQ(Load(File(10, 1, 2, 24, tga::kTop, {0x7F, 1, 2, 3, 4, 5, 6}), literal), 0);
    EXPECT_EQ(Pixels(literal), (std::vector<DWORD>{0xFF030201, 0xFF060504}));
}

TEST(TgaRead, AClaimedSizeCostsNothing) {
    for (const unsigned int type : {2U, 10U}) {
        for (const unsigned int side : {4097U, 30000U, 65535U}) {
            CKVFrameBuffer fb;
            EXPECT_EQ(Load(File(type, side, side, 32, 0, {0xFF, 1, 2, 3, 4}), fb), -1);
            EXPECT_EQ(fb.IsBuffer(), 1) << "a picture that the data cannot fill is not made";
        }
    }
    MemoryFile file(File(2, 3, 2, 32, 0, Pixels32()));
    file.m_ClaimedLength = std::uint64_t{1} << 40;
    CKVFrameBuffer fb;
    EXPECT_EQ(CKVTargaImage().LoadImg(&file, &fb), 0);
    // The most that a run can stand for: 128 pixels in four bytes.
    Bytes runs;
    for (int i = 0; i < 5000 * 4000 / 128; ++i) {
        runs.insert(runs.end(), {0xFF, 1, 2, 3});
    }
    CKVFrameBuffer dense;
    EXPECT_EQ(Load(File(10, 5000, 4000, 24, 0, runs), dense), 0);
}

TEST(TgaRead, RefusesAFullFrameBufferAndNull) {
    CKVFrameBuffer fb(1, 1, 1);
    *fb.GetBufferDWord() = 7;
    EXPECT_EQ(Load(File(2, 3, 2, 32, 0, Pixels32()), fb), -1);
    EXPECT_EQ(Pixels(fb), std::vector<DWORD>(1, 7));
    MemoryFile file;
    EXPECT_EQ(CKVTargaImage().LoadImg(&file, nullptr), -1);
    EXPECT_EQ(CKVTargaImage().LoadImg(static_cast<CFile*>(nullptr), &fb), -1);
}

TEST(TgaRead, ExceptionsOfTheFileBecomeAFailure) {
    const Bytes bytes = File(10, 3, 2, 32, 0, {0x85, 1, 2, 3, 4}, 2);
    int call = 0;
    for (int result = -1; result != 0; ++call) {
        MemoryFile file(bytes);
        file.m_CallsUntilThrow = call;
        CKVFrameBuffer fb;
        result = CKVTargaImage().LoadImg(&file, &fb);
        EXPECT_EQ(fb.IsBuffer(), result == 0 ? 0 : 1);
        ASSERT_LT(call, 20);
    }
    EXPECT_GT(call, 6);  // seek, header, identification, length, position, data
}

TEST(TgaRead, NamesThatCannotBeOpenedGiveTheirCause) {
    CKVFrameBuffer fb;
    const std::string folder = testing::TempDir();
    EXPECT_EQ(CKVTargaImage().LoadImg((folder + "no_such.tga").c_str(), &fb),
              CFileException::fileNotFound);
    EXPECT_EQ(CKVTargaImage().LoadImg(folder.c_str(), &fb), CFileException::accessDenied);
    EXPECT_EQ(CKVTargaImage().SaveImage(folder.c_str(), &fb, 0), CFileException::accessDenied);

    const std::string path = folder + "kvdraw_empty.tga";
    EXPECT_EQ(CKVTargaImage().SaveImage(path.c_str(), &fb, 0), -1);
    EXPECT_EQ(std::filesystem::file_size(path), 0U) << "made before the frame buffer is looked at";
    std::filesystem::remove(path);
}

}  // namespace
