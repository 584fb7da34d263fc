#include <cstring>
#include <vector>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <benchmark/benchmark.h>

// Ramps over a full frame beside memset of as much and beside the loop that asks for the distance
// of each pixel.

namespace {

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr std::int64_t kBytes = std::int64_t{kWidth} * kHeight * 4;
constexpr DWORD kFrom = 0xFF102030;
constexpr DWORD kTo = 0x80F0C040;

void Ramp(benchmark::State& state) {
    std::vector<DWORD> pixels(kWidth * kHeight);
    for (auto _ : state) {
        CKVBwDraw().Pis_Grad_Paint(pixels.data(), kWidth, kHeight, -1, -1, kFrom, kTo,
                                   static_cast<int>(state.range(0)));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void RampPlain(benchmark::State& state) {
    std::vector<DWORD> pixels(kWidth * kHeight);
    const int type = static_cast<int>(state.range(0));
    for (auto _ : state) {
        CKVBwDraw draw;
        int cx = 0;
        int cy = 0;
        int length = 0;
        draw.Pis_Grad_Paint_Set1(type, -1, -1, 0, 0, kWidth - 1, kHeight - 1, &cx, &cy, &length);
        double step[4];
        for (int i = 0; i < 4; ++i) {
            const int change =
                static_cast<int>(kTo >> 8 * i & 255) - static_cast<int>(kFrom >> 8 * i & 255);
            step[i] = static_cast<double>(change) / length;
        }
        DWORD* pixel = pixels.data();
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                double d = 0;
                draw.Pis_Grad_Paint_Conv(type, x, y, 0, 0, kWidth - 1, kHeight - 1, cx, cy, &d);
                BYTE bytes[4];
                for (int i = 0; i < 4; ++i) {
                    const int base = static_cast<int>(kTo >> 8 * i & 255);
                    bytes[i] = static_cast<BYTE>(static_cast<int>(d * step[i]) + base);
                }
                std::memcpy(pixel++, bytes, 4);
            }
        }
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

// The whole paint of a layer, with strokes like those of text.
void Layer(benchmark::State& state) {
    CKVGrayBitmap gray;
    gray.Create(kWidth, kHeight);
    for (DWORD i = 0; i < gray.Size; ++i) {
        const DWORD phase = i % 50;
        gray.Bits[i] = static_cast<BYTE>(phase < 4 ? 60 * phase + 30 : phase < 12 ? 255 : 0);
    }
    const tagGRADINFO grad{0, static_cast<LONG>(state.range(0)), -1, -1, kFrom, kTo};
    CKVFrameBuffer layer;
    for (auto _ : state) {
        CKVBwDraw().MakeFb_Grad(&gray, &layer, &grad);
        benchmark::DoNotOptimize(layer.GetBufferDWord());
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void MemsetFrame(benchmark::State& state) {
    std::vector<DWORD> pixels(kWidth * kHeight);
    for (auto _ : state) {
        std::memset(pixels.data(), 17, kBytes);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

// 1 vertical, 2 diagonal, 4 diamond, 6 circle
BENCHMARK(Ramp)->Arg(1)->Arg(2)->Arg(4)->Arg(6)->Unit(benchmark::kMicrosecond);
BENCHMARK(RampPlain)->Arg(1)->Arg(2)->Arg(6)->Unit(benchmark::kMicrosecond);
BENCHMARK(Layer)->Arg(1)->Arg(2)->Arg(6)->Unit(benchmark::kMicrosecond);
BENCHMARK(MemsetFrame)->Unit(benchmark::kMicrosecond);

}  // namespace
