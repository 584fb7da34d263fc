#include "effect/coverage/shadow.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/vector.h"
#include "effect/coverage/edge.h"
#include "effect/coverage/grown.h"
#include "effect/coverage/yield.h"

namespace {

KV_FORCE_INLINE void KeepMaxBody(BYTE* kept, const BYTE* other, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        kept[i] = kept[i] < other[i] ? other[i] : kept[i];
    }
}

void KeepMaxPlain(BYTE* kept, const BYTE* other, std::size_t count) {
    KeepMaxBody(kept, other, count);
}

KV_TARGET_AVX2 void KeepMaxAvx2(BYTE* kept, const BYTE* other, std::size_t count) {
    KeepMaxBody(kept, other, count);
}

auto* KeepMaxRow() {
    return kv::ForLevel(KeepMaxPlain, KeepMaxAvx2);
}

// Extends what the first width columns and height rows hold along the down-right diagonal, over
// steps pixels in all (at least 1). Doubling: a coverage smeared over s steps, joined with itself
// moved by s, is smeared over 2 s. Going up the rows, each is still the old one when it is read.
void SmearDiagonally(CKVGrayBitmap& coverage, std::size_t width, std::size_t height,
                     std::size_t steps) {
    auto* const keepMax = KeepMaxRow();
    for (std::size_t done = 1; done < steps;) {
        const std::size_t shift = std::min(done, steps - done);
        const std::size_t columns = width + done - 1;
        for (std::size_t row = height + done - 1; row-- > 0;) {
            keepMax(coverage.Bits + (row + shift) * coverage.Pitch + shift,
                    coverage.Bits + row * coverage.Pitch, columns);
        }
        done += shift;
    }
}

// Copies the source's pixels, without its pad bytes, and smears them over the steps. Target must be
// fresh and have room.
void MakeSmeared(const CKVGrayBitmap& source, std::size_t steps, CKVGrayBitmap& target) {
    const auto width = static_cast<std::size_t>(source.Width);
    const auto height = static_cast<std::size_t>(source.Height);
    for (std::size_t row = 0; row < height; ++row) {
        std::memcpy(target.Bits + row * target.Pitch, source.Bits + row * source.Pitch, width);
    }
    SmearDiagonally(target, width, height, steps);
}

// Target is of the source's size; the pad bytes come over too.
void CopyGivingWay(const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    for (std::size_t row = 0; row < static_cast<std::size_t>(source.Height); ++row) {
        std::memcpy(target.Bits + row * target.Pitch, source.Bits + row * source.Pitch,
                    source.Pitch);
        kv::GiveWay();
    }
}

}  // namespace

std::int64_t kv::ShadowGrowth(LONG type, LONG size, LONG softSize) {
    switch (type) {
        case kExtrudedShadow:
            return std::abs(std::int64_t{size});
        case kSoftShadow:
            return std::int64_t{2} * softSize;
        default:
            return 0;
    }
}

bool kv::AddExtrusion(LONG steps, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (steps < 1) {
        return true;
    }
    if (!HasRoom(target, source, std::int64_t{steps} - 1)) {
        return false;
    }
    if (source.Bits == nullptr) {
        return true;
    }
    // What the target holds already is not to be smeared.
    CKVGrayBitmap smeared;
    if (!CreateGrown(smeared, Grown(source, steps))) {
        return false;
    }
    const auto count = static_cast<std::size_t>(steps);
    MakeSmeared(source, count, smeared);
    const std::size_t width = static_cast<std::size_t>(source.Width) + count - 1;
    const std::size_t height = static_cast<std::size_t>(source.Height) + count - 1;
    auto* const keepMax = KeepMaxRow();
    for (std::size_t row = 0; row < height; ++row) {
        keepMax(target.Bits + row * target.Pitch, smeared.Bits + row * smeared.Pitch, width);
    }
    return true;
}

bool kv::MakeShadow(LONG type, LONG size, LONG softSize, const CKVGrayBitmap& source,
                    CKVGrayBitmap& target) {
    const std::int64_t growth = ShadowGrowth(type, size, softSize);
    if (source.Bits == nullptr || growth < 0) {
        return false;
    }
    target.Delete();
    if (!CreateGrown(target, Grown(source, growth))) {
        return false;
    }
    if (type == kSoftShadow) {
        return AddSoftEdge(softSize, source, target);
    }
    if (type != kExtrudedShadow) {
        CopyGivingWay(source, target);
    } else if (growth > 0) {
        MakeSmeared(source, static_cast<std::size_t>(growth), target);
    }
    return true;
}
