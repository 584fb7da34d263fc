#include <algorithm>
#include <limits>

#include "tests/codec/pict_support.h"

namespace {

using pict::Bytes;
using pict::File;
using pict::Head;
using pict::Joined;
using pict::Load;
using pict::Pixels;
using pict::Pixmap;
using pict::Words;

// Two pixels with keys, the row of which has a run and a literal packet.
const Pixmap kPixmap{2, 1, 0x8008};
const Bytes kRow{9, 0xFF, 0xFF, 5, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60};
const std::vector<DWORD> kPixels{0xFF103050, 0xFF204060};

TEST(PictRead, PixelsOfAllFormsToTheByte) {
    struct Case {
        Pixmap pixmap;
        Bytes rows;
        std::vector<DWORD> pixels;
    };
    const Case cases[] = {
        {kPixmap, kRow, kPixels},
        {{2, 1, 8, 32, 4, 3}, Joined({10, 0x80}, pictures::Cut(kRow, 1, 10)), kPixels},
        {{2, 2, 8, 32, 3},
         {7, 5, 1, 2, 3, 4, 5, 6, 2, 0xFB, 9},
         {0xFF010305, 0xFF020406, 0xFF090909, 0xFF090909}},
        {{3, 1, 0x8006, 16, 0, 3},
         {7, 0xFF, 0x7F, 0xFF, 0, 0x04, 0x21},
         {0xFFF8F8F8, 0xFFF8F8F8, 0xFF080808}},
        {{1, 1, 3, 16, 4, 4}, {3, 0, 0xFC, 0x1F}, {0xFFF800F8}},
        // Rows shorter than the width: planes run into each other, words are 0.
        {{3, 1, 4}, {5, 3, 1, 2, 3, 4}, {0x01020304, 0x02030400, 0x03040000}},
        {{2, 1, 2, 16}, {3, 0, 0x7C, 0}, {0xFFF80000, 0xFF000000}},
        {{2, 1, 0, 16}, {0}, {0xFF000000, 0xFF000000}},
    };
    for (const Case& form : cases) {
        CKVFrameBuffer fb;
        LONG keyFlag = 2;
        EXPECT_EQ(Load(File({}, form.pixmap, form.rows), fb, &keyFlag), 0);
        EXPECT_EQ(Pixels(fb), form.pixels);
        EXPECT_EQ(keyFlag, form.pixmap.bits == 32 && form.pixmap.components == 4 ? 1 : 0);
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

// What one changed byte at an offset from the version opcode does to the file.
int ExpectedResult(std::size_t at, BYTE value) {
    switch (at) {
        case 0:  // version opcode and number
            return value == 0x00 ? 0 : -1;
        case 1:
            return value == 0x11 ? 0 : -1;
        case 2:
            return value == 0x02 ? 0 : -1;
        case 3:
            return value == 0xFF ? 0 : -1;
        case 4:  // opcode; what others there are take the map for opcodes
            return value == 0x00 ? 0 : -1;
        case 5:
            return value == 0x9A ? 0 : -1;
        case 10:  // row bytes
            return value % 0x80 == 0 ? 0 : -1;
        case 11:  // a row of 4 bytes has too few for none of its pixels
            return value >= 4 && value < 12 ? 0 : -1;
        case 22:  // packing, bits, components
        case 38:
        case 40:
            return value == 0 ? 0 : -1;
        case 23:
            return value == 3 || value == 4 ? 0 : -1;
        case 39:
            return value == 32 ? 0 : -1;  // as words these rows end early
        case 41:
            return value == 3 || value == 4 ? 0 : -1;
        case 56:  // top, left, bottom, right
        case 58:
        case 60:
        case 62:
            return value == 0 ? 0 : -1;
        case 57:
            return value == 30 ? 0 : -1;
        case 59:  // left of 40: up to 10 pixels of rows of 8 bytes
            return value >= 32 && value < 42 ? 0 : -1;
        case 61:
            return value == 31 ? 0 : -1;
        case 63:
            return value > 40 && value <= 50 ? 0 : -1;
        default:
            return 0;
    }
}

TEST(PictRead, EveryValueOfEveryRecordByteHasItsResult) {
    const Bytes good = File({}, kPixmap, kRow);
    for (std::size_t at = 0; at < 4 + 70; ++at) {
        for (unsigned int value = 0; value < 256; ++value) {
            Bytes changed = good;
            changed[pict::kHeadBytes - 4 + at] = static_cast<BYTE>(value);
            CKVFrameBuffer fb;
            EXPECT_EQ(Load(changed, fb), ExpectedResult(at, static_cast<BYTE>(value)))
                << "byte " << at << " value " << value;
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

// Unpacks and converts byte by byte; the plain form of the rule.
int PlainDecode(const Bytes& data, const Pixmap& pixmap, std::vector<DWORD>& out) {
    const std::size_t plane = pixmap.rowBytes / 4;
    const bool is16 = pixmap.bits == 16;
    const bool is24 = !is16 && pixmap.components == 3;
    const std::size_t unit = is16 ? 2 : 1;
    const std::size_t wanted = is16 ? pixmap.rowBytes / 2 * 2 : plane * (is24 ? 3 : 4);
    const std::size_t room = is16 || is24 ? std::size_t{pixmap.width} * 4 : plane * 8;
    Bytes scratch(std::max(room, wanted));
    std::size_t next = 0;
    const auto has = [&](std::size_t end) { return end <= data.size(); };
    out.assign(std::size_t{pixmap.width} * pixmap.height, 0);
    for (std::size_t y = 0; y < pixmap.height; ++y) {
        const bool wide = is16 ? pixmap.rowBytes > 250 : plane > 62;
        if (!has(next + (wide ? 2 : 1))) {
            return -1;
        }
        std::size_t count = data[next++];
        if (wide) {
            count = count * 256 + data[next++];
        }
        std::size_t at = next;
        next += count;
        for (std::size_t done = 0; done < wanted;) {
            if (!has(at + 1)) {
                return -1;
            }
            const int control = static_cast<std::int8_t>(data[at++]);
            const int units = control == -128 ? 0 : control < 0 ? 1 - control : control + 1;
            for (int i = 0; i < units; ++i) {
                for (std::size_t k = 0; k < unit; ++k, ++done) {
                    if (!has(at + unit)) {
                        return -1;
                    }
                    if (done < scratch.size()) {
                        scratch[done] = data[at + k];
                    }
                }
                at += control < 0 && i + 1 < units ? 0 : unit;
            }
        }
        for (std::size_t x = 0; x < pixmap.width; ++x) {
            const auto byte = [&](std::size_t k) -> DWORD { return scratch.at(k); };
            DWORD pixel = 0;
            if (is16) {
                const DWORD w = byte(2 * x) << 8 | byte(2 * x + 1);
                pixel = 255U << 24 | (w >> 10 & 31) << 19 | (w >> 5 & 31) << 11 | (w & 31) << 3;
            } else {
                const std::size_t red = is24 ? 0 : plane;
                if (red + 2 * plane + pixmap.width > scratch.size()) {
                    return -1;
                }
                pixel = (is24 ? 255 : byte(x)) << 24 | byte(red + x) << 16 |
                        byte(red + plane + x) << 8 | byte(red + 2 * plane + x);
            }
            out[y * pixmap.width + x] = pixel;
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

TEST(PictRead, RefusesAFullFrameBufferAndNull) {
    CKVFrameBuffer fb(1, 1, 1);
    *fb.GetBufferDWord() = 7;
    EXPECT_EQ(Load(File({}, kPixmap, kRow), fb), -1);
    EXPECT_EQ(Pixels(fb), std::vector<DWORD>(1, 7));
    MemoryFile file;
    EXPECT_EQ(CKVPictImage().LoadImg(&file, nullptr), -1);
    EXPECT_EQ(CKVPictImage().LoadImg(static_cast<CFile*>(nullptr), &fb), -1);
}

TEST(PictRead, KeyFlagFollowsTheFormOnceThePictureIsMade) {
    MemoryFile good(File({}, kPixmap, kRow));
    CKVPictImage codec;
    CKVFrameBuffer fb;
    ASSERT_EQ(codec.LoadImg(&good, &fb), 0);
    const std::pair<Pixmap, LONG> cases[] = {
        {{2, 1, 8, 32, 4, 1}, 1}, {{0, 1, 8, 32, 3}, 1}, {{2, 1, 8, 32, 5}, 0},
        {{2, 9, 8, 32, 4}, 1},    {{2, 9, 8, 32, 3}, 0}, {{2, 9, 8, 32, 4}, 1},
        {{2, 1, 8, 24, 4}, 0},
    };
    for (const auto& [pixmap, flag] : cases) {
        MemoryFile bad(File({}, pixmap, kRow));
        CKVFrameBuffer partial;
        EXPECT_EQ(codec.LoadImg(&bad, &partial), -1);
        EXPECT_EQ(codec.GetKeyFlag(), flag);
    }
    EXPECT_EQ(CKVPictImage(codec).GetKeyFlag(), 0);
}

TEST(PictRead, ExceptionsOfTheFileBecomeAFailure) {
    const Bytes bytes = File(Words({0x0001, 10, 0, 0, 9, 9, 0x00A1, 1, 0}), kPixmap, kRow);
    int call = 0;
    for (int result = -1; result != 0; ++call) {
        MemoryFile file(bytes);
        file.m_CallsUntilThrow = call;
        CKVFrameBuffer fb;
        result = CKVPictImage().LoadImg(&file, &fb);
        EXPECT_EQ(fb.IsBuffer(), result == 0 ? 0 : 1);
        ASSERT_LT(call, 30);
    }
    EXPECT_GT(call, 12);  // the head, three opcodes, both skips, the map, length, position, data
}

}  // namespace
