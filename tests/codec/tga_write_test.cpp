#include <algorithm>

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

TEST(TgaWrite, HeadersToTheByte) {
    EXPECT_EQ(Saved(Row({0x44332211}), 0), (Bytes{0, 0, 2, 0, 0, 0,    0, 0,    0,    0,    0,
                                                  0, 1, 0, 1, 0, 0x20, 4, 0x11, 0x22, 0x33, 0x44}));
    Bytes header = Saved(CKVFrameBuffer(640, 480, 1), 1);
    header.resize(18);
    EXPECT_EQ(header, (Bytes{0, 0, 10, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x80, 2, 0xE0, 1, 0x20, 4}));
}

TEST(TgaWrite, PacketsToTheByte) {
    const DWORD a = 0x0A0A0A0A;
    const DWORD b = 0x0B0B0B0B;
    const std::pair<std::vector<DWORD>, Bytes> cases[] = {
        {{a, a, a, b, 0, b, b},
         {0x82, 10, 10, 10, 10, 0x01, 11, 11, 11, 11, 0, 0, 0, 0, 0x81, 11, 11, 11, 11}},
        {std::vector<DWORD>(200, a), {0xFE, 10, 10, 10, 10, 0xC8, 10, 10, 10, 10}},
        // The last pixel of the bottom row is compared with the spare zero word behind it.
        {{a, 0}, {0x00, 10, 10, 10, 10, 0x80, 0, 0, 0, 0}},
        {{0, a}, {0x01, 0, 0, 0, 0, 10, 10, 10, 10}},
    };
    for (const auto& [pixels, packets] : cases) {
        EXPECT_EQ(WithoutHeader(Saved(Row(pixels), 1)), packets);
    }
    std::vector<DWORD> mixed(130, a);
    for (std::size_t i = 0; i < mixed.size(); i += 2) {
        mixed[i] = b;
    }
    const Bytes literal = WithoutHeader(Saved(Row(mixed), 1));
    EXPECT_EQ(literal.size(), 2U + 130 * 4);
    EXPECT_EQ(literal[0], 126);
    EXPECT_EQ(literal[1 + 127 * 4], 2);
    // The bottom row comes first; the end of a row is compared with the start of the row below.
    CKVFrameBuffer rows(2, 2, 1);
    std::ranges::copy(std::vector<DWORD>{a, b, b, a}, rows.GetBufferDWord());
    EXPECT_EQ(WithoutHeader(Saved(rows, -3)), (Bytes{0x01, 11, 11, 11, 11, 10, 10, 10, 10,  //
                                                     0x00, 10, 10, 10, 10, 0x80, 11, 11, 11, 11}));
}

TEST(TgaWrite, ReadsBackEqualInBothForms) {
    for (const LONG width : {1, 3, 17, 128, 131}) {
        CKVFrameBuffer fb(width, 7, 1);
        tga::FillInStretches(fb, static_cast<unsigned int>(width), 9);
        for (const LONG mode : {0, 1}) {
            CKVFrameBuffer back;
            ASSERT_EQ(tga::Load(Saved(fb, mode), back), 0);
            EXPECT_EQ(back.m_Width, width);
            EXPECT_EQ(Pixels(back), Pixels(fb));
        }
    }
}

}  // namespace
