// Boxes: how they are set, joined and clipped.

#include "CBox.h"

#include <algorithm>

#include "base/narrow.h"
#include "surface/wrap.h"

using kv::WrapAdd;
using kv::WrapSub;

namespace {

// Clips one axis to 0 .. limit; true if anything changed.
bool ClipAxis(LONG& start, LONG& length, LONG limit) {
    const LONG oldStart = start;
    const LONG oldLength = length;
    std::int64_t clipped = length;
    if (start < 0) {
        clipped += start;
        start = 0;
    }
    clipped = std::min(clipped, std::int64_t{limit} - start);
    length = kv::SaturateToInt32(std::max<std::int64_t>(clipped, 0));
    return start != oldStart || length != oldLength;
}

}  // namespace

CBox::CBox(LONG left, LONG top, LONG w, LONG h) : x(left), y(top), width(w), height(h) {}

CBox::CBox(const tagRECT& rect)
    : x(rect.left),
      y(rect.top),
      width(WrapSub(rect.right, rect.left)),
      height(WrapSub(rect.bottom, rect.top)) {}

CBox::CBox(const tagRECT* rect) : CBox(*rect) {}

CBox::CBox(tagPOINT corner, tagSIZE size) : CBox(corner.x, corner.y, size.cx, size.cy) {}

CBox::CBox(tagPOINT topLeft, tagPOINT bottomRight)
    : CBox(tagRECT{topLeft.x, topLeft.y, bottomRight.x, bottomRight.y}) {}

void CBox::SetBox(LONG left, LONG top, LONG w, LONG h) {
    *this = CBox(left, top, w, h);
}

void CBox::SetBox(const CBox& box) {
    *this = box;
}

void CBox::SetBox(const tagRECT& rect) {
    *this = CBox(rect);
}

void CBox::SetBox(const tagRECT* rect) {
    *this = CBox(rect);
}

void CBox::SetBox(tagPOINT corner, tagSIZE size) {
    *this = CBox(corner, size);
}

void CBox::SetBox(tagPOINT topLeft, tagPOINT bottomRight) {
    *this = CBox(topLeft, bottomRight);
}

void CBox::MaxBox(CBox other) {
    const CPoint end = BottomRight();
    const CPoint otherEnd = other.BottomRight();
    x = std::min(x, other.x);
    y = std::min(y, other.y);
    width = WrapSub(std::max(end.x, otherEnd.x), x);
    height = WrapSub(std::max(end.y, otherEnd.y), y);
}

int CBox::ClipBox(LONG areaWidth, LONG areaHeight) {
    const bool changedX = ClipAxis(x, width, areaWidth);
    const bool changedY = ClipAxis(y, height, areaHeight);
    return changedX || changedY ? 1 : 0;
}

int CBox::ChEria() const {
    return width >= 1 && height >= 1 ? 1 : 0;
}

CRect CBox::GetRect() const {
    const CPoint end = BottomRight();
    return {x, y, end.x, end.y};
}

CPoint CBox::BottomRight() const {
    return {WrapAdd(x, width), WrapAdd(y, height)};
}
