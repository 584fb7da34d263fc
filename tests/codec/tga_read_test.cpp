#include <algorithm>

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

TEST(TgaRead, RawRowsFollowTheDescriptorAndTwentyFourBitsAreSolid) {
    for (const unsigned int descriptor : {0x20U, 0xCFU}) {
        std::vector<DWORD> expected{0x1E140A01, 0x1F150B02, 0x20160C03,
                                    0x21170D04, 0x22180E05, 0x23190F06};
        std::rotate(expected.begin(), expected.begin() + (descriptor == 0x20 ? 0 : 3),
                    expected.end());
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(File(2, 3, 2, 32, descriptor, Pixels32()), fb), 0);
        EXPECT_EQ(Pixels(fb), expected);
    }
    for (const unsigned int depth : {24U, 15U, 0U, 255U}) {
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(File(2, 2, 1, depth, 0, {1, 2, 3, 4, 5, 6}), fb), 0) << depth;
        EXPECT_EQ(Pixels(fb), (std::vector<DWORD>{0xFF030201, 0xFF060504}));
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

TEST(TgaRead, RawFilesCutAtEveryByteLeaveZeros) {
    const Bytes file = File(2, 3, 2, 32, 0, Pixels32(), 5);
    for (std::size_t length = 0; length <= file.size(); ++length) {
        CKVFrameBuffer cut;
        const bool whole = length == file.size();
        EXPECT_EQ(Load({file.begin(), file.begin() + static_cast<long>(length)}, cut),
                  whole ? 0 : -1);
        EXPECT_EQ(cut.IsBuffer(), length < 23 ? 1 : 0) << length;
        EXPECT_TRUE(length < 23 || Pixels(cut)[3] == (whole ? 0x1E140A01U : 0U)) << length;
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
    CKVFrameBuffer dense;
    EXPECT_EQ(Load(File(10, 5000, 4000, 24, 0, Bytes(5000 * 4000 / 32, 0xFF)), dense), 0);
}

}  // namespace
