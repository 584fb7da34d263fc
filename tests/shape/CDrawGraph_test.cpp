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
    CDrawGraph shape;
    EXPECT_EQ(shape.GetGraphType(), 0);
    EXPECT_EQ(shape.GetSize(), 0);
    EXPECT_EQ(shape.GetPenSize(), 1);
    EXPECT_EQ(shape.GetAntiScale(), 16);
    EXPECT_EQ(shape.GetBodyCol(), 0xFFFFFFFF);
    EXPECT_EQ(shape.GetShadCol(), 0xFF000000);
    CKVFrameBuffer fb(8, 8, 1);
    EXPECT_EQ(shape.DrawFrame(&fb), 1);
    CBox box;
    EXPECT_EQ(shape.DrawFrameEria(&fb, box, box, box, box), 1);
    EXPECT_EQ(fb.GetWidth(), 8u);
    EXPECT_TRUE(Equal(shape.GetDispEria().GetRect(), tagRECT{0, 0, 0, 0}));
}

TEST(CDrawGraph, NormalisesRectanglesButNotLines) {
    CDrawGraph shape;
    const tagRECT turned{30, 40, 10, 20};
    shape.SetRect(&turned);
    EXPECT_TRUE(Equal(shape.GetRect(), tagRECT{10, 20, 30, 40}));
    EXPECT_EQ(turned.left, 30);
    shape.SetLine({30, 40}, {10, 20});
    tagPOINT a;
    tagPOINT b;
    EXPECT_EQ(shape.GetLine(&a, &b), 2);
    EXPECT_TRUE(Equal(a, {30, 40}) && Equal(b, {10, 20}));
}

// Every reader of a two-corner kind, on its own kind and on another.
TEST(CDrawGraph, CornerReadersAnswerForTheirKind) {
    const tagRECT rect{1, 2, 3, 4};
    struct Kind {
        LONG type;
        void (*set)(CDrawGraph&, const tagRECT*);
        int (*write)(const CDrawGraph&, tagRECT*);
        tagRECT (CDrawGraph::*value)() const;
        tagPOINT* (CDrawGraph::*list)(int*);
        int written;
    };
    const Kind kinds[] = {
        {3, [](CDrawGraph& s, const tagRECT* r) { s.SetRect(r); },
         [](const CDrawGraph& s, tagRECT* r) { return s.GetRect(r); }, &CDrawGraph::GetRect,
         &CDrawGraph::GetRect, 2},
        {4,
         [](CDrawGraph& s, const tagRECT* r) {
             s.SetRoundRect(r, {8, 9});
         },
         [](const CDrawGraph& s, tagRECT* r) {
             tagPOINT size;
             return s.GetRoundRect(r, &size);
         },
         &CDrawGraph::GetRoundRect, &CDrawGraph::GetRoundRect, 3},
        {5, [](CDrawGraph& s, const tagRECT* r) { s.SetEllipse(r); },
         [](const CDrawGraph& s, tagRECT* r) { return s.GetEllipse(r); }, &CDrawGraph::GetEllipse,
         &CDrawGraph::GetEllipse, 2},
        {6, [](CDrawGraph& s, const tagRECT* r) { s.SetPie(r, 30, 60); },
         [](const CDrawGraph& s, tagRECT* r) {
             double start;
             double end;
             return s.GetPie(r, &start, &end);
         },
         &CDrawGraph::GetPie, &CDrawGraph::GetPie, 2},
    };
    for (const Kind& kind : kinds) {
        CDrawGraph own;
        kind.set(own, &rect);
        CDrawGraph other;
        other.SetLine({1, 2}, {3, 4});
        CDrawGraph emptied = own;
        emptied.m_Point.RemoveAll();
        EXPECT_EQ(own.GetGraphType(), kind.type);
        tagRECT got{};
        EXPECT_EQ(kind.write(own, &got), kind.written);
        EXPECT_TRUE(Equal(got, rect) && Equal((own.*kind.value)(), rect));
        int count = 0;
        EXPECT_EQ((own.*kind.list)(&count), own.m_Point.GetData());
        EXPECT_EQ(count, 2);
        for (CDrawGraph* without : {&other, &emptied}) {
            got = rect;
            EXPECT_EQ(kind.write(*without, &got), 0);
            EXPECT_TRUE(Equal(got, tagRECT{}) && Equal((without->*kind.value)(), tagRECT{}));
            EXPECT_EQ((without->*kind.list)(&count), nullptr);
            EXPECT_EQ(count, 0);
        }
        // One point where two are promised.
        own.m_Point.RemoveAll();
        own.m_Point.Add(CPoint(1, 2));
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
    EXPECT_EQ(shape.GetPie_DegEnd(), 60.0);
    shape.SetRect(&rect);
    tagRECT got;
    double start = 0;
    double end = 0;
    EXPECT_EQ(shape.GetPie(&got, &start, &end), 0);
    EXPECT_EQ(start, 30.0);
    EXPECT_EQ(end, 60.0);
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
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CDrawGraph"));
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->GetRuntimeClass(), CDrawGraph::GetThisClass());
}

TEST(CDrawGraph, RadialOffsets) {
    struct {
        double degree;
        tagPOINT offset;
    } const cases[] = {
        {0, {0, -100}},         {45, {71, -71}},  {90, {100, 0}},
        {180, {0, 100}},        {270, {-100, 0}}, {std::numeric_limits<double>::infinity(), {0, 0}},
        {std::nan(""), {0, 0}},
    };
    for (const auto& c : cases) {
        tagPOINT out{1, 1};
        CDrawGraph().GetDegAdd(c.degree, 100, 7, &out);
        EXPECT_TRUE(Equal(out, c.offset)) << c.degree << ": " << out.x << ", " << out.y;
    }
}

}  // namespace
