// The hard edge: a dilation by a disc.

#include <algorithm>
#include <bit>
#include <cstring>

#include "base/scratch.h"
#include "base/vector.h"
#include "effect/coverage/disc.h"
#include "effect/coverage/edge.h"
#include "effect/coverage/grown.h"

namespace {

// The dilation goes down the picture in stripes one cache line wide. A source row adds to the
// 2 * radius + 1 target rows below it, which are gathered in a ring of stripe rows and merged into
// the target once each. Row maxima of growing half width are kept in registers: each is the one
// before and two more shifted loads. So a row costs time linear in the radius.
constexpr std::size_t kStripe = 64;

struct StripeVector {
    kv::Bytes32 left;
    kv::Bytes32 right;
};

KV_FORCE_INLINE void LoadStripe(StripeVector& vector, const BYTE* from) {
    kv::Load(vector.left, from);
    kv::Load(vector.right, from + kStripe / 2);
}

KV_FORCE_INLINE void StoreStripe(BYTE* to, const StripeVector& vector) {
    kv::Store(to, vector.left);
    kv::Store(to + kStripe / 2, vector.right);
}

KV_FORCE_INLINE void KeepMaxStripe(StripeVector& kept, const BYTE* other) {
    StripeVector vector;
    LoadStripe(vector, other);
    kv::KeepMax(kept.left, vector.left);
    kv::KeepMax(kept.right, vector.right);
}

struct Dilation {
    const CKVGrayBitmap* source;
    CKVGrayBitmap* target;
    std::size_t radius;
    const LONG* halfWidths;  // of the disc's rows 0 to radius
    BYTE* ring;              // ringMask + 1 stripe rows, all 0 between stripes
    std::size_t ringMask;
    BYTE* window;  // kStripe + 2 * radius bytes

    std::size_t WindowSize() const { return kStripe + 2 * radius; }
    BYTE* RingRow(std::size_t row) const { return ring + (row & ringMask) * kStripe; }
};

// The source bytes that reach the stripe at target column x: from 2 * radius columns left of it,
// with zeros outside the picture. Only stripes near the sides need a copy.
KV_FORCE_INLINE const BYTE* Window(const Dilation& job, std::size_t x, std::size_t row) {
    const BYTE* const line = job.source->Bits + row * job.source->Pitch;
    const auto width = static_cast<std::size_t>(job.source->Width);
    const std::size_t reach = 2 * job.radius;
    if (x >= reach && x + kStripe <= width) {
        return line + (x - reach);
    }
    const std::size_t begin = x > reach ? x - reach : 0;
    const std::size_t lead = begin + reach - x;
    const std::size_t end = std::min(x + kStripe, width);
    std::memset(job.window, 0, job.WindowSize());
    if (begin < end) {
        std::memcpy(job.window + lead, line + begin, end - begin);
    }
    return job.window;
}

KV_FORCE_INLINE bool AnyByte(const BYTE* bytes, std::size_t size) {
    kv::Bytes32 all;
    kv::Load(all, bytes + size - sizeof(all));
    for (std::size_t at = 0; at + sizeof(all) < size; at += sizeof(all)) {
        kv::Bytes32 part;
        kv::Load(part, bytes + at);
        all |= part;
    }
    return kv::AnyBit(all);
}

// Adds the discs of one source row to the ring.
KV_FORCE_INLINE void SpreadRow(const Dilation& job, const BYTE* window, std::size_t row) {
    const BYTE* const centre = window + job.radius;
    StripeVector maximum;
    LoadStripe(maximum, centre);
    std::size_t reached = 0;
    for (std::size_t disc = 0; disc <= job.radius; ++disc) {
        const auto half = static_cast<std::size_t>(job.halfWidths[disc]);
        for (; reached < half; ++reached) {
            KeepMaxStripe(maximum, centre - reached - 1);
            KeepMaxStripe(maximum, centre + reached + 1);
        }
        for (const std::size_t below : {disc, 2 * job.radius - disc}) {
            BYTE* const kept = job.RingRow(row + below);
            StripeVector sum = maximum;
            KeepMaxStripe(sum, kept);
            StoreStripe(kept, sum);
        }
    }
}

// Moves a finished ring row into the target and leaves it empty.
KV_FORCE_INLINE void MergeRow(const Dilation& job, std::size_t x, std::size_t row,
                              std::size_t columns) {
    BYTE* const kept = job.RingRow(row);
    StripeVector vector;
    LoadStripe(vector, kept);
    const kv::Bytes32 any = vector.left | vector.right;
    if (!kv::AnyBit(any)) {
        return;
    }
    BYTE* const out = job.target->Bits + row * job.target->Pitch + x;
    if (columns == kStripe) {
        KeepMaxStripe(vector, out);
        StoreStripe(out, vector);
    } else {
        for (std::size_t i = 0; i < columns; ++i) {
            out[i] = std::max(out[i], kept[i]);
        }
    }
    std::memset(kept, 0, kStripe);
}

KV_FORCE_INLINE void DilateBody(const Dilation& job) {
    const auto sourceRows = static_cast<std::size_t>(job.source->Height);
    const std::size_t width = static_cast<std::size_t>(job.source->Width) + 2 * job.radius;
    for (std::size_t x = 0; x < width; x += kStripe) {
        const std::size_t columns = std::min(kStripe, width - x);
        for (std::size_t row = 0; row < sourceRows + 2 * job.radius; ++row) {
            if (row < sourceRows) {
                const BYTE* const window = Window(job, x, row);
                if (AnyByte(window, job.WindowSize())) {
                    SpreadRow(job, window, row);
                }
            }
            MergeRow(job, x, row, columns);
        }
    }
}

void DilatePlain(const Dilation& job) {
    DilateBody(job);
}

KV_TARGET_AVX2 void DilateAvx2(const Dilation& job) {
    DilateBody(job);
}

}  // namespace

kv::Outcome kv::GrowHard(LONG radius, const CKVGrayBitmap& source, CKVGrayBitmap& target) {
    if (radius < 0 || !HasRoom(target, source, std::int64_t{2} * radius)) {
        return Cause::kBadArgument;
    }
    const auto reach = static_cast<std::size_t>(radius);
    const std::size_t ringRows = std::bit_ceil(2 * reach + 1);
    const auto halfWidths = Scratch<LONG>(reach + 1);
    const auto ring = Scratch<BYTE>(ringRows * kStripe);
    const auto window = Scratch<BYTE>(kStripe + 2 * reach);
    if (halfWidths == nullptr || ring == nullptr || window == nullptr) {
        return Cause::kNoMemory;
    }
    DiscHalfWidths(radius, halfWidths.get());
    ForLevel(DilatePlain, DilateAvx2)({.source = &source,
                                       .target = &target,
                                       .radius = reach,
                                       .halfWidths = halfWidths.get(),
                                       .ring = ring.get(),
                                       .ringMask = ringRows - 1,
                                       .window = window.get()});
    return {};
}
