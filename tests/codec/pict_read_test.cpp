#include <algorithm>
#include <cstdlib>

#include "tests/codec/pict_support.h"

namespace {

using pict::Bytes;
using pict::File;
using pict::Joined;
using pict::Load;
using pict::Pixels;
using pict::Pixmap;
using pict::Words;

// Two pixels with keys, the row of which has a run and a literal packet.
const Pixmap kPixmap{2, 1, 0x8008};
const Bytes kRow{9, 0xFF, 0xFF, 5, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60};
const std::vector<DWORD> kPixels{0xFF103050, 0xFF204060};

TEST(PictRead, PixelsAndKeyFlagOfAllForms) {
    struct Case {
        Pixmap pixmap;
        Bytes rows;
        std::vector<DWORD> pixels;
        int result = 0;
        LONG keyFlag = 0;
    };
    const Case cases[] = {
        {kPixmap, kRow, kPixels, 0, 1},
        {{2, 1, 8, 32, 4, 1}, kRow, {}, -1, 1},  // not made: the flag stays
        {{0, 1, 8, 32, 3}, kRow, {}, -1, 1},
        {{2, 1, 8, 32, 5}, kRow, {0, 0}, -1},
        {{2, 1, 8, 32, 4, 3}, Joined({10, 0x80}, pictures::Cut(kRow, 1, 10)), kPixels, 0, 1},
        {{2, 1, 8, 24}, kRow, {0, 0}, -1},
        {{1, 2, 8}, kRow, {kPixels[0], 0}, -1, 1},
        {{2, 2, 8, 32, 3},
         {7, 5, 1, 2, 3, 4, 5, 6, 2, 0xFB, 9},
         {0xFF010305, 0xFF020406, 0xFF090909, 0xFF090909}},
        {{3, 1, 0x8006, 16, 0, 3},
         {7, 0xFF, 0x7F, 0xFF, 0, 0x04, 0x21},
         {0xFFF8F8F8, 0xFFF8F8F8, 0xFF080808}},
        {{1, 1, 3, 16}, {3, 0, 0xFC, 0x1F}, {0xFFF800F8}},
        // Rows shorter than the width: planes run into each other, words are 0.
        {{3, 1, 4}, {5, 3, 1, 2, 3, 4}, {0x01020304, 0x02030400, 0x03040000}, 0, 1},
        {{2, 1, 2, 16}, {3, 0, 0x7C, 0}, {0xFFF80000, 0xFF000000}},
        {{2, 1, 0, 16}, {0}, {0xFF000000, 0xFF000000}},
    };
    CKVPictImage codec;
    for (const Case& form : cases) {
        MemoryFile file(File({}, form.pixmap, form.rows));
        CKVFrameBuffer fb;
        EXPECT_EQ(codec.LoadImg(&file, &fb), form.result);
        EXPECT_EQ(Pixels(fb), form.pixels);
        EXPECT_EQ(codec.GetKeyFlag(), form.keyFlag);
        EXPECT_EQ(CKVPictImage(codec).GetKeyFlag(), form.keyFlag);
    }
}

TEST(PictRead, OpcodesBeforeThePixelMap) {
    const std::pair<Bytes, int> cases[] = {
        {{}, 0},
        {Words({0x0000, 0x001E, 0x1234, 0xFFFF}), 0},
        {Joined(Words({0x0C00}), Bytes(24, 0x98)), 0},
        {Words({0x0001, 10, 0x0098, 0, 0, 0}), 0},
        {Words({0x0001, 14, 0, 0, 9, 9, 0x00FF, 0x0098}), 0},
        {Words({0x0001, 2}), 0},
        {Words({0x0001, 1}), -1},
        {Words({0x0001, 0}), -1},
        {Words({0x0001, 0xFFFF}), -1},
        {Words({0x00A0, 0x0098}), 0},
        {Joined(Words({0x00A1, 100, 3}), {0, 0x98, 0}), 0},
        {Words({0x00A1, 0x0098, 0}), 0},
        {Words({0x00A1, 0, 0xFFFF}), -1},
        {Words({0x0003, 0x0015}), 0},
        {Words({0x0003, 0x0098}), -1},  // its data are taken for an opcode
        {Words({0x0090}), -1},
        {Words({0x0091}), -1},
        {Words({0x0098}), -1},
        {Words({0x0099}), -1},
        {Words({0x009B}), -1},
        {Words({0x00FF}), -1},
    };
    for (const auto& [opcodes, result] : cases) {
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(File(opcodes, kPixmap, kRow), fb), result)
            << testing::PrintToString(opcodes);
        EXPECT_EQ(Pixels(fb), result == 0 ? kPixels : std::vector<DWORD>());
    }
}

// Opcodes lie across the blocks in which they are read, and a block is one call of the file.
TEST(PictRead, OpcodesInFewCalls) {
    Bytes skipped = Joined(Words({0x0C00}), Bytes(24, 0x98));
    skipped = Joined(Joined(skipped, Words({0x00A1, 1, 6001})), Bytes(6001, 0x98));
    skipped = Joined(skipped, Words({0x0001, 10, 0x0098, 0, 0, 0}));
    for (std::size_t zeros = 4000; zeros < 1 << 22;
         zeros = zeros < 4200 ? zeros + 2 : zeros * 900) {
        MemoryFile file(File(Joined(Bytes(zeros, 0), skipped), kPixmap, kRow));
        file.m_CallsUntilThrow = static_cast<int>(20 + zeros / 1024);
        CKVFrameBuffer fb;
        ASSERT_EQ(CKVPictImage().LoadImg(&file, &fb), 0) << zeros;
        ASSERT_EQ(Pixels(fb), kPixels) << zeros;
    }
}

TEST(PictRead, EveryValueOfEveryRecordByteHasItsResult) {
    struct Range {
        std::size_t at;  // from the version opcode
        int low;
        int high;
    };
    const Range readable[] = {
        {0, 0, 0},  {1, 0x11, 0x11},  {2, 2, 2},   {3, 0xFF, 0xFF},  // version
        {4, 0, 0},  {5, 0x9A, 0x9A},                                 // opcode
        {10, 0, 0}, {10, 0x80, 0x80}, {11, 4, 11},                   // bytes of a row, with a flag
        {22, 0, 0}, {23, 3, 4},                                      // packing
        {38, 0, 0}, {39, 32, 32},                                    // bits; 16 want more data
        {40, 0, 0}, {41, 3, 4},                                      // components
        {56, 0, 0}, {57, 30, 30},                                    // one row,
        {60, 0, 0}, {61, 31, 31},                                    //
        {58, 0, 0}, {59, 32, 41},                                    // of up to 10 pixels
        {62, 0, 0}, {63, 41, 50},
    };
    for (std::size_t at = 0; at < 4 + 70; ++at) {
        for (int value = 0; value < 256; ++value) {
            bool isFree = true;
            bool isReadable = false;
            for (const Range& range : readable) {
                isFree = isFree && range.at != at;
                isReadable |= range.at == at && value >= range.low && value <= range.high;
            }
            Bytes changed = File({}, kPixmap, kRow);
            changed[pict::kHeadBytes - 4 + at] = static_cast<BYTE>(value);
            CKVFrameBuffer fb;
            EXPECT_EQ(Load(changed, fb), isFree || isReadable ? 0 : -1) << at << ": " << value;
        }
    }
}

TEST(PictRead, FilesCutAtEveryByteFail) {
    const Bytes opcodes = Words({0x0001, 10, 0, 0, 9, 9, 0x00A0, 1, 0x00A1, 1, 2, 0x1234});
    const Bytes file = File(opcodes, kPixmap, kRow);
    for (std::size_t length = 0; length < file.size(); ++length) {
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(pictures::Cut(file, 0, length), fb), -1) << length;
        EXPECT_EQ(fb.IsBuffer(), length < file.size() - kRow.size() ? 1 : 0) << length;
    }
}

// Unpacks and converts unit by unit; the plain form of the rule.
int PlainDecode(const Bytes& data, const Pixmap& pixmap, std::vector<DWORD>& out) {
    const bool is16 = pixmap.bits == 16;
    const std::size_t planes = pixmap.components;
    const std::size_t plane = pixmap.rowBytes / 4;
    const std::size_t unit = is16 ? 2 : 1;
    const std::size_t wanted = is16 ? pixmap.rowBytes / 2 * 2 : plane * planes;
    Bytes row(std::max(is16 || planes == 3 ? pixmap.width * std::size_t{4} : plane * 8, wanted));
    out.assign(std::size_t{pixmap.width} * pixmap.height, 0);
    std::size_t next = 0;
    for (std::size_t y = 0; y < pixmap.height; ++y) {
        const bool isWide = is16 ? pixmap.rowBytes > 250 : plane > 62;
        std::size_t at = next + (isWide ? 2 : 1);
        if (at > data.size()) {
            return -1;
        }
        next = at + data[at - 1] + (isWide ? data[at - 2] * 256U : 0U);
        for (std::size_t done = 0; done < wanted;) {
            if (at >= data.size()) {
                return -1;
            }
            const int control = data[at] < 128 ? data[at] : data[at] - 256;
            ++at;
            const int units = control == -128 ? 0 : std::abs(control) + 1;
            for (int i = 0; i < units; ++i) {
                const std::size_t from = at + (control < 0 ? 0 : unit * static_cast<unsigned>(i));
                for (std::size_t k = 0; k < unit; ++k, ++done) {
                    if (from + unit > data.size()) {
                        return -1;
                    }
                    if (done < row.size()) {
                        row[done] = data[from + k];
                    }
                }
            }
            at += unit * static_cast<unsigned>(control < 0 ? units != 0 : units);
        }
        const std::size_t blue = plane * (planes - 1);
        if (!is16 && blue + pixmap.width > row.size()) {
            return -1;
        }
        for (std::size_t x = 0; x < pixmap.width; ++x) {
            const DWORD w = is16 ? row[2 * x] * 256U + row[2 * x + 1] : 0;
            const DWORD key = is16 || planes == 3 ? 255 : row[x];
            out[y * pixmap.width + x] =
                key << 24 | (is16 ? (w >> 10 & 31) << 19 | (w >> 5 & 31) << 11 | (w & 31) << 3
                                  : DWORD{row[blue - 2 * plane + x]} << 16 |
                                        DWORD{row[blue - plane + x]} << 8 | row[blue + x]);
        }
    }
    return 0;
}

// Packets with lies in them: rows that count too much or too little, no-operations, packets that
// run past their rows.
Bytes RandomRows(std::mt19937& random, bool wide) {
    Bytes rows;
    for (int row = 0; row < 12; ++row) {
        Bytes packets;
        while (random() % 12 != 0) {
            const bool isRun = random() % 2 == 0;
            const auto count =
                static_cast<unsigned int>(random() % 8 == 0 ? random() % 128 : random() % 9);
            packets.push_back(static_cast<BYTE>(isRun ? 256 - count : count));
            for (unsigned int i = 0; i < (isRun ? 2 : count + 1); ++i) {
                packets.push_back(static_cast<BYTE>(random() % 5 == 0 ? 0x80 : random()));
            }
        }
        const std::size_t count =
            std::min<std::size_t>(random() % 4 == 0 ? random() % 40 : packets.size(), 255);
        rows = Joined(Joined(rows, wide ? Bytes{0, static_cast<BYTE>(count)}
                                        : Bytes{static_cast<BYTE>(count)}),
                      packets);
    }
    return rows;
}

TEST(PictRead, AgreesWithAPlainDecoderOnRowsThatLie) {
    std::mt19937 random(11);
    int whole = 0;
    for (int round = 0; round < 6000; ++round) {
        Pixmap pixmap{};
        pixmap.bits = random() % 3 == 0 ? 16 : 32;
        pixmap.components = random() % 2 == 0 ? 3 : 4;
        pixmap.rowBytes =
            static_cast<unsigned int>(random() % 5 == 0 ? 240 + random() % 30 : random() % 40);
        pixmap.width = static_cast<unsigned int>(
            1 +
            (random() % 3 == 0 ? random() % 70 : pixmap.rowBytes / (pixmap.bits == 16 ? 2 : 4)));
        pixmap.height = static_cast<unsigned int>(1 + random() % 6);
        const Bytes rows = RandomRows(random, pixmap.rowBytes > 251);
        std::vector<DWORD> expected;
        const int result = PlainDecode(rows, pixmap, expected);
        CKVFrameBuffer fb;
        ASSERT_EQ(Load(File({}, pixmap, rows), fb), result);
        ASSERT_EQ(Pixels(fb), expected) << round;
        whole += result == 0 ? 1 : 0;
    }
    EXPECT_GT(whole, 1000);
    EXPECT_LT(whole, 5900);
}

TEST(PictRead, AClaimedSizeCostsNothing) {
    for (const unsigned int side : {4097U, 30000U, 65495U}) {
        CKVFrameBuffer fb;
        EXPECT_EQ(Load(File({}, {side, side, 0, 16}, Bytes(side, 0)), fb), -1);
        EXPECT_EQ(fb.IsBuffer(), 1) << "a picture that the data cannot fill is not made";
    }
    MemoryFile file(File({}, kPixmap, kRow));
    file.m_ClaimedLength = std::uint64_t{1} << 40;
    CKVFrameBuffer fb;
    EXPECT_EQ(CKVPictImage().LoadImg(&file, &fb), -1);
    // The most that packets can stand for: 128 words in three bytes.
    Bytes rows;
    for (int row = 0; row < 5000; ++row) {
        rows.insert(rows.end(), {0, 96});
        for (int i = 0; i < 32; ++i) {
            rows.insert(rows.end(), {0x81, 0, 31});
        }
    }
    EXPECT_EQ(Load(File({}, {4096, 5000, 8192, 16}, rows), fb), 0);
    EXPECT_EQ(Pixels(fb).back(), 0xFF0000F8);
}

// Each row's count reaches the next count alone, its packets lie behind all the no-operations.
TEST(PictRead, RowsThatOverlapInNoOperationsCostNothing) {
    const unsigned int height = 20000;
    CKVFrameBuffer fb;
    EXPECT_EQ(Load(File({}, {1, height, 4}, Joined(Bytes(height * 129, 0x80), {0xFD, 7})), fb), 0);
    EXPECT_EQ(Pixels(fb), std::vector<DWORD>(height, 0x07070707));
}

}  // namespace
