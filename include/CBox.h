#pragma once

#include "platform/export.h"
#include "platform/geometry.h"

/// A rectangle as corner and size, in pixels. It covers columns x to x + width - 1 and rows y to
/// y + height - 1; a width or height below 1 means empty.
class KVDRAW_API CBox {
  public:
    LONG x = 0;
    LONG y = 0;
    LONG width = 0;
    LONG height = 0;

    CBox() = default;
    CBox(LONG left, LONG top, LONG w, LONG h);
    CBox(const tagRECT& rect);
    CBox(const tagRECT* rect);
    CBox(tagPOINT corner, tagSIZE size);
    /// From two corners, the top left one first.
    CBox(tagPOINT topLeft, tagPOINT bottomRight);

    void SetBox(LONG left, LONG top, LONG w, LONG h);
    void SetBox(const CBox& box);
    void SetBox(const tagRECT& rect);
    void SetBox(const tagRECT* rect);
    void SetBox(tagPOINT corner, tagSIZE size);
    void SetBox(tagPOINT topLeft, tagPOINT bottomRight);

    /// Becomes the smallest box that holds both. An empty box's corners count like any other's.
    void MaxBox(CBox other);

    /// Clips to (0, 0, areaWidth, areaHeight). 1 if any field changed, else 0.
    int ClipBox(LONG areaWidth, LONG areaHeight);

    /// 1 if width and height are both at least 1, else 0.
    int ChEria() const;

    CRect GetRect() const;
    LONG Width() const { return width; }
    LONG Height() const { return height; }
    CSize Size() const { return {width, height}; }
    CPoint TopLeft() const { return {x, y}; }
    /// One past the last pixel on both axes.
    CPoint BottomRight() const;
};
