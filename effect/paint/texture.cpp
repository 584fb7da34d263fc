// The paint of a picture from a file: in the middle, tiled or scaled.

#include <algorithm>
#include <cstring>
#include <span>

#include "effect/paint/cover_row.h"
#include "effect/paint/paint.h"
#include "effect/paint/texture_picture.h"

namespace {

constexpr DWORD kBlack = 0xFF000000;

using Pixels = std::span<DWORD>;
using ConstPixels = std::span<const DWORD>;

Pixels RowOf(CKVFrameBuffer& fb, LONG y) {
    const std::size_t width = fb.GetWidth();
    return {fb.GetBufferDWord() + static_cast<std::size_t>(y) * width, width};
}

// Row y of a layer that has the picture in its middle. What does not fit is cut on all sides.
void CentreRow(CKVFrameBuffer& picture, LONG height, LONG y, Pixels row) {
    const auto width = static_cast<LONG>(row.size());
    const LONG left = width / 2 - picture.m_Width / 2;
    const LONG top = height / 2 - picture.m_Height / 2;
    if (y < top || y - top >= picture.m_Height) {
        std::ranges::fill(row, kBlack);
        return;
    }
    const auto cut = static_cast<std::size_t>(std::max(-left, 0));
    const auto start = static_cast<std::size_t>(std::max(left, 0));
    ConstPixels shown = RowOf(picture, y - top).subspan(cut);
    shown = shown.first(std::min(shown.size(), row.size() - start));
    std::ranges::fill(row.first(start), kBlack);
    std::ranges::copy(shown, row.subspan(start).begin());
    std::ranges::fill(row.subspan(start + shown.size()), kBlack);
}

// Repeats the pixels over the row. What stands is doubled: tiles may be a pixel wide.
void RepeatRow(ConstPixels tile, Pixels row) {
    std::size_t done = std::min(tile.size(), row.size());
    std::ranges::copy(tile.first(done), row.begin());
    while (done < row.size()) {
        const std::size_t step = std::min(done, row.size() - done);
        std::ranges::copy(row.first(step), row.subspan(done).begin());
        done += step;
    }
}

// Calls paintRow(row, y) for each row of the layer and applies the coverage to it.
template <typename PaintRow>
void PaintRows(const CKVGrayBitmap& gray, CKVFrameBuffer& layer, const PaintRow& paintRow) {
    for (LONG y = 0; y < layer.m_Height; ++y) {
        const Pixels row = RowOf(layer, y);
        paintRow(row, y);
        kv::CoverRow(gray.Bits + static_cast<std::size_t>(y) * gray.Pitch, row.data(), row.size());
    }
}

kv::Outcome PaintScaled(const CKVGrayBitmap& gray, CKVFrameBuffer& layer,
                        const CKVFrameBuffer& picture) {
    if (gray.Bits == nullptr) {
        layer.DeleteFrameBuffer();
        return kv::Outcome::DoneDespite(kv::Cause::kNothingToDraw);
    }
    if (picture.SizeChange(&layer, gray.Width, gray.Height) != 0) {
        return kv::Cause::kNoMemory;
    }
    PaintRows(gray, layer, [](Pixels, LONG) {});
    return {};
}

kv::Outcome PaintByRows(const CKVGrayBitmap& gray, CKVFrameBuffer& layer, CKVFrameBuffer& picture,
                        LONG mode) {
    const kv::Outcome made = kv::MakeLayerSurface(gray, layer);
    PaintRows(gray, layer, [&](Pixels row, LONG y) {
        switch (mode) {
            case kv::kCentredTexture:
                CentreRow(picture, layer.m_Height, y, row);
                break;
            case kv::kTiledTexture:
                RepeatRow(RowOf(picture, y % picture.m_Height), row);
                break;
            default:
                std::ranges::fill(row, 0U);
                break;
        }
    });
    return made;
}

}  // namespace

kv::Outcome kv::PaintWith(const tagTEXTUREINFO& texture, const CKVGrayBitmap& gray,
                          CKVFrameBuffer& fb) {
    CKVFrameBuffer picture;
    if (const Outcome loaded = LoadTexture(texture.File, picture); !loaded) {
        const Outcome painted = PaintWith(kBlack, gray, fb);
        return painted ? Outcome::DoneDespite(loaded.Why()) : painted;
    }
    return texture.Mode == kScaledTexture ? PaintScaled(gray, fb, picture)
                                          : PaintByRows(gray, fb, picture, texture.Mode);
}
