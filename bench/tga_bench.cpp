// TGA files of a 1920 x 1080 picture through a file in memory: whole reading and writing, with the
// yields between chunks, and the conversions alone. Beside them a copy of the frame and a plain
// decoder.

#include <cstring>

#include <CKVTargaImage.h>
#include <benchmark/benchmark.h>
#include <platform/sync.h>

#include "bench/frame_memcpy.h"
#include "bench/title_picture.h"
#include "tests/support/memory_file.h"

namespace {

class Codec : public CKVTargaImage {
  public:
    using CKVTargaImage::ImgConv_Comp32;
    using CKVTargaImage::ImgConv_TgaComp;
    using CKVTargaImage::ImgConv_TgaUnComp;
    using CKVTargaImage::ImgConv_UnComp24;
    using CKVTargaImage::ImgConv_UnComp32;
};

const CKVFrameBuffer& Picture() {
    static const CKVFrameBuffer picture = [] {
        CKVFrameBuffer fb(kWidth, kHeight, 1);
        FillTitle(fb.GetBufferDWord());
        return fb;
    }();
    return picture;
}

std::vector<BYTE> Stored(LONG mode) {
    MemoryFile file;
    CKVTargaImage().SaveImage(&file, &Picture(), mode);
    return file.m_Bytes;
}

void Yields(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state) {
        for (int64_t i = 0; i < state.range(0); ++i) {
            Sleep(0);
        }
    }
}
BENCHMARK(Yields)->Arg(507)->Arg(2025)->Unit(benchmark::kMillisecond);

void Read(benchmark::State& state) {
    MemoryFile file(Stored(static_cast<LONG>(state.range(0))));
    for ([[maybe_unused]] auto _ : state) {
        CKVFrameBuffer fb;
        CKVTargaImage().LoadImg(&file, &fb);
        benchmark::DoNotOptimize(fb.m_BufferByte);
    }
}
BENCHMARK(Read)->ArgName("mode")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void Write(benchmark::State& state) {
    MemoryFile file;
    for ([[maybe_unused]] auto _ : state) {
        CKVTargaImage().SaveImage(&file, &Picture(), static_cast<LONG>(state.range(0)));
        benchmark::DoNotOptimize(file.m_Bytes.data());
    }
}
BENCHMARK(Write)->ArgName("mode")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void DecodeRaw(benchmark::State& state) {
    const std::vector<BYTE> file = Stored(0);
    std::vector<BYTE> target(kFrameBytes);
    const auto size = static_cast<DWORD>(file.size() - 18);
    for ([[maybe_unused]] auto _ : state) {
        if (state.range(0) == 32) {
            Codec().ImgConv_UnComp32(file.data() + 18, size, target.data(), kWidth, kHeight, 0);
        } else {
            Codec().ImgConv_UnComp24(file.data() + 18, size, target.data(), kWidth, kHeight, 0);
        }
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(DecodeRaw)->ArgName("bits")->Arg(32)->Arg(24)->Unit(benchmark::kMillisecond);

void DecodeRunLength(benchmark::State& state) {
    const std::vector<BYTE> file = Stored(1);
    std::vector<BYTE> target(kFrameBytes);
    for ([[maybe_unused]] auto _ : state) {
        Codec().ImgConv_Comp32(file.data() + 18, static_cast<DWORD>(file.size() - 18),
                               target.data(), kWidth, kHeight, 0);
        benchmark::DoNotOptimize(target.data());
    }
    state.counters["bytes"] = static_cast<double>(file.size());
}
BENCHMARK(DecodeRunLength)->Unit(benchmark::kMillisecond);

void PlainDecodeRunLength(benchmark::State& state) {
    const std::vector<BYTE> file = Stored(1);
    std::vector<DWORD> target(kFrameBytes / 4);
    for ([[maybe_unused]] auto _ : state) {
        const BYTE* src = file.data() + 18;
        DWORD x = 0;
        DWORD* row = target.data() + std::size_t{kHeight - 1} * kWidth;
        while (row >= target.data()) {
            const BYTE control = *src++;
            for (int i = 0; i <= (control & 0x7F); ++i) {
                std::memcpy(row + x, src, 4);
                src += (control & 0x80) != 0 ? 0 : 4;
                if (++x == kWidth) {
                    x = 0;
                    row -= kWidth;
                }
            }
            src += (control & 0x80) != 0 ? 4 : 0;
        }
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(PlainDecodeRunLength)->Unit(benchmark::kMillisecond);

void Encode(benchmark::State& state) {
    std::vector<BYTE> target(kFrameBytes / 4 * 5);
    DWORD length = 0;
    for ([[maybe_unused]] auto _ : state) {
        if (state.range(0) == 0) {
            Codec().ImgConv_TgaUnComp(Picture().m_BufferByte, target.data(), kWidth, kHeight,
                                      &length);
        } else {
            Codec().ImgConv_TgaComp(Picture().m_BufferByte, target.data(), kWidth, kHeight,
                                    &length);
        }
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(Encode)->ArgName("mode")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
