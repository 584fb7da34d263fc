#include <cmath>

#include <CKVBwDraw.h>
#include <gtest/gtest.h>

#include "tests/effect/coverage.h"

namespace {

using effect_test::At;
using effect_test::BytesOf;
using effect_test::FillRandom;

void Keep(BYTE& kept, int value) {
    kept = std::max(kept, static_cast<BYTE>(value));
}

int Rounded(int square) {
    return static_cast<int>(std::floor(std::sqrt(static_cast<double>(square)) + 0.5));
}

// The disc as it is told, inset by inset.
std::vector<int> Insets(int radius) {
    std::vector<int> insets;
    for (int i = 0; i <= 2 * radius; ++i) {
        const int k = std::abs(radius - i);
        int inset = radius - Rounded(radius * radius - k * k);
        for (int c = inset - 1; c >= 0; --c) {
            const int x = radius - c;
            if (Rounded(radius * radius - x * x) != k) {
                break;
            }
            inset = c;
        }
        insets.push_back(inset);
    }
    return insets;
}

// Pixel by pixel with the neighbour tests, as the hard edge is told.
void PlainHardEdge(int r, const CKVGrayBitmap& source, const CKVGrayBitmap& target) {
    const std::vector<int> insets = Insets(r);
    for (LONG y = 0; y < source.Height; ++y) {
        for (LONG x = 0; x < source.Width; ++x) {
            const BYTE v = At(source, x, y);
            if (v == 0) {
                continue;
            }
            for (int i = y > 0 && At(source, x, y - 1) == v ? r : 0; i <= 2 * r; ++i) {
                const int inset = insets[static_cast<std::size_t>(i)];
                const bool repeat = x > 0 && At(source, x - 1, y) == v;
                for (int j = repeat ? 2 * r - inset : inset; j <= 2 * r - inset; ++j) {
                    Keep(At(target, x + j, y + i), v);
                }
            }
        }
    }
}

// The same for the soft edge: private copy, weights and neighbour tests.
void PlainSoftEdge(int r, const CKVGrayBitmap& source, const CKVGrayBitmap& target) {
    const std::vector<int> insets = Insets(r);
    CKVGrayBitmap copy(source);
    const auto set = [&](LONG x, LONG y) {
        return x >= 0 && y >= 0 && x < copy.Width && y < copy.Height && At(copy, x, y) != 0;
    };
    for (LONG y = 0; y < copy.Height; ++y) {
        for (LONG x = 0; x < copy.Width; ++x) {
            if (!set(x, y)) {
                continue;
            }
            At(copy, x, y) = 255;
            const int lastRow = set(x, y + 1) ? r : 2 * r;
            for (int i = set(x, y - 1) ? r : 0; i <= lastRow; ++i) {
                const int inset = insets[static_cast<std::size_t>(i)];
                const int lastColumn = set(x + 1, y) ? r : 2 * r - inset;
                for (int j = set(x - 1, y) ? r : inset; j <= lastColumn; ++j) {
                    const int dy = r - i;
                    const int dx = r - j;
                    const double weight =
                        (r - std::sqrt(static_cast<double>(dx * dx + dy * dy))) / r;
                    if (weight > 0) {
                        Keep(At(target, x + j, y + i), static_cast<int>(255 * weight));
                    }
                }
            }
        }
    }
}

struct Edge {
    int type;
    void (*plain)(int, const CKVGrayBitmap&, const CKVGrayBitmap&);
};
const Edge kEdges[] = {{0, PlainHardEdge}, {1, PlainSoftEdge}};

// Busy coverages at small radii, few pixels that show the whole disc at large ones. Every type but
// 0 is the soft one.
TEST(Edges, EqualThePlainLoops) {
    std::mt19937 random(2);
    for (int round = 0; round < 560; ++round) {
        const bool few = round >= 420;
        const int radius = few ? 1 + (round - 420) * (round - 419) / 65 : 1 + round % 14;
        const unsigned most = round % 4 == 0 ? 210U : 50U;
        const auto width = static_cast<LONG>(1 + random() % (few ? 3U : most));
        const auto height = static_cast<LONG>(1 + random() % (few ? 2U : 40U));
        CKVGrayBitmap source;
        FillRandom(source, width, height, few ? 0 : round % 9, random);
        const std::vector<BYTE> before = BytesOf(source);
        for (const Edge& edge : kEdges) {
            CKVGrayBitmap plain;
            plain.Create(static_cast<LONG>(source.Pitch) + 2 * radius, height + 2 * radius);
            edge.plain(radius, source, plain);
            AtEachLevel([&] {
                CKVGrayBitmap fast;
                fast.Create(5, 5);  // replaced
                ASSERT_EQ(CKVBwDraw().MakeEdge(edge.type * radius, radius, 3, &source, &fast), 0);
                ASSERT_EQ(fast.Pitch, plain.Pitch);
                ASSERT_EQ(BytesOf(fast), BytesOf(plain))
                    << edge.type << " radius " << radius << ", " << width << " by " << height;
            });
        }
        ASSERT_EQ(BytesOf(source), before);
    }
}

// Radius 0 copies in the hard form and leaves the target in the soft one.
TEST(Edges, AddToATargetWithRoomToSpare) {
    std::mt19937 random(3);
    CKVGrayBitmap source;
    FillRandom(source, 37, 9, 5, random);
    for (const int radius : {0, 4}) {
        for (const Edge& edge : kEdges) {
            CKVGrayBitmap plain;
            FillRandom(plain, 90, 31, 7, random);
            CKVGrayBitmap fast(plain);
            edge.plain(radius, source, plain);
            CKVBwDraw draw;
            EXPECT_EQ(edge.type == 0 ? draw.GrayMakeNomEdge(radius, &source, &fast)
                                     : draw.GrayMakeSoftEdge(radius, 0, &source, &fast),
                      0);
            EXPECT_EQ(BytesOf(fast), BytesOf(plain));
        }
    }
}

TEST(Edges, RefuseWhatCannotBe) {
    CKVBwDraw draw;
    CKVGrayBitmap source, target, empty;
    source.Create(4, 4);
    target.Create(5, 5);
    for (const int size : {0, -1, -0x7FFFFFFF - 1}) {
        EXPECT_EQ(draw.MakeEdge(0, size, 0, &source, &target), -1);
    }
    EXPECT_EQ(draw.MakeEdge(0, 1, 0, &empty, &target), -1);
    for (const int size : {-1, 1, 0x7FFFFFFF}) {  // no room
        EXPECT_EQ(draw.GrayMakeNomEdge(size, &source, &target), -1);
        EXPECT_EQ(draw.GrayMakeSoftEdge(size, 0, &source, &target), -1);
    }
    EXPECT_EQ(draw.Make3DShadow(2, &source, &target), 0);
    EXPECT_EQ(draw.Make3DShadow(3, &source, &target), -1);
    EXPECT_EQ(target.Width, 5);
    EXPECT_EQ(draw.MakeEdge(0, 0x7FFFFFFF, 0, &source, &target), -1);
    const BYTE* const bits = source.Bits;
    for (const int type : {0, 1, 2}) {  // a source that is its own target
        EXPECT_EQ(draw.MakeEdge(type, 1, 0, &source, &source), -1);
        EXPECT_EQ(draw.MakeShadow(type, 300, 1, 0, &source, &source), -1);
    }
    EXPECT_EQ(source.Bits, bits);
}

TEST(Shadows, SmearAlongTheDiagonal) {
    std::mt19937 random(5);
    for (int round = 0; round < 120; ++round) {
        const int steps = round % 40;
        CKVGrayBitmap source;
        FillRandom(source, static_cast<LONG>(1 + random() % 80), 1 + round % 7, round % 9, random);
        CKVGrayBitmap plain;
        plain.Create(static_cast<LONG>(source.Pitch) + steps, source.Height + steps);
        CKVGrayBitmap dirty(plain);
        At(dirty, 0, 0) = 99;  // kept where greater, never smeared
        for (int i = 0; i < steps; ++i) {
            for (LONG y = 0; y < source.Height; ++y) {
                for (LONG x = 0; x < source.Width; ++x) {
                    Keep(At(plain, x + i, y + i), At(source, x, y));
                }
            }
        }
        AtEachLevel([&] {
            CKVGrayBitmap added(dirty), fresh;
            const int size = round % 2 == 0 ? steps : -steps;
            ASSERT_EQ(CKVBwDraw().MakeShadow(1, size, 0, 0, &source, &fresh), 0);
            ASSERT_EQ(BytesOf(fresh), BytesOf(plain)) << steps;
            ASSERT_EQ(CKVBwDraw().Make3DShadow(static_cast<DWORD>(steps), &source, &added), 0);
            Keep(At(fresh, 0, 0), 99);
            ASSERT_EQ(BytesOf(added), BytesOf(fresh)) << steps;
        });
    }
}

TEST(Shadows, FlatAndSoftForms) {
    CKVBwDraw draw;
    std::mt19937 random(6);
    CKVGrayBitmap source, flat, soft, edge, empty;
    FillRandom(source, 21, 6, 4, random);
    for (const int type : {0, 7, -1}) {
        EXPECT_EQ(draw.MakeShadow(type, 5, 9, 0, &source, &flat), 0);
        EXPECT_EQ(BytesOf(flat), BytesOf(source));  // pad bytes too
    }
    EXPECT_EQ(draw.MakeShadow(2, 5, 3, 0, &source, &soft), 0);
    EXPECT_EQ(draw.MakeEdge(1, 3, 0, &source, &edge), 0);
    EXPECT_EQ(BytesOf(soft), BytesOf(edge));
    EXPECT_EQ(draw.MakeShadow(2, 5, 0, 0, &source, &soft), 0);
    EXPECT_EQ(BytesOf(soft), std::vector<BYTE>(source.Size));
    EXPECT_EQ(draw.MakeShadow(2, 5, -1, 0, &source, &flat), -1);
    EXPECT_EQ(draw.MakeShadow(0, 5, 0, 0, &empty, &flat), -1);
    EXPECT_EQ(BytesOf(flat), BytesOf(source));
    EXPECT_EQ(draw.MakeShadow(1, -0x7FFFFFFF - 1, 0, 0, &source, &flat), -1);
}

TEST(Brush, FallsFromTheFlatMiddle) {
    const struct {
        int size, pen;
        std::vector<int> middleRow;
    } cases[] = {{5, 1, {0, 128, 255, 128, 0}},
                 {4, 1, {0, 128, 255, 128}},
                 {5, -55, {0, 100, 200, 100, 0}},
                 {3, 3, {0, 0, 0}},
                 {7, 3, {0, 128, 255, 255, 255, 128, 0}}};
    for (const auto& c : cases) {
        const auto size = static_cast<std::size_t>(c.size);
        std::vector<BYTE> table(size * size + 1, 170);
        EXPECT_EQ(CKVBwDraw().FilterBlush(table.data(), c.size, c.pen), 0);
        for (std::size_t x = 0; x < size; ++x) {
            EXPECT_EQ(table[size / 2 * size + x], c.middleRow[x]) << c.pen << ": " << x;
        }
        EXPECT_EQ(table[0], 0);
        EXPECT_EQ(table.back(), 170);
    }
}

}  // namespace
