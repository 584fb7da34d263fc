#pragma once

#include <span>
#include <vector>

#include <CDrawGraph.h>
#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>
#include <platform/dc.h>

namespace kv::shape {

/// A shape on its way to a mask, in enlarged pixels relative to the mask.
struct Figure {
    std::vector<tagPOINT> points;
    LONG pad;             ///< border around the points, half the pen
    tagPOINT cornerSize;  ///< of a rounded rectangle
    double startDegree;   ///< of a wedge
    double endDegree;
};

/// What the kinds differ in.
struct Form {
    LONG kind = CDrawGraph::kNoShape;
    int pointsRequired = 2;
    bool usesAllPoints = false;  ///< else the first two
    bool hasCornerSize = false;  ///< as the third point
    bool takesBrush = false;
    DWORD roundPen = 0;  ///< style of the pen for pen type 0
    DWORD flatPen = 0;   ///< style of the pen for any other type
    void (*draw)(CDC& dc, const Figure& figure) = nullptr;
};

/// Null for kNoShape and for what is no kind.
const Form* FormOf(LONG kind);

/// The frame that all kinds run on: the shape's box, enlarged, and its picture on a one-bit bitmap
/// of that size. Throws CInvalidArgException when the shape has fewer points than its form
/// requires.
class EnlargedShape {
  public:
    EnlargedShape(const CDrawGraph& shape, const Form& form);

    /// The picture's top left corner in final pixels.
    tagPOINT Pos() const;

    /// The picture as a mask; left empty when its size or memory does not allow one.
    void ToMask(CKVMonoBitmap& mask) const;

    /// The coverage that reducing the mask gives, without the mask; left empty where that would be.
    /// 0, or -1 for an unknown scale or no memory.
    int ToCoverage(CKVGrayBitmap& coverage) const;

    /// True if there can be a mask of this size. Width and Height, in enlarged pixels, need that.
    bool FitsMask() const;
    LONG Width() const;
    LONG Height() const;

  private:
    Figure Enlarge() const;
    void Draw(const CBitmap& bitmap) const;

    const CDrawGraph& m_Shape;
    const Form& m_Form;
    std::span<const CPoint> m_Points;
    // In 64 bits: extents of 32-bit points, enlarged 16 times, stay far below the limit.
    std::int64_t m_Scale;
    std::int64_t m_OriginX;  // the box's corner, enlarged
    std::int64_t m_OriginY;
    std::int64_t m_PenWidth;
    std::int64_t m_Pad;
    std::int64_t m_Width;
    std::int64_t m_Height;
};

/// An angle's offset from a centre, both axes by the same radius, rounded half away from zero.
/// Degrees, 0 at 12 o'clock, clockwise.
tagPOINT RadialOffset(double degree, LONG radius);

}  // namespace kv::shape
