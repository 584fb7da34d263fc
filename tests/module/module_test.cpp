// Each suite runs in a process of its own, whose library search finds a module of the asked name
// with the entry (Bound), without it (NoEntry), or none (Absent).

#include <algorithm>

#include <CKVDrawWApp.h>
#include <CKVFrameBuffer.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include "resize_recorder.h"

namespace {

constexpr const char* kModule = "ippi-7.0.dll";

// Whether the module is in the process, without loading it.
bool IsLoaded() {
    void* const module = dlopen(kModule, RTLD_NOW | RTLD_NOLOAD);
    if (module != nullptr) {
        dlclose(module);
    }
    return module != nullptr;
}

// Shrinking to one pixel takes the pixel at the centre: the mark of the own resampler.
void ExpectOwnResampler() {
    CKVFrameBuffer source(2, 2, 1);
    CKVFrameBuffer target;
    source.m_BufferDWord[3] = 0x12345678;
    ASSERT_EQ(source.SizeChange(&target, 1, 1), 0);
    EXPECT_EQ(*target.m_BufferDWord, 0x12345678U);
}

class Bound : public testing::Test {
  protected:
    Bound()
        : record(*reinterpret_cast<RecordedResize*>(
              dlsym(CKVDrawWApp::Instance().m_IppModule, "recordedResize"))) {
        record = {};
    }

    RecordedResize& record;
    CKVFrameBuffer source{100, 60, 1};
    CKVFrameBuffer target;
};

TEST_F(Bound, ArgumentsTellBothPicturesWhole) {
    ASSERT_EQ(source.SizeChange(&target, 200, 30), 0);
    EXPECT_EQ(record.calls, 1);
    EXPECT_EQ(record.source, source.GetBufferByte());
    EXPECT_EQ(record.target, target.GetBufferByte());
    EXPECT_EQ(target.GetWH(), CSize(200, 30));
    const int numbers[] = {record.sourceSize.width,    record.sourceSize.height,
                           record.sourceStep,          record.sourceRegion.x,
                           record.sourceRegion.y,      record.sourceRegion.width,
                           record.sourceRegion.height, record.targetStep,
                           record.targetRegion.width,  record.targetRegion.height};
    const int wanted[] = {100, 60, 400, 0, 0, 100, 60, 800, 200, 30};
    EXPECT_TRUE(std::equal(numbers, numbers + 10, wanted));
    EXPECT_EQ(record.xFactor, 2.0);
    EXPECT_EQ(record.yFactor, 0.5);
    EXPECT_EQ(record.interpolation, 4);
}

// The factors are those of the truncated sizes, not the ones asked for.
TEST_F(Bound, ScaleByFactorsTellsTheSizesRatio) {
    ASSERT_EQ(source.SizeChangeScale(&target, 0.999F, 1.0F), 0);
    EXPECT_EQ(record.xFactor, 99.0 / 100.0);
    EXPECT_EQ(record.yFactor, 1.0);
    EXPECT_EQ(record.interpolation, 8);
}

TEST_F(Bound, AnyGrowingAxisAsksForCubic) {
    const struct {
        LONG width, height;
        int interpolation;
    } cases[] = {{100, 60, 8}, {50, 30, 8},  {1, 1, 8},   {101, 60, 4},
                 {100, 61, 4}, {50, 120, 4}, {99, 60, 8}, {300, 300, 4}};
    for (const auto& c : cases) {
        ASSERT_EQ(source.SizeChange(&target, c.width, c.height), 0);
        EXPECT_EQ(record.interpolation, c.interpolation) << c.width << " x " << c.height;
    }
}

TEST_F(Bound, EveryStatusButZeroFails) {
    for (const int status : {-8, 1, 30}) {
        record.status = status;
        EXPECT_EQ(source.SizeChange(&target, 7, 5), -1) << status;
        EXPECT_EQ(target.GetWH(), CSize(7, 5));
    }
}

TEST_F(Bound, IsNotAskedWhenThereIsNothingToResize) {
    EXPECT_EQ(source.SizeChange(&target, 0, 5), -1);
    EXPECT_EQ(source.SizeChangeScale(&target, 0.001F, 1.0F), -1);
    EXPECT_EQ(source.SizeChange(&target, 40000, 40000), -1);
    EXPECT_EQ(target.IsBuffer(), 1);
    EXPECT_EQ(record.calls, 0);
}

TEST_F(Bound, ExitLetsGoAndTheOwnResamplerTakesOver) {
    CKVDrawWApp& library = CKVDrawWApp::Instance();
    EXPECT_EQ(library.ExitInstance(), 0);
    EXPECT_EQ(library.m_IppModule, nullptr);
    EXPECT_EQ(library.m_IppResize, nullptr);
    EXPECT_FALSE(IsLoaded());
    ExpectOwnResampler();
    EXPECT_EQ(library.ExitInstance(), 0);
    EXPECT_EQ(library.InitInstance(), 1);
    EXPECT_NE(library.m_IppResize, nullptr);
}

TEST(NoEntry, ModuleIsHeldWithoutAFunction) {
    CKVDrawWApp& library = CKVDrawWApp::Instance();
    EXPECT_NE(library.m_IppModule, nullptr);
    EXPECT_EQ(library.m_IppResize, nullptr);
    ExpectOwnResampler();
    EXPECT_EQ(library.ExitInstance(), 0);
    EXPECT_FALSE(IsLoaded());
}

TEST(Absent, LibraryDoesWithout) {
    CKVDrawWApp& library = CKVDrawWApp::Instance();
    EXPECT_EQ(library.m_IppModule, nullptr);
    EXPECT_EQ(library.m_IppResize, nullptr);
    ExpectOwnResampler();
    EXPECT_EQ(library.InitInstance(), 1);
    EXPECT_EQ(library.ExitInstance(), 0);
}

}  // namespace
