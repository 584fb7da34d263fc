// The frame that all kinds of shapes run on: size, place and picture.

#include "shape/enlarged_shape.h"

#include <algorithm>
#include <limits>

#include "base/narrow.h"
#include "base/scale.h"

namespace kv::shape {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0;

std::span<const CPoint> UsedPoints(const CDrawGraph& shape, const Form& form) {
    const int count = shape.m_Point.GetSize();
    if (count < form.pointsRequired) {
        AfxThrowInvalidArgException();
    }
    return {shape.m_Point.GetData(), static_cast<std::size_t>(form.usesAllPoints ? count : 2)};
}

// Half up and then toward zero: for a negative place that is not rounding to the nearest.
LONG FinalPixel(std::int64_t enlarged, std::int64_t scale) {
    return TruncateToInt32(static_cast<double>(enlarged) / static_cast<double>(scale) + 0.5);
}

}  // namespace

EnlargedShape::EnlargedShape(const CDrawGraph& shape, const Form& form)
    : m_Shape(shape), m_Form(form), m_Points(UsedPoints(shape, form)) {
    const auto [minX, maxX] =
        std::minmax_element(m_Points.begin(), m_Points.end(),
                            [](const CPoint& a, const CPoint& b) { return a.x < b.x; });
    const auto [minY, maxY] =
        std::minmax_element(m_Points.begin(), m_Points.end(),
                            [](const CPoint& a, const CPoint& b) { return a.y < b.y; });
    // A hand-filled record may hold anything; so far out every size is beyond a mask.
    constexpr LONG kMaxScale = 1 << 16;
    m_Scale = std::clamp(shape.GetAntiScale(), -kMaxScale, kMaxScale);
    m_OriginX = m_Scale * minX->x;
    m_OriginY = m_Scale * minY->y;
    m_PenWidth = m_Scale * shape.m_PenSize;
    m_Pad = (m_PenWidth + 1) / 2;
    m_Width = (std::int64_t{maxX->x} - minX->x + 1) * m_Scale + 2 * m_Pad;
    m_Height = (std::int64_t{maxY->y} - minY->y + 1) * m_Scale + 2 * m_Pad;
}

tagPOINT EnlargedShape::Pos() const {
    return {FinalPixel(m_OriginX - m_Pad, m_Scale), FinalPixel(m_OriginY - m_Pad, m_Scale)};
}

bool EnlargedShape::FitsMask() const {
    constexpr std::int64_t kMaxBits = std::numeric_limits<DWORD>::max() / std::int64_t{2} * 16;
    return m_Width >= 1 && m_Height >= 1 && m_Width == SaturateToInt32(m_Width) &&
           m_Height == SaturateToInt32(m_Height) && (m_Width + 15) / 16 * 16 <= kMaxBits / m_Height;
}

LONG EnlargedShape::Width() const {
    return static_cast<LONG>(m_Width);
}

LONG EnlargedShape::Height() const {
    return static_cast<LONG>(m_Height);
}

Figure EnlargedShape::Enlarge() const {
    Figure figure{{}, SaturateToInt32(m_Pad), {0, 0}, m_Shape.m_DegStart, m_Shape.m_DegEnd};
    figure.points.reserve(m_Points.size());
    for (const CPoint& point : m_Points) {
        figure.points.push_back({SaturateToInt32(point.x * m_Scale - m_OriginX + m_Pad),
                                 SaturateToInt32(point.y * m_Scale - m_OriginY + m_Pad)});
    }
    if (m_Form.hasCornerSize) {
        const CPoint& size = m_Shape.m_Point.GetAt(2);
        figure.cornerSize = {SaturateToInt32(size.x * m_Scale), SaturateToInt32(size.y * m_Scale)};
    }
    return figure;
}

void EnlargedShape::Draw(const CBitmap& bitmap) const {
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    dc.SelectObject(bitmap);
    dc.BitBlt(0, 0, Width(), Height(), nullptr, 0, 0, BLACKNESS);
    CPen pen;
    pen.CreatePen(m_Shape.m_PenType == 0 ? m_Form.roundPen : m_Form.flatPen,
                  SaturateToInt32(m_PenWidth), kWhite);
    dc.SelectObject(pen);
    if (m_Form.takesBrush) {
        // An outline is filled with black, which shows where the pen does not reach.
        CBrush brush;
        brush.CreateSolidBrush(m_Shape.m_FillMode != 0 ? kWhite : kBlack);
        dc.SelectObject(brush);
    }
    m_Form.draw(dc, Enlarge());
}

void EnlargedShape::ToMask(CKVMonoBitmap& mask) const {
    CBitmap bitmap;
    if (!FitsMask() || !bitmap.CreateBitmap(Width(), Height(), 1, 1, nullptr)) {
        return;
    }
    Draw(bitmap);
    mask.Create(Width(), Height());
    bitmap.GetBitmapBits(mask.Size, mask.Bits);
}

int EnlargedShape::ToCoverage(CKVGrayBitmap& coverage) const {
    if (!IsScale(m_Scale)) {
        return -1;
    }
    const std::int64_t columns = (m_Width + 15) / 16 * 16 / m_Scale;
    const std::int64_t rows = m_Height / m_Scale;
    if (!FitsMask() || rows < 1) {
        return 0;
    }
    CBitmap drawing;
    if (coverage.Create(SaturateToInt32(columns), SaturateToInt32(rows)) != 0 ||
        !drawing.CreateDrawing(Width(), Height())) {
        return -1;
    }
    Draw(drawing);
    return drawing.GetCoverage(static_cast<LONG>(m_Scale), coverage.Width, coverage.Bits,
                               coverage.Pitch)
               ? 0
               : -1;
}

}  // namespace kv::shape
