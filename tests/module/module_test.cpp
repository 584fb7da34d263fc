// Each suite runs in a process of its own, whose library search finds a module of the asked name
// with the entry (Bound), without it (NoEntry), or none (Absent).

#include <CKVDrawWApp.h>
#include <CKVFrameBuffer.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "resize_recorder.h"

namespace {

// Shrinking to one pixel takes the pixel at the centre: the mark of the own resampler.
void ExpectReleasedAndOwnResampler() {
    EXPECT_EQ(CKVDrawWApp::Instance().ExitInstance(), 0);
    EXPECT_EQ(CKVDrawWApp::Instance().m_IppModule, nullptr);
    EXPECT_EQ(CKVDrawWApp::Instance().m_IppResize, nullptr);
    EXPECT_EQ(dlopen("ippi-7.0.dll", RTLD_NOW | RTLD_NOLOAD), nullptr);
    CKVFrameBuffer source(2, 2, 1), target;
    source.m_BufferDWord[3] = 0x12345678;
    ASSERT_EQ(source.SizeChange(&target, 1, 1), 0);
    EXPECT_EQ(*target.m_BufferDWord, 0x12345678U);
}

class Bound : public testing::Test {
  protected:
    CKVFrameBuffer m_Source{100, 60, 1}, m_Target;
    void* const m_Entry = dlsym(CKVDrawWApp::Instance().m_IppModule, "recordedResize");
    RecordedResize& m_Record = *static_cast<RecordedResize*>(m_Entry);
};

TEST_F(Bound, ArgumentsTellBothPicturesWhole) {
    ASSERT_EQ(m_Source.SizeChange(&m_Target, 200, 30), 0);
    EXPECT_EQ(m_Record.source, m_Source.GetBufferByte());
    EXPECT_EQ(m_Record.target, m_Target.GetBufferByte());
    EXPECT_EQ(m_Target.GetWH(), CSize(200, 30));
    EXPECT_EQ(m_Record.numbers,
              (std::array<double, 13>{100, 60, 400, 0, 0, 100, 60, 800, 200, 30, 2.0, 0.5, 4}));
    // The factors are those of the truncated sizes, not the ones asked for.
    ASSERT_EQ(m_Source.SizeChangeScale(&m_Target, 0.999F, 1.0F), 0);
    EXPECT_EQ(m_Record.numbers,
              (std::array<double, 13>{100, 60, 400, 0, 0, 100, 60, 396, 99, 60, 0.99, 1.0, 8}));
    for (const auto& [width, height] :
         {CPoint(100, 60), CPoint(50, 30), CPoint(101, 60), CPoint(100, 61), CPoint(50, 120)}) {
        ASSERT_EQ(m_Source.SizeChange(&m_Target, width, height), 0);
        EXPECT_EQ(m_Record.numbers[12], width > 100 || height > 60 ? 4 : 8);
    }
}

TEST_F(Bound, FailuresOfTheFunctionAndBeforeIt) {
    for (const int status : {-8, 1}) {
        m_Record.status = status;
        EXPECT_EQ(m_Source.SizeChange(&m_Target, 7, 5), -1) << status;
        EXPECT_EQ(m_Target.GetWH(), CSize(7, 5));
    }
    m_Record = {};
    EXPECT_EQ(m_Source.SizeChange(&m_Target, 0, 5), -1);
    EXPECT_EQ(m_Source.SizeChangeScale(&m_Target, 0.001F, 1.0F), -1);
    EXPECT_EQ(m_Source.SizeChange(&m_Target, 40000, 40000), -1);
    EXPECT_EQ(m_Target.IsBuffer(), 1);
    EXPECT_EQ(m_Record.calls, 0);
}

TEST_F(Bound, ExitLetsGo) {
    EXPECT_NE(CKVDrawWApp::Instance().m_IppResize, nullptr);
    ExpectReleasedAndOwnResampler();
    EXPECT_EQ(CKVDrawWApp::Instance().InitInstance(), 1);
    EXPECT_NE(CKVDrawWApp::Instance().m_IppResize, nullptr);
}

TEST(NoEntry, ModuleIsHeldWithoutAFunction) {
    EXPECT_NE(CKVDrawWApp::Instance().m_IppModule, nullptr);
    EXPECT_EQ(CKVDrawWApp::Instance().m_IppResize, nullptr);
    ExpectReleasedAndOwnResampler();
}

TEST(Absent, LibraryDoesWithout) {
    EXPECT_EQ(CKVDrawWApp::Instance().m_IppModule, nullptr);
    EXPECT_EQ(CKVDrawWApp::Instance().InitInstance(), 1);
    ExpectReleasedAndOwnResampler();
}

}  // namespace
