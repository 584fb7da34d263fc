#include <algorithm>
#include <limits>

#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

namespace {

constexpr LONG kMin = std::numeric_limits<LONG>::min();
constexpr LONG kMax = std::numeric_limits<LONG>::max();

// Pixel (x, y) of a numbered surface is solid with y * 16 + x as its colour.
CKVFrameBuffer Numbered(LONG width, LONG height) {
    CKVFrameBuffer surface(width, height, 1);
    for (LONG i = 0; i < width * height; ++i) {
        surface.GetBufferDWord()[i] = 0xFF000000U + static_cast<DWORD>(i / width * 16 + i % width);
    }
    return surface;
}

struct ClipCase {
    LONG sx, sy, w, h, dx, dy;
    CBox box;     // destination that is touched; empty when the copy fails
    CPoint from;  // source pixel that lands at its corner
};

void ExpectTouched(const CKVFrameBuffer& target, const CBox& touched, CPoint from) {
    for (LONG y = 0; y < 9; ++y) {
        for (LONG x = 0; x < 12; ++x) {
            const bool inside = x >= touched.x && y >= touched.y && x < touched.x + touched.width &&
                                y < touched.y + touched.height;
            const LONG number = (from.y + y - touched.y) * 16 + from.x + x - touched.x;
            EXPECT_EQ(target.GetBufferDWord()[y * 12 + x],
                      inside ? 0xFF000000U + static_cast<DWORD>(number) : 0U)
                << x << ", " << y;
        }
    }
}

TEST(Composite, ClipsToBothSurfaces) {
    const CKVFrameBuffer source = Numbered(10, 8);
    CKVGrayBitmap full;
    full.Create(10, 8);
    std::fill(full.Bits, full.Bits + full.Size, BYTE{255});
    for (const ClipCase& c : {ClipCase{0, 0, 10, 8, -3, -2, {0, 0, 7, 6}, {3, 2}},
                              {-3, -2, 10, 8, 4, 5, {4, 5, 7, 4}, {0, 0}},
                              {-3, 0, 6, 8, -2, 0, {0, 0, 1, 8}, {2, 0}},
                              {8, 6, 99, 99, 3, 3, {3, 3, 2, 2}, {8, 6}},
                              {0, 0, 10, 8, 11, 8, {11, 8, 1, 1}, {0, 0}},
                              {1, 1, kMax, kMax, 0, 0, {0, 0, 9, 7}, {1, 1}},
                              {-1, -1, kMax, kMax, -1, -1, {0, 0, 9, 7}, {1, 1}},
                              {0, 0, 10, 8, 12, 0, {}, {}},
                              {0, 0, 10, 8, -10, 0, {}, {}},
                              {0, 0, 0, 8, 0, 0, {}, {}},
                              {kMin, 0, kMax, 8, 0, 0, {}, {}},
                              {0, 0, 10, 8, kMin, kMin, {}, {}},
                              {kMin, kMin, kMin, kMin, kMin, kMin, {}, {}},
                              {kMax, kMax, kMax, kMax, kMax, kMax, {}, {}}}) {
        for (const bool masked : {false, true}) {
            CKVFrameBuffer target(12, 9, 1);
            CBox box;  // stays empty on failure
            const int result =
                masked ? target.FbCopyMask(&source, &full, c.sx, c.sy, c.w, c.h, c.dx, c.dy, &box)
                       : target.FbCopy(&source, c.sx, c.sy, c.w, c.h, c.dx, c.dy, -1, &box);
            EXPECT_EQ(result, c.box.width > 0 ? 0 : -1);
            EXPECT_TRUE(box.GetRect() == c.box.GetRect()) << c.sx << " " << c.w << " " << c.dx;
            ExpectTouched(target, c.box, c.from);
        }
    }
}

// Modes from 1 up blend by key.
TEST(Composite, ModeChoosesBetweenCopyAndBlend) {
    for (const int mode : {0, 1, 7, -1}) {
        CKVFrameBuffer source(1, 1, 1);
        CKVFrameBuffer target(1, 1, 1);
        *source.GetBufferDWord() = 0x80FF0000;
        *target.GetBufferDWord() = 0xFF0000FF;
        EXPECT_EQ(target.FbCopy(&source, 0, 0, 1, 1, 0, 0, mode, nullptr), 0);
        EXPECT_EQ(*target.GetBufferDWord(), mode < 1 ? 0x80FF0000 : 0xFF80007F);
    }
}

TEST(Composite, MaskIsReadAtSourcePositionsAndEndsAtItsEdges) {
    CKVFrameBuffer source = Numbered(6, 4);
    CKVFrameBuffer target(6, 4, 1);
    std::fill_n(target.GetBufferDWord(), 24, 0xFFFFFFFF);
    CKVGrayBitmap mask;
    mask.Create(3, 3);  // rows of four bytes: the fourth is no part of the mask
    std::fill(mask.Bits, mask.Bits + mask.Size, BYTE{255});
    ASSERT_EQ(target.FbCopyMask(&source, &mask, 1, 1, 5, 3, 0, 0, nullptr), 0);
    for (LONG y = 0; y < 4; ++y) {
        for (LONG x = 0; x < 6; ++x) {
            const DWORD number = 0xFF000000U + static_cast<DWORD>((y + 1) * 16 + x + 1);
            EXPECT_EQ(target.GetBufferDWord()[y * 6 + x], x < 2 && y < 2 ? number : 0xFFFFFFFF);
        }
    }
}

TEST(Composite, FailsWithoutSurfacesOrMask) {
    CKVFrameBuffer surface(4, 4, 1), empty;
    const CKVGrayBitmap mask;
    const struct {
        CKVFrameBuffer *target, *source;
    } cases[] = {{&surface, nullptr}, {&surface, &empty}, {&empty, &surface}};
    for (const auto& c : cases) {
        EXPECT_EQ(c.target->FbCopy(c.source, 0, 0, 4, 4, 0, 0, 0, nullptr), -1);
        EXPECT_EQ(c.target->FbCopyMask(c.source, &mask, 0, 0, 4, 4, 0, 0, nullptr), -1);
    }
    EXPECT_EQ(surface.FbCopyMask(&surface, nullptr, 0, 0, 4, 4, 0, 0, nullptr), -1);
    EXPECT_EQ(surface.FbCopyMask(&surface, &mask, 0, 0, 4, 4, 0, 0, nullptr), 0);
    EXPECT_EQ(surface.m_ReadCount, 0);
}

// A copy onto itself reads again what it has written, in reading order, whatever the distance.
TEST(Composite, SelfCopyGoesPixelByPixel) {
    constexpr LONG kSide = 40;
    for (const int dx : {-17, -8, -1, 0, 1, 3, 8, 30}) {
        for (const int dy : {-1, 0, 1}) {
            CKVFrameBuffer surface(kSide, 3, 1);
            for (DWORD i = 0; i < kSide * 3; ++i) {
                surface.GetBufferDWord()[i] = i * 0x9E3779B1U;
            }
            CKVFrameBuffer expected = surface;
            CBox box;
            const LONG sx = dx < 0 ? -dx : 0;
            const LONG sy = dy < 0 ? -dy : 0;
            ASSERT_EQ(surface.FbCopy(&surface, sx, sy, kSide, 3, sx + dx, sy + dy, 1, &box), 0);
            CKVFrameBuffer one(1, 1, 1);
            for (LONG y = box.y; y < box.y + box.height; ++y) {
                for (LONG x = box.x; x < box.x + box.width; ++x) {
                    one.FbCopy(&expected, x - dx, y - dy, 1, 1, 0, 0, 0, nullptr);
                    expected.FbCopy(&one, 0, 0, 1, 1, x, y, 1, nullptr);
                }
            }
            EXPECT_TRUE(std::equal(surface.m_BufferDWord, surface.m_BufferDWord + kSide * 3,
                                   expected.m_BufferDWord))
                << dx << ", " << dy;
        }
    }
}

}  // namespace
