#include "codec/pict_packets.h"

#include <algorithm>
#include <bit>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace kv::pict {
namespace {

constexpr std::size_t kMostBytes = 127;
constexpr std::size_t kWordBits = 64;

// Words of zeros behind a row's last, so that two windows of 64 bits lie within.
constexpr std::size_t kSpareWords = 4;

// Bit i is set where bytes i and i + 1 are equal.
std::uint64_t EqualBits(const BYTE* bytes, std::size_t count) {
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < count; ++i) {
        bits |= std::uint64_t{bytes[i] == bytes[i + 1]} << i;
    }
    return bits;
}

std::uint64_t EqualBits64(const BYTE* bytes) {
#if defined(__SSE2__)
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < kWordBits; i += 16) {
        const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i + 1));
        const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(here, next));
        bits |= std::uint64_t{static_cast<std::uint32_t>(equal)} << i;
    }
    return bits;
#else
    return EqualBits(bytes, kWordBits);
#endif
}

// The word moved down by so many bits, filled up from the next one.
std::uint64_t Down(std::uint64_t word, std::uint64_t next, unsigned int bits) {
    return word >> bits | next << 1 << (kWordBits - 1 - bits);
}

// The number of zeros before the first set bit of two words.
std::size_t LeadingZeros(std::uint64_t first, std::uint64_t second) {
    const int zeros =
        first != 0 ? std::countr_zero(first) : int{kWordBits} + std::countr_zero(second);
    return static_cast<std::size_t>(zeros);
}

}  // namespace

RowPackets::RowPackets(std::size_t size)
    : m_Equal(size / kWordBits + kSpareWords),
      m_LongRepeat(m_Equal.size()),
      m_EqualsBefore(m_Equal.size()) {}

void RowPackets::SetRow(const BYTE* row, std::size_t size) {
    const std::size_t words = size / kWordBits;
    for (std::size_t i = 0; i < words; ++i) {
        m_Equal[i] = EqualBits64(row + i * kWordBits);
    }
    m_Equal[words] = EqualBits(row + words * kWordBits, size % kWordBits);
    std::fill_n(m_Equal.begin() + static_cast<std::ptrdiff_t>(words) + 1, kSpareWords - 1, 0);

    std::uint32_t equals = 0;
    for (std::size_t i = 0; i <= words; ++i) {
        m_EqualsBefore[i] = equals;
        equals += static_cast<std::uint32_t>(std::popcount(m_Equal[i]));
        const std::uint64_t next = m_Equal[i + 1];
        const std::uint64_t twice = m_Equal[i] & Down(m_Equal[i], next, 1);
        m_LongRepeat[i] = twice & Down(twice, next & next >> 1, 2);
    }
    m_Size = size;
    m_NextLongRepeat = 0;
}

// 64 bits from a place on.
std::uint64_t RowPackets::EqualsFrom(std::size_t at) const {
    const std::size_t word = at / kWordBits;
    return Down(m_Equal[word], m_Equal[word + 1], at % kWordBits);
}

std::size_t RowPackets::EqualsBefore(std::size_t at) const {
    const std::size_t word = at / kWordBits;
    const std::uint64_t below = (std::uint64_t{1} << at % kWordBits) - 1;
    return m_EqualsBefore[word] + static_cast<std::size_t>(std::popcount(m_Equal[word] & below));
}

// The first start of a long repeat from a place on, or the row's size. The places ascend, so that
// no word is searched twice.
std::size_t RowPackets::NextLongRepeat(std::size_t at) {
    if (m_NextLongRepeat >= at) {
        return m_NextLongRepeat;
    }
    const std::size_t words = m_Size / kWordBits;
    std::size_t word = at / kWordBits;
    std::uint64_t bits = m_LongRepeat[word] >> at % kWordBits << at % kWordBits;
    while (bits == 0 && word < words) {
        bits = m_LongRepeat[++word];
    }
    m_NextLongRepeat =
        bits == 0 ? m_Size : word * kWordBits + static_cast<std::size_t>(std::countr_zero(bits));
    return m_NextLongRepeat;
}

// A literal ends before the first repeat. If a long repeat lies ahead, it grows by the shorter ones
// on the way there, unless that makes it too long.
std::size_t RowPackets::LiteralCount(std::size_t start) {
    const std::size_t most = std::min(m_Size - start, kMostBytes);
    const std::size_t single = LeadingZeros(EqualsFrom(start), EqualsFrom(start + kWordBits));
    if (single >= most) {
        return most;
    }
    if (m_Size - start == 2) {
        return 2;
    }
    const std::size_t longRepeat = NextLongRepeat(start + single);
    if (longRepeat == m_Size) {
        return single;
    }
    const std::size_t extra = EqualsBefore(longRepeat) - EqualsBefore(start + single);
    return single + extra < kMostBytes ? single + extra : single;
}

Packet RowPackets::At(std::size_t start) {
    const std::uint64_t equals = EqualsFrom(start);
    if ((equals & 1) == 0) {
        return {LiteralCount(start), false};
    }
    const std::size_t repeats = LeadingZeros(~equals, ~EqualsFrom(start + kWordBits));
    return {std::min({repeats + 1, m_Size - start, kMostBytes}), true};
}

}  // namespace kv::pict
