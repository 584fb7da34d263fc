// Rows of a soft edge by looking at the columns around each pixel.

#include <algorithm>
#include <cstring>

#include "base/scratch.h"
#include "base/vector.h"
#include "effect/coverage/soft_rows.h"

namespace kv {
namespace {

// Target columns at once: two vectors, as many as one has bytes.
template <typename Shorts>
constexpr std::size_t kBlock = sizeof(Shorts);
constexpr std::size_t kMaxBlock = kBlock<Shorts16>;

constexpr int kStride = 4;  // columns looked at between two tests for an early stop

// A block reads this far past the radius on both sides of its columns.
constexpr std::size_t Pad(int radius) {
    return 2 * static_cast<std::size_t>(radius) + kStride;
}

template <typename Shorts>
KV_FORCE_INLINE void KeepNearer(Shorts& nearest, const std::int16_t* squares, std::int16_t along) {
    Shorts square;
    Load(square, squares);
    square += along;
    KeepMin(nearest, square);
}

// The least square over the columns, for the two vectors at centre. Columns further out than the
// worst of them cannot help any more.
template <typename Shorts>
KV_FORCE_INLINE void Nearest(const std::int16_t* centre, int radius, Shorts& left, Shorts& right) {
    constexpr std::size_t kHalf = kBlock<Shorts> / 2;
    Load(left, centre);
    Load(right, centre + kHalf);
    for (int column = 1; column < radius;) {
        const auto least = static_cast<std::int16_t>(column * column);
        const Shorts limit = Shorts{} + least;
        Shorts worst = left;
        KeepMax(worst, right);
        KeepMax(worst, limit);
        if (Equal(worst, limit)) {
            return;
        }
        for (int step = 0; step < kStride; ++step, ++column) {
            const auto along = static_cast<std::int16_t>(column * column);
            KeepNearer(left, centre - column, along);
            KeepNearer(left, centre + column, along);
            KeepNearer(right, centre + kHalf - column, along);
            KeepNearer(right, centre + kHalf + column, along);
        }
    }
}

struct Row {
    const std::int16_t* squares;  // for target column 0
    const BYTE* values;
    int radius;
    std::int16_t outside;  // the radius's square: not reached
    std::size_t begin;     // target columns that can be reached
    std::size_t end;
};

template <typename Shorts>
KV_FORCE_INLINE void StoreValues(const Shorts& left, const Shorts& right, const Row& row,
                                 BYTE* target, std::size_t count) {
    const Shorts apart = left | right;
    if (!AnyBit(apart)) {
        std::memset(target, 255, count);
        return;
    }
    Shorts best = left;
    KeepMin(best, right);
    if (Equal(best, Shorts{} + row.outside)) {
        return;
    }
    constexpr std::size_t kColumns = kBlock<Shorts>;
    std::int16_t squares[kColumns];
    Store(squares, left);
    Store(squares + kColumns / 2, right);
    BYTE values[kColumns];
    for (std::size_t i = 0; i < kColumns; ++i) {
        values[i] = row.values[squares[i]];
    }
    for (std::size_t i = 0; i < count; ++i) {
        target[i] = std::max(target[i], values[i]);
    }
}

template <typename Shorts>
KV_FORCE_INLINE void AddBody(const Row& row, BYTE* target) {
    constexpr std::size_t kColumns = kBlock<Shorts>;
    std::size_t x = row.begin;
    for (; x + kColumns <= row.end; x += kColumns) {
        Shorts left, right;
        Nearest(row.squares + x, row.radius, left, right);
        StoreValues(left, right, row, target + x, kColumns);
    }
    if (x < row.end) {
        Shorts left, right;
        Nearest(row.squares + x, row.radius, left, right);
        StoreValues(left, right, row, target + x, row.end - x);
    }
}

void AddPlain(const Row& row, BYTE* target) {
    AddBody<Shorts8>(row, target);
}

KV_TARGET_AVX2 void AddAvx2(const Row& row, BYTE* target) {
    AddBody<Shorts16>(row, target);
}

// The columns before the first one that is nearer than the radius.
std::size_t LeadingFar(const BYTE* vertical, std::size_t width, int radius) {
    std::size_t x = 0;
    for (; x + sizeof(Bytes32) <= width; x += sizeof(Bytes32)) {
        Bytes32 distances;
        Load(distances, vertical + x);
        if (!Equal(distances, Bytes32{} + static_cast<BYTE>(radius))) {
            break;
        }
    }
    while (x < width && vertical[x] == radius) {
        ++x;
    }
    return x;
}

}  // namespace

bool NearSoftRows::Prepare(int radius, std::size_t width) {
    m_Radius = radius;
    m_Width = width;
    const int outside = radius * radius;
    const std::size_t padded = width + 2 * Pad(radius) + kMaxBlock;
    m_Values = Scratch<BYTE>(static_cast<std::size_t>(outside) + 1);
    m_Squares = Scratch<std::int16_t>(padded);
    if (m_Values == nullptr || m_Squares == nullptr) {
        return false;
    }
    for (int square = 0; square < outside; ++square) {
        m_Values[static_cast<std::size_t>(square)] = SoftValue(square, radius);
    }
    std::fill_n(m_Squares.get(), padded, static_cast<std::int16_t>(outside));
    return true;
}

void NearSoftRows::Add(const Distance* vertical, BYTE* target) {
    const std::size_t first = LeadingFar(vertical, m_Width, m_Radius);
    if (first == m_Width) {
        return;
    }
    std::size_t last = m_Width;
    while (vertical[last - 1] == m_Radius) {
        --last;
    }
    std::int16_t* const squares = m_Squares.get() + Pad(m_Radius);
    for (std::size_t x = 0; x < m_Width; ++x) {
        squares[x] = static_cast<std::int16_t>(vertical[x] * vertical[x]);
    }
    const auto reach = static_cast<std::size_t>(m_Radius);
    const Row row{squares - reach, m_Values.get(),
                  m_Radius,        static_cast<std::int16_t>(m_Radius * m_Radius),
                  first,           last + 2 * reach};
    ForLevel(AddPlain, AddAvx2)(row, target);
}

}  // namespace kv
