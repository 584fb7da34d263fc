// BMP files of a 1920 x 1080 picture, and run-length rows of as large an indexed one. Beside them a
// copy of the frame, and the file alone moved between the system and memory.

#include <cstdio>
#include <cstring>
#include <random>

#include <CDib.h>
#include <CImgFile.h>
#include <benchmark/benchmark.h>

#include "bench/bmp_file.h"
#include "bench/frame_memcpy.h"
#include "tests/support/memory_file.h"

namespace {

constexpr LONG kWidth = bench::kBmpWidth;
constexpr LONG kHeight = bench::kBmpHeight;
constexpr std::size_t kFrameBytes = std::size_t{kWidth} * kHeight * 4;

const CKVFrameBuffer& Picture() {
    static const CKVFrameBuffer picture = [] {
        CKVFrameBuffer fb(kWidth, kHeight, 1);
        std::mt19937 random(1);
        for (DWORD i = 0; i < fb.GetSize() / 4; ++i) {
            fb.GetBufferDWord()[i] = static_cast<DWORD>(random());
        }
        return fb;
    }();
    return picture;
}

void Save() {
    CImgFile().SaveImage(&Picture(), bench::BmpPath());
}

void ReadBytes(benchmark::State& state) {
    Save();
    std::vector<BYTE> bytes(kFrameBytes);
    for ([[maybe_unused]] auto _ : state) {
        CFile file;
        file.Open(bench::BmpPath(), CFile::modeRead);
        benchmark::DoNotOptimize(file.Read(bytes.data(), kFrameBytes));
    }
}
BENCHMARK(ReadBytes)->Unit(benchmark::kMillisecond);

void ReadBmp(benchmark::State& state) {
    Save();
    for ([[maybe_unused]] auto _ : state) {
        CKVFrameBuffer fb;
        CImgFile::LoadImg(bench::BmpPath(), &fb, nullptr);
        benchmark::DoNotOptimize(fb.m_BufferByte);
    }
}
BENCHMARK(ReadBmp)->Unit(benchmark::kMillisecond);

void WriteBmp(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        Save();
    }
}
BENCHMARK(WriteBmp)->Unit(benchmark::kMillisecond);

// 0 noise, 1 stretches of 1 to 256 pixels, 2 one colour.
void FillIndices(CDib& dib, std::int64_t kind) {
    std::mt19937 random(1);
    auto* pixels = static_cast<BYTE*>(dib.m_Image);
    for (DWORD i = 0, left = 0; i < dib.m_SizeImage; ++i, --left) {
        if (left == 0) {
            const DWORD stretch = DWORD{1} << (random() % 9);
            left = kind == 0 ? 1 : kind == 1 ? stretch : dib.m_SizeImage;
            pixels[i] = static_cast<BYTE>(random() & 0xFF);
        } else {
            pixels[i] = pixels[i - 1];
        }
    }
}

void Recode(benchmark::State& state, int bits, bool compressing) {
    CDib dib(kWidth, kHeight, bits, 0);
    std::memset(dib.m_ColorTable, 0, static_cast<std::size_t>(dib.m_ColorEntries) * 4);
    FillIndices(dib, state.range(0));
    const double plain = dib.m_SizeImage;
    CDC dc;
    if (!compressing) {
        dib.Compress(&dc, 1);
    }
    MemoryFile stored;
    dib.Write(&stored);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        stored.m_At = 0;
        dib.Read(&stored);
        state.ResumeTiming();
        benchmark::DoNotOptimize(dib.Compress(&dc, compressing ? 1 : 0));
    }
    state.counters["plain MB/s"] =
        benchmark::Counter(plain / 1e6, benchmark::Counter::kIsIterationInvariantRate);
}

void Compress8(benchmark::State& state) {
    Recode(state, 8, true);
}
BENCHMARK(Compress8)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void Expand8(benchmark::State& state) {
    Recode(state, 8, false);
}
BENCHMARK(Expand8)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void Compress4(benchmark::State& state) {
    Recode(state, 4, true);
}
BENCHMARK(Compress4)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void Expand4(benchmark::State& state) {
    Recode(state, 4, false);
}
BENCHMARK(Expand4)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void Draw(benchmark::State& state) {
    CDib dib(kWidth, kHeight, static_cast<int>(state.range(0)), 0);
    std::memset(dib.m_ColorTable, 0, static_cast<std::size_t>(dib.m_ColorEntries) * 4);
    FillIndices(dib, 0);
    CBitmap screen;
    screen.CreateBitmap(kWidth, kHeight, 1, 32, nullptr);
    CDC dc;
    dc.SelectObject(screen);
    for ([[maybe_unused]] auto _ : state) {
        dib.Draw(&dc, CPoint(0, 0), CSize(kWidth, kHeight));
    }
}
BENCHMARK(Draw)->Arg(1)->Arg(8)->Arg(16)->Arg(24)->Arg(32)->Unit(benchmark::kMillisecond);

}  // namespace
