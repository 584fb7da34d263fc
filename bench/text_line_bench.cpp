// The whole road of one line of text into a 1920x1080 frame, and its layout alone. The frame's
// memcpy stands beside them as the measure of the machine.

#include <CDrawText.h>
#include <KVUtf8.h>
#include <benchmark/benchmark.h>

#include "bench/frame_memcpy.h"

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

using Layout = int (CKVFont::*)(HWND, tagKVFONTINFO*, const char*, CKVMonoBitmap*, tagPOINT*);

void LayOut(benchmark::State& state, Layout layout, CDrawText text) {
    for (auto _ : state) {
        CKVMonoBitmap mask;
        tagPOINT pos;
        (text.*layout)(nullptr, &text.m_Font, text.GetString(), &mask, &pos);
        benchmark::DoNotOptimize(mask.Bits);
    }
}

void LineLayout(benchmark::State& state, Layout layout) {
    LayOut(state, layout, TwentyCharacters());
}
BENCHMARK_CAPTURE(LineLayout, Horizontal, &CKVFont::NomDispBwBmpH)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LineLayout, Vertical, &CKVFont::NomDispBwBmpV)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LineLayout, Upright, &CKVFont::NomDispBwBmpV2)->Unit(benchmark::kMillisecond);

// Shrunk by distance and width to nine tenths of the plain line's length.
void FittedLine(benchmark::State& state, Layout layout) {
    CDrawText text = TwentyCharacters();
    text.SetEria(864, 864);
    text.SetFitMode(1);
    text.SetFitSpMax(0, -2);
    text.SetFitStrMax(100, 50);
    LayOut(state, layout, text);
}
BENCHMARK_CAPTURE(FittedLine, Horizontal, &CKVFont::FitDispBwBmpH)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FittedLine, Horizontal2, &CKVFont::FitDispBwBmpH2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FittedLine, Vertical, &CKVFont::FitDispBwBmpV)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FittedLine, Upright, &CKVFont::FitDispBwBmpV2)->Unit(benchmark::kMillisecond);

// Numbers among the characters: a font and several measurements a run.
void MixedLine(benchmark::State& state, Layout layout) {
    CDrawText text = TwentyCharacters();
    text.SetString(KVFromUtf8("平成25年12月31日午後7時45分発NHK第1"));
    LayOut(state, layout, text);
}
BENCHMARK_CAPTURE(MixedLine, Horizontal, &CKVFont::NomDispBwBmpH)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MixedLine, Vertical, &CKVFont::NomDispBwBmpV)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MixedLine, Upright, &CKVFont::NomDispBwBmpV2)->Unit(benchmark::kMillisecond);

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
