#include <cmath>
#include <cstring>
#include <vector>

#include <CKVBwDraw.h>
#include <CKVFrameBuffer.h>
#include <CKVGrayBitmap.h>
#include <CKVMonoBitmap.h>
#include <benchmark/benchmark.h>

// The stages of a render beside the plain loop on the same work and beside memcpy or memset of what
// they write. A coverage looks like a line of text: strokes with soft sides, gaps between them.

namespace {

void FillLikeText(CKVGrayBitmap& gray, LONG width, LONG height) {
    gray.Create(width, height);
    for (LONG y = height / 5; y < height * 4 / 5; ++y) {
        for (LONG x = 0; x < width; ++x) {
            const LONG phase = (x + y / 4) % 50;
            const LONG level = phase < 4 ? 60 * phase + 30 : phase < 12 ? 255 : 0;
            gray.Bits[y * static_cast<LONG>(gray.Pitch) + x] = static_cast<BYTE>(level);
        }
    }
}

void BytesOf(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

// 4 MB of mask.
void FillMask(CKVMonoBitmap& mask) {
    mask.Create(8000, 4192);
    for (DWORD i = 0; i < mask.Size; ++i) {
        mask.Bits[i] = static_cast<BYTE>(i * 2654435761U >> 13);
    }
}

void Reduce(benchmark::State& state) {
    CKVMonoBitmap mask;
    FillMask(mask);
    CKVGrayBitmap gray;
    for (auto _ : state) {
        CKVBwDraw().MakeAntiGray(static_cast<int>(state.range(0)), &mask, &gray);
        benchmark::DoNotOptimize(gray.Bits);
    }
    BytesOf(state, mask.Size);
}

// Byte by byte with a table of bit counts.
void ReducePlain16(benchmark::State& state) {
    CKVMonoBitmap mask;
    FillMask(mask);
    std::vector<int> bits(256);
    for (unsigned i = 0; i < 256; ++i) {
        bits[i] = __builtin_popcount(i);
    }
    CKVGrayBitmap gray;
    gray.Create(static_cast<LONG>(mask.Pitch / 2), mask.Height / 16);
    for (auto _ : state) {
        for (DWORD y = 0; y < static_cast<DWORD>(gray.Height); ++y) {
            for (DWORD x = 0; x < static_cast<DWORD>(gray.Width); ++x) {
                int count = 0;
                for (DWORD row = 0; row < 16; ++row) {
                    const BYTE* at = mask.Bits + (y * 16 + row) * mask.Pitch + x * 2;
                    count += bits[at[0]] + bits[at[1]];
                }
                gray.Bits[y * gray.Pitch + x] = static_cast<BYTE>(count > 255 ? 255 : count);
            }
        }
        benchmark::DoNotOptimize(gray.Bits);
        benchmark::ClobberMemory();
    }
    BytesOf(state, mask.Size);
}

void ReadMask(benchmark::State& state) {
    CKVMonoBitmap mask;
    FillMask(mask);
    for (auto _ : state) {
        std::uint64_t sum = 0;
        for (DWORD i = 0; i < mask.Size; i += 8) {
            std::uint64_t part;
            std::memcpy(&part, mask.Bits + i, sizeof(part));
            sum ^= part;
        }
        benchmark::DoNotOptimize(sum);
    }
    BytesOf(state, mask.Size);
}

void PaintColour(benchmark::State& state) {
    CKVGrayBitmap gray;
    FillLikeText(gray, 1920, 1080);
    CKVFrameBuffer layer;
    const DWORD colour = 0xC0123456;
    for (auto _ : state) {
        CKVBwDraw().MakeFb_Color(&gray, &layer, &colour);
        benchmark::DoNotOptimize(layer.GetBufferDWord());
    }
    BytesOf(state, layer.GetSize());
}

void PaintColourPlain(benchmark::State& state) {
    CKVGrayBitmap gray;
    FillLikeText(gray, 1920, 1080);
    std::vector<DWORD> layer(gray.Size);
    DWORD colour = 0xC0123456;
    benchmark::DoNotOptimize(colour);
    for (auto _ : state) {
        for (DWORD i = 0; i < gray.Size; ++i) {
            const DWORD g = gray.Bits[i];
            DWORD pixel = 0;
            if (g != 0) {
                pixel = (colour >> 24) * g / 255 << 24 | (colour & 0xFFFFFF);
            }
            layer[i] = pixel;
        }
        benchmark::DoNotOptimize(layer.data());
        benchmark::ClobberMemory();
    }
    BytesOf(state, layer.size() * 4);
}

void MemsetFrame(benchmark::State& state) {
    std::vector<DWORD> layer(1920 * 1080);
    for (auto _ : state) {
        std::memset(layer.data(), 17, layer.size() * 4);
        benchmark::ClobberMemory();
    }
    BytesOf(state, layer.size() * 4);
}

// Runs work(source, target) on a line of text with room for `growth` on the target, which is
// cleared before each pass.
template <typename Work>
void OnTextLine(benchmark::State& state, int growth, const Work& work) {
    CKVGrayBitmap source, target;
    FillLikeText(source, 1000, 100);
    target.Create(1000 + growth, 100 + growth);
    for (auto _ : state) {
        std::memset(target.Bits, 0, target.Size);
        work(source, target);
        benchmark::DoNotOptimize(target.Bits);
        benchmark::ClobberMemory();
    }
    BytesOf(state, target.Size);
}

void HardEdge(benchmark::State& state) {
    const int radius = static_cast<int>(state.range(0));
    OnTextLine(state, 2 * radius, [&](const CKVGrayBitmap& source, CKVGrayBitmap& target) {
        CKVBwDraw().GrayMakeNomEdge(radius, &source, &target);
    });
}

void SoftEdge(benchmark::State& state) {
    const int radius = static_cast<int>(state.range(0));
    OnTextLine(state, 2 * radius, [&](const CKVGrayBitmap& source, CKVGrayBitmap& target) {
        CKVBwDraw().GrayMakeSoftEdge(radius, 0, &source, &target);
    });
}

// Every pixel writes its disc, but only where its neighbours have not: the cost follows the
// outline.
template <typename Value>
void DiscsPlain(benchmark::State& state, const Value& value) {
    const int r = static_cast<int>(state.range(0));
    OnTextLine(state, 2 * r, [&](const CKVGrayBitmap& source, CKVGrayBitmap& target) {
        const auto pitch = static_cast<LONG>(source.Pitch);
        for (LONG y = 0; y < source.Height; ++y) {
            for (LONG x = 0; x < source.Width; ++x) {
                const BYTE* at = source.Bits + y * pitch + x;
                const bool above = y > 0 && at[-pitch] == *at;
                const bool left = x > 0 && at[-1] == *at;
                for (int dy = above ? 0 : -r; dy <= r && *at != 0; ++dy) {
                    const int half = static_cast<int>(std::sqrt(r * r - dy * dy) + 0.5);
                    BYTE* row =
                        target.Bits + (y + r + dy) * static_cast<LONG>(target.Pitch) + x + r;
                    for (int dx = left ? half : -half; dx <= half; ++dx) {
                        const BYTE v = value(*at, dx, dy, r);
                        row[dx] = row[dx] < v ? v : row[dx];
                    }
                }
            }
        }
    });
}

void HardEdgePlain(benchmark::State& state) {
    DiscsPlain(state, [](BYTE v, int, int, int) { return v; });
}

// The weights from a table of squared distances, as a table by row and column would give them.
void SoftEdgePlain(benchmark::State& state) {
    const int r = static_cast<int>(state.range(0));
    std::vector<BYTE> weights(static_cast<std::size_t>(2 * r * r + 2 * r + 2));
    for (int square = 0; square < r * r; ++square) {
        weights[static_cast<std::size_t>(square)] =
            static_cast<BYTE>(255 * ((r - std::sqrt(square)) / r));
    }
    DiscsPlain(state, [&](BYTE, int dx, int dy, int) {
        return weights[static_cast<std::size_t>(dx * dx + dy * dy)];
    });
}

void Shadow(benchmark::State& state) {
    const int type = static_cast<int>(state.range(0));
    CKVGrayBitmap source, target;
    FillLikeText(source, 1000, 100);
    for (auto _ : state) {
        CKVBwDraw().MakeShadow(type, static_cast<int>(state.range(1)),
                               static_cast<int>(state.range(1)), 0, &source, &target);
        benchmark::DoNotOptimize(target.Bits);
    }
    BytesOf(state, target.Size);
}

void ExtrusionPlain(benchmark::State& state) {
    const int steps = static_cast<int>(state.range(0));
    OnTextLine(state, steps, [&](const CKVGrayBitmap& source, CKVGrayBitmap& target) {
        for (LONG i = 0; i < steps; ++i) {
            for (LONG y = 0; y < source.Height; ++y) {
                const BYTE* from = source.Bits + y * static_cast<LONG>(source.Pitch);
                BYTE* to = target.Bits + (y + i) * static_cast<LONG>(target.Pitch) + i;
                for (LONG x = 0; x < source.Width; ++x) {
                    if (from[x] > to[x]) {
                        to[x] = from[x];
                    }
                }
            }
        }
    });
}

void MemcpyLine(benchmark::State& state) {
    OnTextLine(state, 0, [](const CKVGrayBitmap& source, CKVGrayBitmap& target) {
        std::memcpy(target.Bits, source.Bits, source.Size);
    });
}

BENCHMARK(Reduce)->Arg(1)->Arg(4)->Arg(8)->Arg(16)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReducePlain16)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadMask)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintColour)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintColourPlain)->Unit(benchmark::kMicrosecond);
BENCHMARK(MemsetFrame)->Unit(benchmark::kMicrosecond);
BENCHMARK(HardEdge)->Arg(1)->Arg(4)->Arg(16)->Arg(32)->Unit(benchmark::kMicrosecond);
BENCHMARK(HardEdgePlain)->Arg(1)->Arg(4)->Arg(16)->Arg(32)->Unit(benchmark::kMicrosecond);
BENCHMARK(SoftEdge)->Arg(2)->Arg(8)->Arg(32)->Arg(200)->Unit(benchmark::kMicrosecond);
BENCHMARK(SoftEdgePlain)->Arg(2)->Arg(8)->Arg(32)->Unit(benchmark::kMicrosecond);
BENCHMARK(Shadow)->ArgsProduct({{0, 1, 2}, {8}})->Args({1, 32})->Unit(benchmark::kMicrosecond);
BENCHMARK(ExtrusionPlain)->Arg(8)->Arg(32)->Unit(benchmark::kMicrosecond);
BENCHMARK(MemcpyLine)->Unit(benchmark::kMicrosecond);

}  // namespace
