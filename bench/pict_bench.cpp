// PICT files of a 1920 x 1080 picture through a file in memory: whole reading and writing, with the
// yields between chunks, and the conversions alone. Beside them a copy of the frame, a plain
// decoder and the packets as they are defined, which look ahead through the row.

#include <random>

#include <CKVPictImage.h>
#include <benchmark/benchmark.h>

#include "bench/frame_memcpy.h"
#include "bench/title_picture.h"
#include "tests/support/memory_file.h"

namespace {

constexpr std::size_t kHeadBytes = 622;

enum Kind : std::int64_t { kTitle, kNoise, kFlat, kPairs };

const CKVFrameBuffer& Picture(std::int64_t kind) {
    static const std::vector<CKVFrameBuffer*> pictures = [] {
        std::vector<CKVFrameBuffer*> made;
        for (const Kind each : {kTitle, kNoise, kFlat, kPairs}) {
            static CKVFrameBuffer frames[4];
            CKVFrameBuffer& fb = frames[each];
            fb.CreateFrameBuffer(kWidth, kHeight, 1);
            std::mt19937 random(2);
            DWORD* pixels = fb.GetBufferDWord();
            if (each == kTitle) {
                FillTitle(pixels);
            } else if (each != kFlat) {
                for (std::size_t i = 0; i < kFrameBytes / 4; ++i) {
                    pixels[i] =
                        each == kPairs && i % 3 == 2 ? pixels[i - 1] : static_cast<DWORD>(random());
                }
            }
            made.push_back(&fb);
        }
        return made;
    }();
    return *pictures[static_cast<std::size_t>(kind)];
}

std::vector<BYTE> Stored(std::int64_t kind) {
    MemoryFile file;
    CKVPictImage().SaveImage(&file, &Picture(kind), 0);
    return file.m_Bytes;
}

void Kinds(benchmark::internal::Benchmark* bench) {
    bench->ArgName("kind")->DenseRange(kTitle, kPairs)->Unit(benchmark::kMillisecond);
}

void Read(benchmark::State& state) {
    MemoryFile file(Stored(state.range(0)));
    for ([[maybe_unused]] auto _ : state) {
        CKVFrameBuffer fb;
        CKVPictImage().LoadImg(&file, &fb);
        benchmark::DoNotOptimize(fb.m_BufferByte);
    }
    state.counters["bytes"] = static_cast<double>(file.m_Bytes.size());
}
BENCHMARK(Read)->Apply(Kinds);

void Write(benchmark::State& state) {
    MemoryFile file;
    for ([[maybe_unused]] auto _ : state) {
        CKVPictImage().SaveImage(&file, &Picture(state.range(0)), 0);
        benchmark::DoNotOptimize(file.m_Bytes.data());
    }
}
BENCHMARK(Write)->Apply(Kinds);

void Decode(benchmark::State& state) {
    const std::vector<BYTE> file = Stored(state.range(0));
    std::vector<BYTE> target(kFrameBytes);
    for ([[maybe_unused]] auto _ : state) {
        CKVPictImage().ImgConv_Comp32(file.data() + kHeadBytes, target.data(), kWidth, kHeight,
                                      static_cast<DWORD>(file.size() - kHeadBytes), kWidth * 4);
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(Decode)->Apply(Kinds);

void PlainDecode(benchmark::State& state) {
    const std::vector<BYTE> file = Stored(state.range(0));
    std::vector<BYTE> target(kFrameBytes);
    std::vector<BYTE> row(std::size_t{kWidth} * 8);
    for ([[maybe_unused]] auto _ : state) {
        const BYTE* src = file.data() + kHeadBytes;
        for (std::size_t y = 0; y < kHeight; ++y) {
            src += 2;
            for (std::size_t done = 0; done < kWidth * 4;) {
                const int control = static_cast<std::int8_t>(*src++);
                for (int i = control < 0 ? control : -control; i <= 0; ++i) {
                    row[done++] = *src;
                    src += control < 0 ? 0 : 1;
                }
                src += control < 0 ? 1 : 0;
            }
            for (std::size_t x = 0; x < kWidth; ++x) {
                for (std::size_t channel = 0; channel < 4; ++channel) {
                    target[(y * kWidth + x) * 4 + channel] = row[kWidth * (3 - channel) + x];
                }
            }
        }
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(PlainDecode)->Apply(Kinds);

void Encode(benchmark::State& state) {
    std::vector<BYTE> target(kFrameBytes * 2 + std::size_t{kHeight} * 2 + 1);
    for ([[maybe_unused]] auto _ : state) {
        DWORD length = 0;
        CKVPictImage().ImgConv_Comp32A(Picture(state.range(0)).m_BufferByte, target.data(), kWidth,
                                       kHeight, &length);
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(Encode)->Apply(Kinds);

// The packets alone, of one row in 16.
void PlainPackets(benchmark::State& state) {
    std::vector<BYTE> row(std::size_t{kWidth} * 4 + 1);
    for ([[maybe_unused]] auto _ : state) {
        for (std::size_t y = 0; y < kHeight; y += 16) {
            const BYTE* const pixels = Picture(state.range(0)).m_BufferByte + y * kWidth * 4;
            for (std::size_t i = 0; i < kWidth * 4; ++i) {
                row[kWidth * (3 - i % 4) + i / 4] = pixels[i];
            }
            LONG at = 0;
            for (LONG isRun = 0; at < kWidth * 4;) {
                at += CKVPictImage().PictCheckComp(row.data() + at, kWidth * 4 - at, &isRun);
            }
            benchmark::DoNotOptimize(at);
        }
    }
}
BENCHMARK(PlainPackets)->Apply(Kinds);

}  // namespace
