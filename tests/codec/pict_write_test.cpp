#include <algorithm>
#include <utility>

#include "tests/codec/pict_support.h"
#include "tests/support/no_memory.h"

namespace {

using pict::Bytes;
using pict::Joined;
using pict::Pixels;
using pict::Words;

constexpr std::size_t kRowsAt = 622;

Bytes Saved(const CKVFrameBuffer& fb, LONG mode = 0) {
    return pictures::Saved<CKVPictImage>(fb, mode);
}

TEST(PictWrite, FileToTheByte) {
    CKVFrameBuffer fb(1, 1, 1);
    *fb.GetBufferDWord() = 0x44332211;
    const Bytes resolution = Words({72, 0, 72, 0});
    const Bytes rect = Words({0, 0, 1, 1});
    Bytes file = Joined(Bytes(512, 0), Words({630}));
    for (const Bytes& part :
         {rect, Words({0x0011, 0x02FF, 0x0C00, 0xFFFE, 0}), resolution, rect,
          Words({0, 0, 0x009A, 0, 0x00FF, 0x8004}), rect, Words({0, 4, 0, 0}), resolution,
          Words({16, 32, 4, 8, 0, 0, 0, 0, 0, 0}), rect, rect, Words({0x0040}),
          Bytes{5, 3, 0x44, 0x33, 0x22, 0x11}, Words({0x00FF})}) {
        file = Joined(file, part);
    }
    EXPECT_EQ(Saved(fb), file);
    EXPECT_EQ(Saved(fb, 1), file);

    // Sizes that fill their fields, a file length of more than 16 bits.
    const Bytes wide = Saved(CKVFrameBuffer(8191, 300, 1));
    EXPECT_EQ(pictures::Cut(wide, 512, 522),
              Words({static_cast<unsigned int>(wide.size() % 65536), 0, 0, 300, 8191}));
    EXPECT_EQ(pictures::Cut(wide, 558, 560), Words({0xFFFC}));
}

// A row in packets, by the plain decision, which needs no memory; the byte behind the row is 0.
Bytes PlainPackets(Bytes row) {
    const std::size_t size = row.size();
    row.push_back(0);
    Bytes packets;
    for (std::size_t at = 0; at < size;) {
        LONG isRun = 0;
        const auto left = static_cast<LONG>(size - at);
        const int count = WithAllocations(
            0, [&] { return CKVPictImage().PictCheckComp(&row[at], left, &isRun); });
        packets.push_back(static_cast<BYTE>(isRun == 1 ? 1 - count : count - 1));
        const std::size_t stored = isRun == 1 ? 1 : static_cast<std::size_t>(count);
        packets = Joined(packets, pictures::Cut(row, at, at + stored));
        at += static_cast<std::size_t>(count);
    }
    return packets;
}

Bytes Letters(const std::string& letters) {
    return {letters.begin(), letters.end()};
}

TEST(PictWrite, PacketsOfKnownRows) {
    const std::pair<std::string, Bytes> cases[] = {
        {"abccdeeeeeef", {2, 'a', 'b', 'c', 1, 'c', 'd', 0xFB, 'e', 0, 'f'}},
        {"abccdddeeeeeef", {4, 'a', 'b', 'c', 'c', 'd', 0xFF, 'd', 0xFB, 'e', 0, 'f'}},
        {"aabbcc", {0xFF, 'a', 0xFF, 'b', 0xFF, 'c'}},
        {"aaaaab", {0xFC, 'a', 0, 'b'}},
        {"ab", {1, 'a', 'b'}},
        {"abbccccd", {0, 'a', 0xFF, 'b', 0xFD, 'c', 0, 'd'}},
        {"abbcccccd", {1, 'a', 'b', 0, 'b', 0xFC, 'c', 0, 'd'}},
        {std::string(300, 'a'), {0x82, 'a', 0x82, 'a', 0xD3, 'a'}},
        {std::string("aa\0", 3), {0xFF, 'a', 0, 0}},
        {std::string("a\0", 2), {1, 'a', 0}},
    };
    for (const auto& [letters, packets] : cases) {
        EXPECT_EQ(PlainPackets(Letters(letters)), packets) << letters;
    }
}

std::string Repeated(const std::string& letters, int times, const std::string& rest = "") {
    return times == 0 ? rest : letters + Repeated(letters, times - 1, rest);
}

TEST(PictWrite, PacketsEndAt127Bytes) {
    const std::pair<std::string, int> cases[] = {
        {"", 1},
        {Repeated("ab", 200), 127},
        {Repeated("a", 127), 127},
        {Repeated("a", 128), 127},
        {Repeated("ab", 63, "a"), 127},
        // Pairs before a long repeat: each makes the literal longer by one byte.
        {Repeated("abb", 1, Repeated("ccdd", 62, "eeeee")), 126},
        {Repeated("a", 1, Repeated("ccdd", 63, "eeeee")), 1},
    };
    for (const auto& [letters, count] : cases) {
        LONG isRun = 0;
        const auto size = static_cast<LONG>(letters.size());
        EXPECT_EQ(
            CKVPictImage().PictCheckComp(Joined(Letters(letters), {0, 0}).data(), size, &isRun),
            count)
            << letters;
    }
}

// The packed rows of a picture. A row that its count cannot tell is all literals.
Bytes PlainRows(const CKVFrameBuffer& fb) {
    Bytes rows;
    const auto width = static_cast<std::size_t>(fb.m_Width);
    for (std::size_t y = 0; y < fb.GetHeight(); ++y) {
        Bytes row;
        for (const std::size_t channel : {3U, 2U, 1U, 0U}) {
            for (std::size_t x = 0; x < width; ++x) {
                row.push_back(fb.m_BufferByte[(y * width + x) * 4 + channel]);
            }
        }
        Bytes packets = PlainPackets(row);
        if (width < 63 && packets.size() > 255) {
            packets = Joined(
                Joined({126}, pictures::Cut(row, 0, 127)),
                Joined({static_cast<BYTE>(row.size() - 128)}, pictures::Cut(row, 127, row.size())));
        }
        const Bytes count = Words({static_cast<unsigned int>(packets.size())});
        rows = Joined(Joined(rows, pictures::Cut(count, width < 63 ? 1 : 0, 2)), packets);
    }
    if (rows.size() % 2 != 0) {
        rows.push_back(0);
    }
    return rows;
}

// Bytes of few values, or stretches of them of up to longest, or noise.
void FillBytes(CKVFrameBuffer& fb, std::mt19937& random, unsigned int values,
               unsigned int longest) {
    for (DWORD i = 0; i < fb.m_Size;) {
        const auto byte = static_cast<BYTE>(random() % values);
        const DWORD end = std::min(fb.m_Size, i + 1 + static_cast<DWORD>(random() % longest));
        std::fill(fb.m_BufferByte + i, fb.m_BufferByte + end, byte);
        i = end;
    }
}

// Rows of a, b b, c, d d, ... pack worst, to four bytes for three.
constexpr unsigned int kPairs = 1;
void FillPairs(CKVFrameBuffer& fb) {
    const std::size_t width = fb.GetWidth();
    for (std::size_t i = 0; i < width * 4; ++i) {
        fb.m_BufferByte[i % width * 4 + 3 - i / width] = static_cast<BYTE>(i - (i % 3) / 2);
    }
}

TEST(PictWrite, RowsAgreeWithPlainPackingAndReadBack) {
    std::mt19937 random(5);
    int literalRows = 0;
    std::vector<LONG> widths{127, 128, 129, 255, 700, 4000};
    for (LONG width = 1; width <= 67; ++width) {
        widths.push_back(width);
    }
    const std::pair<unsigned int, unsigned int> fillings[] = {
        {256, 1}, {2, 1}, {3, 1}, {20, 1}, {200, 3}, {2, 300}, {1, 1}, {256, 40}};
    for (const LONG width : widths) {
        for (const auto& [values, longest] : fillings) {
            CKVFrameBuffer fb(width, 3, 1);
            FillBytes(fb, random, values, longest);
            // By planes too: in the bytes of one channel the stretches are whole.
            for (DWORD i = 0; longest > 1 && i < fb.m_Size; ++i) {
                fb.m_BufferByte[i] = fb.m_BufferByte[i / 4];
            }
            if (values == kPairs) {
                FillPairs(fb);
            }
            const Bytes file = Saved(fb);
            ASSERT_EQ(pictures::Cut(file, kRowsAt, file.size() - 2), PlainRows(fb))
                << width << ": " << values << " values, " << longest;
            CKVFrameBuffer back;
            LONG keyFlag = 0;
            ASSERT_EQ(pict::Load(file, back, &keyFlag), 0);
            EXPECT_EQ(Pixels(back), Pixels(fb));
            EXPECT_EQ(keyFlag, 1);
            literalRows += file[kRowsAt + 1] == 126 && values == kPairs && width < 63 ? 1 : 0;
        }
    }
    EXPECT_EQ(literalRows, 62 - 48 + 1);
}

}  // namespace
