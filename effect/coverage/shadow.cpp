// Shadows: a row for each type, and the smearing that extrusions are made by.

#include "effect/coverage/shadow.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

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

std::int64_t NoGrowth(const kv::Shadow& /*shadow*/) {
    return 0;
}

std::int64_t Distance(const kv::Shadow& shadow) {
    return shadow.distance;
}

// Target is of the source's size; the pad bytes come over too.
kv::Outcome CopyRows(const kv::Shadow& /*shadow*/, const CKVGrayBitmap& source,
                     CKVGrayBitmap& target) {
    for (std::size_t row = 0; row < static_cast<std::size_t>(source.Height); ++row) {
        std::memcpy(target.Bits + row * target.Pitch, source.Bits + row * source.Pitch,
                    source.Pitch);
        kv::GiveWay();
    }
    return {};
}

std::int64_t Length(const kv::Shadow& shadow) {
    return std::abs(std::int64_t{shadow.distance});
}

// An extrusion to the lower right starts at what casts it. One to the upper left is moved by its
// whole length, so that it ends there.
std::int64_t ExtrusionOffset(const kv::Shadow& shadow) {
    return std::min<std::int64_t>(shadow.distance, 0);
}

kv::Outcome MakeExtrusion(const kv::Shadow& shadow, const CKVGrayBitmap& source,
                          CKVGrayBitmap& target) {
    if (shadow.distance != 0) {
        MakeSmeared(source, static_cast<std::size_t>(Length(shadow)), target);
    }
    return {};
}

std::int64_t BothRadii(const kv::Shadow& shadow) {
    return std::int64_t{2} * shadow.softRadius;
}

kv::Outcome MakeSoft(const kv::Shadow& shadow, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    return kv::GrowSoft(shadow.softRadius, source, target);
}

// By type. The radius of a soft shadow has no part in where it lies.
constexpr kv::ShadowForm kForms[] = {
    {.growth = NoGrowth, .offset = Distance, .make = CopyRows},
    {.growth = Length, .offset = ExtrusionOffset, .make = MakeExtrusion},
    {.growth = BothRadii, .offset = Distance, .make = MakeSoft},
};

}  // namespace

const kv::ShadowForm& kv::FormOf(const Shadow& shadow) {
    const bool known = shadow.type >= 0 && shadow.type < std::ssize(kForms);
    return kForms[known ? shadow.type : kFlatShadow];
}

kv::Outcome kv::CastShadow(const Shadow& shadow, const CKVGrayBitmap& source,
                           CKVGrayBitmap& target) {
    if (source.Bits == nullptr) {
        return Cause::kNothingToDraw;
    }
    const ShadowForm& form = FormOf(shadow);
    const std::int64_t growth = form.growth(shadow);
    if (growth < 0) {
        return Cause::kBadArgument;
    }
    if (const Outcome created = CreateGrown(target, source, growth); !created) {
        return created;
    }
    return form.make(shadow, source, target);
}

kv::Outcome kv::Extrude(LONG steps, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (steps < 1) {
        return {};
    }
    if (!HasRoom(target, source, std::int64_t{steps} - 1)) {
        return Cause::kBadArgument;
    }
    if (source.Bits == nullptr) {
        return {};
    }
    // What the target holds already is not to be smeared.
    CKVGrayBitmap smeared;
    if (const Outcome created = CreateGrown(smeared, source, steps); !created) {
        return created;
    }
    const auto count = static_cast<std::size_t>(steps);
    MakeSmeared(source, count, smeared);
    const std::size_t width = static_cast<std::size_t>(source.Width) + count - 1;
    const std::size_t height = static_cast<std::size_t>(source.Height) + count - 1;
    auto* const keepMax = KeepMaxRow();
    for (std::size_t row = 0; row < height; ++row) {
        keepMax(target.Bits + row * target.Pitch, smeared.Bits + row * smeared.Pitch, width);
    }
    return {};
}
