// The shape object as data: its points and the readers of each kind.

#include "CDrawGraph.h"

#include <algorithm>
#include <tuple>

#include "platform/system/class_record.h"

namespace {

constexpr tagPOINT kOrigin{0, 0};

// All that a copy takes over. The names must be as many as the object has members, or it does not
// compile: none is forgotten.
template <typename Shape>
auto Fields(Shape& shape) {
    auto& [graphType, fillMode, penSize, penType, points, degStart, degEnd, info, bodyFile,
           edgeFile, shadFile, dispEria] = shape;
    return std::tie(graphType, fillMode, penSize, penType, points, degStart, degEnd, info, bodyFile,
                    edgeFile, shadFile, dispEria);
}

tagPOINT* Data(CArray<CPoint, CPoint>& points) {
    static_assert(sizeof(CPoint) == sizeof(tagPOINT));
    return points.GetData();
}

}  // namespace

KV_DEFINE_CLASS_RECORD(CDrawGraph, VERSIONABLE_SCHEMA);

CDrawGraph::CDrawGraph() {
    SetDefault();
}

CDrawGraph::CDrawGraph(const CDrawGraph& other) : CDrawGraph() {
    *this = other;
}

CDrawGraph& CDrawGraph::operator=(const CDrawGraph& other) {
    Fields(*this) = Fields(other);
    ConnectAll();
    return *this;
}

void CDrawGraph::SetDefault() {
    m_GraphType = kNoShape;
    m_FillMode = 0;
    m_PenSize = 1;
    m_PenType = 0;
    m_Point.RemoveAll();
    m_DegStart = m_DegEnd = 0.0;
    SetDefaultEffect();
}

void CDrawGraph::StorePoints(LONG kind, const tagPOINT* points, int count) {
    m_GraphType = kind;
    CArray<CPoint, CPoint> stored;  // apart, since the points may be this object's own
    for (int i = 0; points != nullptr && i < count; ++i) {
        stored.Add(points[i]);
    }
    m_Point = std::move(stored);
}

void CDrawGraph::StoreRect(LONG kind, const tagRECT& rect) {
    const auto [left, right] = std::minmax({rect.left, rect.right});
    const auto [top, bottom] = std::minmax({rect.top, rect.bottom});
    const tagPOINT corners[] = {{left, top}, {right, bottom}};
    StorePoints(kind, corners, 2);
}

void CDrawGraph::SetLine(tagPOINT a, tagPOINT b) {
    const tagPOINT points[] = {a, b};
    StorePoints(kLine, points, 2);
}

void CDrawGraph::SetPolyLine(const tagPOINT* points, int count) {
    StorePoints(kPolyLine, points, count);
}

void CDrawGraph::SetRect(const tagRECT* rect) {
    StoreRect(kRect, *rect);
}

void CDrawGraph::SetRoundRect(const tagRECT* rect, tagPOINT size) {
    StoreRect(kRoundRect, *rect);
    m_Point.Add(size);
}

void CDrawGraph::SetEllipse(const tagRECT* rect) {
    StoreRect(kEllipse, *rect);
}

void CDrawGraph::SetPie(const tagRECT* rect, double start, double end) {
    StoreRect(kPie, *rect);
    m_DegStart = start;
    m_DegEnd = end;
}

void CDrawGraph::SetPolyGon(const tagPOINT* points, int count) {
    StorePoints(kPolyGon, points, count);
}

void CDrawGraph::SetSpline(const tagPOINT* points, int count) {
    StorePoints(kSpline, points, count);
}

tagPOINT CDrawGraph::GetAt(int index) const {
    return index >= 0 && index < m_Point.GetSize() ? m_Point.GetAt(index) : kOrigin;
}

int CDrawGraph::GetLine(tagPOINT* a, tagPOINT* b) const {
    const bool filled = IsFilled(kLine);
    *a = filled ? m_Point.GetAt(0) : kOrigin;
    *b = filled ? m_Point.GetAt(1) : kOrigin;
    return filled ? 2 : 0;
}

tagPOINT* CDrawGraph::GetLine(int* count) {
    return CornersOf(kLine, count);
}

int CDrawGraph::GetRoundRect(tagRECT* rect, tagPOINT* size) const {
    *size = GetRoundRect_RSize();
    return RectOf(kRoundRect, rect) == 0 ? 0 : 3;
}

tagPOINT CDrawGraph::GetRoundRect_RSize() const {
    return IsFilled(kRoundRect) ? m_Point.GetAt(2) : kOrigin;
}

int CDrawGraph::GetPie(tagRECT* rect, double* start, double* end) const {
    *start = m_DegStart;
    *end = m_DegEnd;
    return RectOf(kPie, rect);
}

tagPOINT* CDrawGraph::ListOf(LONG kind, int* count) {
    *count = SizeOf(kind);
    return *count == 0 ? nullptr : Data(m_Point);
}

tagPOINT CDrawGraph::PointOf(LONG kind, int index) const {
    return m_GraphType == kind ? GetAt(index) : kOrigin;
}

tagRECT CDrawGraph::RectOf(LONG kind) const {
    tagRECT rect;
    RectOf(kind, &rect);
    return rect;
}

int CDrawGraph::RectOf(LONG kind, tagRECT* rect) const {
    if (!IsFilled(kind)) {
        *rect = {0, 0, 0, 0};
        return 0;
    }
    const CPoint& a = m_Point.GetAt(0);
    const CPoint& b = m_Point.GetAt(1);
    *rect = {a.x, a.y, b.x, b.y};
    return 2;
}

tagPOINT* CDrawGraph::CornersOf(LONG kind, int* count) {
    if (!IsFilled(kind)) {
        *count = 0;
        return nullptr;
    }
    m_Point.GetAt(1);  // throws when the second point is missing
    *count = 2;
    return Data(m_Point);
}
