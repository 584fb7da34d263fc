#include <algorithm>
#include <vector>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <benchmark/benchmark.h>

#include "bench/frame_memcpy.h"

// The keys of a full frame beside the plain loop and memcpy of the frame, and the edge and shadow
// of a picture: a solid middle of a third of the frame's width and height with soft sides.

namespace {

constexpr LONG kWidth = 1920;
constexpr LONG kHeight = 1080;

void FillPicture(CKVFrameBuffer& fb) {
    fb.CreateFrameBuffer(kWidth, kHeight, 1);
    for (LONG y = kHeight / 3; y < kHeight * 2 / 3; ++y) {
        for (LONG x = kWidth / 3; x < kWidth * 2 / 3; ++x) {
            const LONG side = std::min({x - kWidth / 3 + 1, kWidth * 2 / 3 - x, LONG{4}});
            const auto key = static_cast<DWORD>(side * 64 - 1);
            fb.GetBufferDWord()[y * kWidth + x] = key << 24 | static_cast<DWORD>(x * y & 0xFFFFFF);
        }
    }
}

void FrameBytes(benchmark::State& state) {
    state.SetBytesProcessed(state.iterations() * kWidth * kHeight * 4);
}

void Keys(benchmark::State& state) {
    CKVFrameBuffer fb;
    FillPicture(fb);
    CKVGrayBitmap gray;
    for (auto _ : state) {
        CKVBwDraw().KeyToGray(&fb, &gray);
        benchmark::DoNotOptimize(gray.Bits);
    }
    FrameBytes(state);
}

void KeysPlain(benchmark::State& state) {
    CKVFrameBuffer fb;
    FillPicture(fb);
    for (auto _ : state) {
        CKVGrayBitmap gray;
        gray.Create(kWidth, kHeight);
        for (LONG y = 0; y < kHeight; ++y) {
            for (LONG x = 0; x < kWidth; ++x) {
                gray.Bits[y * kWidth + x] = fb.GetBufferByte()[(y * kWidth + x) * 4 + 3];
            }
        }
        benchmark::ClobberMemory();
    }
    FrameBytes(state);
}

// An edge of 4 and a soft shadow of 8.
tagKVBWDRAWINFO Record() {
    tagKVBWDRAWINFO info{};
    info.EdgeType_Size = 4;
    info.EdgeCol = 0xFF204080;
    info.ShadType_Type = 2;
    info.ShadType_Size = 4;
    info.ShadType_SoftSize = 8;
    info.ShadCol = 0xC0000000;
    return info;
}

void EdgeToFit(benchmark::State& state) {
    CKVFrameBuffer fb, result;
    FillPicture(fb);
    tagKVBWDRAWINFO info = Record();
    CBox area, body, edge, shadow;
    for (auto _ : state) {
        fb.SetEdge(&result, &info, area, body, edge, shadow);
        benchmark::DoNotOptimize(result.GetBufferDWord());
    }
    FrameBytes(state);
}

void EdgeOfOwnSize(benchmark::State& state) {
    CKVFrameBuffer fb, result;
    FillPicture(fb);
    tagKVBWDRAWINFO info = Record();
    for (auto _ : state) {
        fb.SetEdgeOrgSize(&result, &info);
        benchmark::DoNotOptimize(result.GetBufferDWord());
    }
    FrameBytes(state);
}

BENCHMARK(Keys)->Unit(benchmark::kMicrosecond);
BENCHMARK(KeysPlain)->Unit(benchmark::kMicrosecond);
BENCHMARK(EdgeToFit)->Unit(benchmark::kMicrosecond);
BENCHMARK(EdgeOfOwnSize)->Unit(benchmark::kMicrosecond);

}  // namespace
