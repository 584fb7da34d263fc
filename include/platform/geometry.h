#pragma once

#include "types.h"

/// The platform's 32-bit geometry records and their classes.

struct tagPOINT {
    LONG x;
    LONG y;
};

struct tagSIZE {
    LONG cx;
    LONG cy;
};

/// A rectangle by two corners; right and bottom lie one past the last pixel.
struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

class CPoint : public tagPOINT {
  public:
    constexpr CPoint() : tagPOINT() {}
    constexpr CPoint(LONG px, LONG py) : tagPOINT() {
        x = px;
        y = py;
    }
    constexpr CPoint(const tagPOINT& point) : tagPOINT(point) {}

    friend constexpr bool operator==(const CPoint& a, const CPoint& b) {
        return a.x == b.x && a.y == b.y;
    }
};

class CSize : public tagSIZE {
  public:
    constexpr CSize() : tagSIZE() {}
    constexpr CSize(LONG width, LONG height) : tagSIZE() {
        cx = width;
        cy = height;
    }
    constexpr CSize(const tagSIZE& size) : tagSIZE(size) {}

    friend constexpr bool operator==(const CSize& a, const CSize& b) {
        return a.cx == b.cx && a.cy == b.cy;
    }
};

class CRect : public tagRECT {
  public:
    constexpr CRect() : tagRECT{0, 0, 0, 0} {}
    constexpr CRect(LONG l, LONG t, LONG r, LONG b) : tagRECT{l, t, r, b} {}
    constexpr CRect(const tagRECT& rect) : tagRECT(rect) {}

    constexpr LONG Width() const { return Difference(right, left); }
    constexpr LONG Height() const { return Difference(bottom, top); }

    friend constexpr bool operator==(const CRect& a, const CRect& b) {
        return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
    }

  private:
    // Wraps at 32 bits, as the corners of a box may have done.
    static constexpr LONG Difference(LONG a, LONG b) {
        return static_cast<LONG>(static_cast<DWORD>(a) - static_cast<DWORD>(b));
    }
};
