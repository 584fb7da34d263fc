// The soft edge: a distance transform and a function of the distance.

#include <algorithm>
#include <cstring>

#include "base/scratch.h"
#include "base/vector.h"
#include "effect/coverage/edge.h"
#include "effect/coverage/grown.h"
#include "effect/coverage/soft_rows.h"
#include "effect/coverage/yield.h"

// The value at a target pixel depends only on the distance to the nearest source pixel that is not
// 0, so the edge is an exact Euclidean distance transform and a function of the distance: vertical
// distances by two sweeps over the source, then the rows.

namespace {

// The distance to the nearest source pixel, one row further on; source is that row's pixels.
template <typename Distance>
KV_FORCE_INLINE void StepOntoBody(const BYTE* source, const Distance* before, Distance* distance,
                                  std::size_t width, Distance limit) {
    for (std::size_t x = 0; x < width; ++x) {
        const auto next = static_cast<Distance>(before[x] + 1);
        const Distance kept = next < limit ? next : limit;
        distance[x] = source[x] != 0 ? Distance{0} : kept;
    }
}

// The lesser of two distances, the second taken from `away` rows further off.
template <typename Distance>
KV_FORCE_INLINE void NearerBody(const Distance* above, const Distance* below, Distance away,
                                Distance* nearer, std::size_t width) {
    for (std::size_t x = 0; x < width; ++x) {
        const auto other = static_cast<Distance>(below[x] + away);
        nearer[x] = above[x] < other ? above[x] : other;
    }
}

template <typename Distance>
void StepOntoPlain(const BYTE* source, const Distance* before, Distance* distance,
                   std::size_t width, Distance limit) {
    StepOntoBody(source, before, distance, width, limit);
}

template <typename Distance>
KV_TARGET_AVX2 void StepOntoAvx2(const BYTE* source, const Distance* before, Distance* distance,
                                 std::size_t width, Distance limit) {
    StepOntoBody(source, before, distance, width, limit);
}

template <typename Distance>
void NearerPlain(const Distance* above, const Distance* below, Distance away, Distance* nearer,
                 std::size_t width) {
    NearerBody(above, below, away, nearer, width);
}

template <typename Distance>
KV_TARGET_AVX2 void NearerAvx2(const Distance* above, const Distance* below, Distance away,
                               Distance* nearer, std::size_t width) {
    NearerBody(above, below, away, nearer, width);
}

// Radius at least 1; target has room.
template <typename Rows>
kv::Outcome AddBy(int size, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    using Distance = typename Rows::Distance;
    const auto width = static_cast<std::size_t>(source.Width);
    const auto height = static_cast<std::size_t>(source.Height);
    const auto radius = static_cast<std::size_t>(size);
    const auto limit = static_cast<Distance>(size);

    Rows rows;
    // Distances to the next source pixel at or below each source row, one more row for what lies
    // beneath, then the same upwards for the row in hand, then the nearer of the two.
    const auto memory = kv::Scratch<Distance>(width * (height + 3));
    if (memory == nullptr || !rows.Prepare(size, width)) {
        return kv::Cause::kNoMemory;
    }
    Distance* const below = memory.get();
    Distance* const none = below + width * height;
    Distance* const above = none + width;
    Distance* const nearer = above + width;
    std::fill_n(none, 2 * width, limit);

    auto* const stepOnto = kv::ForLevel(StepOntoPlain<Distance>, StepOntoAvx2<Distance>);
    auto* const keepNearer = kv::ForLevel(NearerPlain<Distance>, NearerAvx2<Distance>);
    for (std::size_t row = height; row-- > 0;) {
        stepOnto(source.Bits + row * source.Pitch, below + (row + 1) * width, below + row * width,
                 width, limit);
        kv::GiveWay();
    }
    for (std::size_t y = 0; y < height + 2 * radius; ++y) {
        BYTE* const out = target.Bits + y * target.Pitch;
        if (y < radius) {
            keepNearer(none, below, static_cast<Distance>(radius - y), nearer, width);
        } else if (y < radius + height) {
            const std::size_t row = y - radius;
            stepOnto(source.Bits + row * source.Pitch, above, above, width, limit);
            keepNearer(above, below + row * width, 0, nearer, width);
        } else {
            const std::size_t away = y - (radius + height) + 1;
            keepNearer(none, above, static_cast<Distance>(away), nearer, width);
        }
        rows.Add(nearer, out);
    }
    return {};
}

}  // namespace

kv::Outcome kv::GrowSoft(LONG radius, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (radius < 0 || radius > FarSoftRows::kMaxRadius ||
        !HasRoom(target, source, std::int64_t{2} * radius)) {
        return Cause::kBadArgument;
    }
    if (radius == 0) {
        return {};  // a disc without a positive weight
    }
    return radius <= NearSoftRows::kMaxRadius ? AddBy<NearSoftRows>(radius, source, target)
                                              : AddBy<FarSoftRows>(radius, source, target);
}
