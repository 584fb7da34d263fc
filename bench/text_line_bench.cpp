// The whole road of one line of text into a 1920x1080 frame, and its layout alone. The frame's
// memcpy stands beside them as the measure of the machine.

#include <cstring>
#include <vector>

#include <CDrawText.h>
#include <KVUtf8.h>
#include <benchmark/benchmark.h>

namespace {

constexpr LONG kWidth = 1920;
constexpr LONG kHeight = 1080;

CDrawText TwentyCharacters() {
    CDrawText text;
    text.SetString(KVFromUtf8("春の海終日のたりのたりかな東京都千代田区"));
    text.SetSize(48, 89);
    text.SetPos(200, 600);
    text.SetEdgeCol(0xFF203080);
    text.SetShadCol(0xC0000000);
    return text;
}

void FrameMemcpy(benchmark::State& state) {
    const std::vector<DWORD> from(kWidth * kHeight, 0xFF123456);
    std::vector<DWORD> to(kWidth * kHeight);
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), to.size() * 4);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(FrameMemcpy)->Unit(benchmark::kMillisecond);

void LineLayout(benchmark::State& state) {
    CDrawText text = TwentyCharacters();
    for (auto _ : state) {
        CKVMonoBitmap mask;
        tagPOINT pos;
        text.NomDispBwBmpH(nullptr, &text.m_Font, text.GetString(), &mask, &pos);
        benchmark::DoNotOptimize(mask.Bits);
    }
}
BENCHMARK(LineLayout)->Unit(benchmark::kMillisecond);

void LineFill(benchmark::State& state) {
    CDrawText text = TwentyCharacters();
    CKVFrameBuffer fb(kWidth, kHeight, 1);
    for (auto _ : state) {
        text.DrawFrame(nullptr, &fb);
    }
}
BENCHMARK(LineFill)->Unit(benchmark::kMillisecond);

void LineEdgeAndSoftShadow(benchmark::State& state) {
    CDrawText text = TwentyCharacters();
    text.SetEdgeType(0, 8, 0);
    text.SetShadType(2, 8, 8, 0);
    CKVFrameBuffer fb(kWidth, kHeight, 1);
    for (auto _ : state) {
        text.DrawFrame(nullptr, &fb);
    }
}
BENCHMARK(LineEdgeAndSoftShadow)->Unit(benchmark::kMillisecond);

}  // namespace
