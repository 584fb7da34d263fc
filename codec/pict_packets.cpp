// Which packet a PICT row goes on with, decided for the whole row at once.

#include "codec/pict_packets.h"

#include "base/vector.h"

namespace kv::pict {
namespace {

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
#if KV_HAS_SSE2
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < 64; i += 16) {
        const __m128i here = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i));
        const __m128i next = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes + i + 1));
        const int equal = _mm_movemask_epi8(_mm_cmpeq_epi8(here, next));
        bits |= std::uint64_t{static_cast<std::uint32_t>(equal)} << i;
    }
    return bits;
#else
    return EqualBits(bytes, 64);
#endif
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

// The first start of a long repeat from a place on, or the row's size.
std::size_t RowPackets::FindLongRepeat(std::size_t at) const {
    const std::size_t words = m_Size / kWordBits;
    std::size_t word = at / kWordBits;
    std::uint64_t bits = m_LongRepeat[word] >> at % kWordBits << at % kWordBits;
    while (bits == 0 && word < words) {
        bits = m_LongRepeat[++word];
    }
    return bits == 0 ? m_Size : word * kWordBits + FirstBit(bits);
}

}  // namespace kv::pict
