#include <cmath>
#include <limits>
#include <memory>

#include <CDrawGraph.h>
#include <CKVFrameBuffer.h>
#include <gtest/gtest.h>

namespace {

constexpr tagPOINT kPoints[] = {{5, 6}, {7, 8}, {-9, 10}, {11, 12}};

bool Equal(tagPOINT a, tagPOINT b) {
    return CPoint(a) == CPoint(b);
}

bool Equal(const tagRECT& a, const tagRECT& b) {
    return CRect(a) == CRect(b);
}

TEST(CDrawGraph, StartsWithoutShape) {
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CDrawGraph"));
    auto* const shape = dynamic_cast<CDrawGraph*>(made.get());
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(shape->GetPenSize(), 1);
    EXPECT_EQ(shape->GetAntiScale(), 16);
    EXPECT_EQ(shape->GetBodyCol(), 0xFFFFFFFF);
    CKVFrameBuffer fb(8, 8, 1);
    EXPECT_EQ(shape->DrawFrame(&fb), 1);
    CBox box;
    EXPECT_EQ(shape->DrawFrameEria(&fb, box, box, box, box), 1);
    EXPECT_EQ(fb.GetWidth(), 8u);
}

TEST(CDrawGraph, NormalisesRectanglesButNotLines) {
    CDrawGraph shape;
    const tagRECT turned{30, 40, 10, 20};
    shape.SetRect(&turned);
    EXPECT_TRUE(Equal(shape.GetRect(), tagRECT{10, 20, 30, 40}));
    shape.SetLine({30, 40}, {10, 20});
    tagPOINT a, b;
    EXPECT_EQ(shape.GetLine(&a, &b), 2);
    EXPECT_TRUE(Equal(a, {30, 40}) && Equal(b, {10, 20}));
}

// Every reader of a two-corner kind, on its own kind and on another.
TEST(CDrawGraph, CornerReadersAnswerForTheirKind) {
    using Shape = CDrawGraph;
    static const tagRECT rect{1, 2, 3, 4};
    static tagPOINT size;
    static double start, end;
    const struct {
        void (*set)(Shape&);
        int (*write)(const Shape&, tagRECT*);
        tagRECT (Shape::*value)() const;
        tagPOINT* (Shape::*list)(int*);
    } kinds[] = {
        {[](Shape& s) { s.SetRect(&rect); },
         [](const Shape& s, tagRECT* r) { return s.GetRect(r); }, &Shape::GetRect, &Shape::GetRect},
        {[](Shape& s) {
             s.SetRoundRect(&rect, {8, 9});
         },
         [](const Shape& s, tagRECT* r) { return s.GetRoundRect(r, &size); }, &Shape::GetRoundRect,
         &Shape::GetRoundRect},
        {[](Shape& s) { s.SetEllipse(&rect); },
         [](const Shape& s, tagRECT* r) { return s.GetEllipse(r); }, &Shape::GetEllipse,
         &Shape::GetEllipse},
        {[](Shape& s) { s.SetPie(&rect, 30, 60); },
         [](const Shape& s, tagRECT* r) { return s.GetPie(r, &start, &end); }, &Shape::GetPie,
         &Shape::GetPie},
    };
    for (LONG type = 3; type <= 6; ++type) {
        const auto& kind = kinds[type - 3];
        Shape own, other;
        kind.set(own);
        other.SetLine({1, 2}, {3, 4});
        Shape emptied = own;
        emptied.m_Point.RemoveAll();
        EXPECT_EQ(own.GetGraphType(), type);
        for (Shape* shape : {&own, &other, &emptied}) {
            const bool has = shape == &own;
            const tagRECT wanted = has ? rect : tagRECT{};
            tagRECT got{7, 7, 7, 7};
            int count = 7;
            EXPECT_EQ(kind.write(*shape, &got), has ? (type == 4 ? 3 : 2) : 0);
            EXPECT_TRUE(Equal(got, wanted) && Equal((shape->*kind.value)(), wanted));
            EXPECT_EQ((shape->*kind.list)(&count), has ? own.m_Point.GetData() : nullptr);
            EXPECT_EQ(count, has ? 2 : 0);
        }
        tagRECT got;
        int count = 0;
        own.m_Point.RemoveAll();
        own.m_Point.Add(CPoint(1, 2));  // one point where two are promised
        EXPECT_THROW(kind.write(own, &got), CInvalidArgException);
        EXPECT_THROW((own.*kind.list)(&count), CInvalidArgException);
    }
}

TEST(CDrawGraph, ListReadersAnswerForTheirKind) {
    struct Kind {
        void (CDrawGraph::*set)(const tagPOINT*, int);
        tagPOINT* (CDrawGraph::*list)(int*);
        int (CDrawGraph::*size)() const;
        tagPOINT (CDrawGraph::*at)(int) const;
    };
    const Kind kinds[] = {
        {&CDrawGraph::SetPolyLine, &CDrawGraph::GetPolyLine, &CDrawGraph::GetPolyLine_Size,
         &CDrawGraph::GetPolyLine_At},
        {&CDrawGraph::SetPolyGon, &CDrawGraph::GetPolyGon, &CDrawGraph::GetPolyGon_Size,
         &CDrawGraph::GetPolyGon_At},
        {&CDrawGraph::SetSpline, &CDrawGraph::GetSpline, &CDrawGraph::GetSpline_Size,
         &CDrawGraph::GetSpline_At},
    };
    for (const Kind& kind : kinds) {
        CDrawGraph shape;
        (shape.*kind.set)(kPoints, 4);
        int count = 0;
        EXPECT_EQ((shape.*kind.list)(&count), shape.m_Point.GetData());
        EXPECT_EQ(count, 4);
        EXPECT_TRUE(Equal((shape.*kind.at)(2), kPoints[2]));
        EXPECT_TRUE(Equal((shape.*kind.at)(4), {0, 0}) && Equal((shape.*kind.at)(-1), {0, 0}));
        CDrawGraph line;
        line.SetLine({1, 2}, {3, 4});
        EXPECT_EQ((line.*kind.size)(), 0);
        EXPECT_TRUE(Equal((line.*kind.at)(0), {0, 0}) && Equal(line.GetAt(0), {1, 2}));
        (shape.*kind.set)(kPoints, 0);
        EXPECT_NE(shape.GetGraphType(), 0);
        EXPECT_EQ((shape.*kind.list)(&count), nullptr);
        CKVFrameBuffer fb(8, 8, 1);
        EXPECT_THROW(shape.DrawFrame(&fb), CInvalidArgException);
    }
}

TEST(CDrawGraph, AnglesOutliveTheirKind) {
    CDrawGraph shape;
    const tagRECT rect{0, 0, 10, 10};
    shape.SetPie(&rect, 30, 60);
    shape.SetRect(&rect);
    tagRECT got;
    double start = 0, end = 0;
    EXPECT_EQ(shape.GetPie(&got, &start, &end), 0);
    EXPECT_EQ(start * 100 + end, 3060.0);
    EXPECT_EQ(shape.GetPie_DegStart(), 0.0);
}

TEST(CDrawGraph, CopiesAreDeep) {
    auto source = std::make_unique<CDrawGraph>();
    source->SetPolyGon(kPoints, 4);
    source->SetEdgeText(1, "a-name-too-long-for-any-small-string-buffer.tga");
    source->SetEdgeCol(0);
    const CDrawGraph constructed(*source);
    CDrawGraph assigned;
    assigned = *source;
    source.reset();
    for (const CDrawGraph* copy : {&constructed, static_cast<const CDrawGraph*>(&assigned)}) {
        EXPECT_EQ(copy->m_Info.EdgeText.File, static_cast<const char*>(copy->m_EdgeFile));
        EXPECT_STREQ(copy->GetEdgeText_File(), "a-name-too-long-for-any-small-string-buffer.tga");
        EXPECT_TRUE(Equal(copy->GetPolyGon_At(3), kPoints[3]));
    }
}

TEST(CDrawGraph, RadialOffsets) {
    const double infinity = std::numeric_limits<double>::infinity();
    const std::pair<double, CPoint> cases[] = {
        {0, {0, -100}},   {45, {71, -71}},    {90, {100, 0}},      {180, {0, 100}},
        {270, {-100, 0}}, {infinity, {0, 0}}, {-infinity, {0, 0}}, {std::nan(""), {0, 0}}};
    for (const auto& [degree, offset] : cases) {
        tagPOINT out{1, 1};
        CDrawGraph().GetDegAdd(degree, 100, 7, &out);
        EXPECT_TRUE(Equal(out, offset)) << degree << ": " << out.x << ", " << out.y;
    }
}

}  // namespace
