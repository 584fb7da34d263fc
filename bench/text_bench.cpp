// What a text layout asks of the fonts: making a font, measuring, drawing a line of 20 characters.
// Beside them stand the peers: filling the same bits, and FreeType's own one-bit rasteriser.
#include <cstring>
#include <vector>

#include <KVUtf8.h>
#include <benchmark/benchmark.h>
#include <platform/dc.h>

#include "platform/font/font_catalogue.h"
#include "platform/font/free_type.h"

#include FT_OUTLINE_H

namespace {

constexpr LONG kCell = 768;
const char* const kText = "春は曙やうやう白くなりゆく山際少し明かりて";

LOGFONTA Describe(const char* face, LONG height, LONG escapement) {
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfEscapement = escapement;
    const CString name = KVFromUtf8(face);
    std::memcpy(description.lfFaceName, static_cast<const char*>(name),
                static_cast<std::size_t>(name.GetLength()) + 1);
    return description;
}

struct Line {
    CDC dc;
    CBitmap bitmap;
    CString text = KVFromUtf8(kText);
    tagSIZE extent{};

    Line(const char* face, LONG escapement) {
        CFont font;
        font.CreateFontIndirectA(Describe(face, kCell, escapement));
        dc.SelectObject(font);
        dc.SetTextColor(0xFFFFFF);
        dc.SetBkColor(0);
        dc.GetTextExtentPoint32A(text, text.GetLength(), &extent);
        const bool down = escapement != 0;
        bitmap.CreateBitmap(down ? extent.cy : extent.cx, down ? extent.cx : extent.cy, 1, 1,
                            nullptr);
        dc.SelectObject(bitmap);
    }
};

void CreateFontAndMeasure(benchmark::State& state) {
    const LOGFONTA description = Describe("ＭＳ ゴシック", kCell, 0);
    const CString text = KVFromUtf8(kText);
    CDC dc;
    for (auto _ : state) {
        CFont font;
        font.CreateFontIndirectA(description);
        dc.SelectObject(font);
        tagSIZE extent{};
        dc.GetTextExtentPoint32A(text, text.GetLength(), &extent);
        benchmark::DoNotOptimize(extent);
    }
}
BENCHMARK(CreateFontAndMeasure)->Unit(benchmark::kMicrosecond);

void DrawLine(benchmark::State& state, const char* face, LONG escapement) {
    Line line(face, escapement);
    const LONG x = escapement != 0 ? line.extent.cy : 0;
    for (auto _ : state) {
        line.dc.TextOutA(x, 0, line.text, line.text.GetLength());
    }
}
BENCHMARK_CAPTURE(DrawLine, gothic, "ＭＳ ゴシック", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawLine, mincho, "ＭＳ 明朝", 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(DrawLine, gothic_downwards, "@ＭＳ ゴシック", -900)
    ->Unit(benchmark::kMillisecond);

void FillSameBits(benchmark::State& state) {
    const Line line("ＭＳ ゴシック", 0);
    std::vector<char> bits(static_cast<std::size_t>((line.extent.cx + 15) / 16 * 2) *
                           static_cast<std::size_t>(line.extent.cy));
    for (auto _ : state) {
        std::memset(bits.data(), 0, bits.size());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(FillSameBits)->Unit(benchmark::kMillisecond);

// The same glyphs at the same size, each into a cleared bitmap of its own.
void FreeTypeMonochrome(benchmark::State& state) {
    const auto found = kv::font::FontCatalogue::Get().Find("MS Gothic");
    if (!found) {
        state.SkipWithError("no font");
        return;
    }
    const kv::font::FaceRecord& record = found->family->faces.front();
    const kv::font::FreeTypeLibrary library = kv::font::OpenFreeType();
    const kv::font::FreeTypeFace face =
        kv::font::OpenFace(library.get(), record.file, record.index);
    const double em = kCell * double(record.metrics.unitsPerEm) /
                      (record.metrics.ascent + record.metrics.descent);
    FT_Set_Char_Size(face.get(), FT_F26Dot6(em * 64), 0, 72, 72);
    for (auto _ : state) {
        for (const wchar_t scalar : L"春は曙やうやう白くなりゆく山際少し明かりて") {
            FT_Load_Char(face.get(), FT_ULong(scalar),
                         FT_LOAD_NO_HINTING | FT_LOAD_RENDER | FT_LOAD_TARGET_MONO);
            benchmark::DoNotOptimize(face->glyph->bitmap.buffer);
        }
    }
}
BENCHMARK(FreeTypeMonochrome)->Unit(benchmark::kMillisecond);

}  // namespace
