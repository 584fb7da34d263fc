#include <filesystem>
#include <string>
#include <vector>

#include <CImgFile.h>
#include <CKVBwDraw.h>
#include <CKVGrayBitmap.h>
#include <CKVTargaImage.h>
#include <benchmark/benchmark.h>

#include "bench/frame_memcpy.h"

// Textures over a full frame with strokes like those of text: the whole paint, file included,
// beside reading the file alone, whole copies of the tile with a loop over the pixels, and memcpy.

namespace {

constexpr LONG kWidth = 1920;
constexpr LONG kHeight = 1080;
constexpr std::int64_t kBytes = std::int64_t{kWidth} * kHeight * 4;

// A square picture in a raw file, removed at the end.
class Square {
  public:
    explicit Square(std::int64_t side) {
        const auto length = static_cast<LONG>(side);
        m_Picture.CreateFrameBuffer(length, length, 1);
        for (DWORD i = 0; i < m_Picture.GetSize() / 4; ++i) {
            m_Picture.GetBufferDWord()[i] = i * 2654435761U | 0x80000000;
        }
        CKVTargaImage().SaveImage(m_File.c_str(), &m_Picture, 0);
    }
    Square(const Square&) = delete;
    Square& operator=(const Square&) = delete;
    ~Square() { std::filesystem::remove(m_File); }

    const CKVFrameBuffer& Picture() const { return m_Picture; }
    const char* File() const { return m_File.c_str(); }

  private:
    CKVFrameBuffer m_Picture;
    std::string m_File =
        (std::filesystem::temp_directory_path() / "kvdraw_texture_bench.tga").string();
};

void FillLikeText(CKVGrayBitmap& gray) {
    gray.Create(kWidth, kHeight);
    for (DWORD i = 0; i < gray.Size; ++i) {
        const DWORD phase = i % 50;
        gray.Bits[i] = static_cast<BYTE>(phase < 4 ? 60 * phase + 30 : phase < 12 ? 255 : 0);
    }
}

void Texture(benchmark::State& state) {
    const Square square(state.range(1));
    CKVGrayBitmap gray;
    FillLikeText(gray);
    const tagTEXTUREINFO text{static_cast<LONG>(state.range(0)), square.File()};
    CKVFrameBuffer layer;
    for (auto _ : state) {
        CKVBwDraw().MakeFb_Text(&gray, &layer, &text);
        benchmark::DoNotOptimize(layer.GetBufferDWord());
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void TiledPlain(benchmark::State& state) {
    const Square square(state.range(0));
    const LONG side = square.Picture().m_Width;
    CKVGrayBitmap gray;
    FillLikeText(gray);
    CKVFrameBuffer layer;
    for (auto _ : state) {
        layer.DeleteFrameBuffer();
        layer.CreateFrameBuffer(kWidth, kHeight, 1);
        for (LONG y = 0; y < kHeight; y += side) {
            for (LONG x = 0; x < kWidth; x += side) {
                layer.FbCopy(&square.Picture(), 0, 0, side, side, x, y, 0, nullptr);
            }
        }
        DWORD* pixel = layer.GetBufferDWord();
        for (DWORD i = 0; i < gray.Size; ++i, ++pixel) {
            const DWORD g = gray.Bits[i];
            *pixel = g == 0 ? 0 : (*pixel >> 24) * g / 255 << 24 | (*pixel & 0xFFFFFF);
        }
        benchmark::DoNotOptimize(layer.GetBufferDWord());
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void ReadFile(benchmark::State& state) {
    const Square square(state.range(0));
    CImgFile image;
    for (auto _ : state) {
        image.LoadImg(square.File());
        benchmark::DoNotOptimize(image.GetImgBufPointer());
    }
    state.SetBytesProcessed(state.iterations() * image.GetImgByte());
}

void ScaleAlone(benchmark::State& state) {
    const Square square(state.range(0));
    CKVFrameBuffer layer;
    for (auto _ : state) {
        square.Picture().SizeChange(&layer, kWidth, kHeight);
        benchmark::DoNotOptimize(layer.GetBufferDWord());
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

// Mode 0 centred, 1 tiled, 2 scaled; the side of the picture.
BENCHMARK(Texture)->ArgsProduct({{0, 2}, {256}})->Unit(benchmark::kMicrosecond);
BENCHMARK(Texture)->ArgsProduct({{1}, {1, 8, 256}})->Unit(benchmark::kMicrosecond);
BENCHMARK(TiledPlain)->Arg(1)->Arg(8)->Arg(256)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadFile)->Arg(256)->Unit(benchmark::kMicrosecond);
BENCHMARK(ScaleAlone)->Arg(256)->Unit(benchmark::kMicrosecond);

}  // namespace
