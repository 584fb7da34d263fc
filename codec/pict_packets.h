#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

#include <platform/types.h>

namespace kv::pict {

inline constexpr std::size_t kMaxPacketBytes = 127;

struct Packet {
    std::size_t count;  ///< bytes of the row
    bool isRun;
};

/// Decides the packets of a row, each in constant time, from three arrays that are made in one
/// pass: a bit for each byte that equals the next one, a bit for each start of four such bytes on
/// end, and for each word of the former the number of bits set before it.
class RowPackets {
  public:
    /// For rows of up to size bytes.
    explicit RowPackets(std::size_t size);

    /// Takes a row of size bytes, and the byte behind it, with which its last one is compared.
    void SetRow(const BYTE* row, std::size_t size);

    /// The packet that starts there. A row's packets are asked from left to right.
    Packet At(std::size_t start) {
        const std::uint64_t equals = EqualsFrom(start);
        if ((equals & 1) == 0) {
            return {LiteralCount(start, equals), false};
        }
        const std::size_t repeats =
            ~equals != 0 ? FirstBit(~equals) : kWordBits + FirstBit(~EqualsFrom(start + kWordBits));
        return {std::min({repeats + 1, m_Size - start, kMaxPacketBytes}), true};
    }

  private:
    static constexpr std::size_t kWordBits = 64;

    static std::size_t FirstBit(std::uint64_t bits) {
        return static_cast<std::size_t>(std::countr_zero(bits));
    }

    // The word moved down by so many bits, filled up from the next one.
    static std::uint64_t Down(std::uint64_t word, std::uint64_t next, std::size_t bits) {
        return word >> bits | next << 1 << (kWordBits - 1 - bits);
    }

    // 64 bits from a place on.
    std::uint64_t EqualsFrom(std::size_t at) const {
        const std::size_t word = at / kWordBits;
        return Down(m_Equal[word], m_Equal[word + 1], at % kWordBits);
    }

    std::size_t EqualsBefore(std::size_t at) const {
        const std::size_t word = at / kWordBits;
        const std::uint64_t below = (std::uint64_t{1} << at % kWordBits) - 1;
        return m_EqualsBefore[word] +
               static_cast<std::size_t>(std::popcount(m_Equal[word] & below));
    }

    // A literal ends before the first repeat. If a long repeat lies ahead, it grows by the shorter
    // ones on the way there, unless that makes it too long.
    std::size_t LiteralCount(std::size_t start, std::uint64_t equals) {
        const std::size_t most = std::min(m_Size - start, kMaxPacketBytes);
        const std::size_t single =
            equals != 0 ? FirstBit(equals) : kWordBits + FirstBit(EqualsFrom(start + kWordBits));
        if (single >= most) {
            return most;
        }
        if (m_Size - start == 2) {
            return 2;
        }
        const std::size_t repeat = start + single;
        if (m_NextLongRepeat < repeat) {
            m_NextLongRepeat = FindLongRepeat(repeat);
        }
        if (m_NextLongRepeat == m_Size) {
            return single;
        }
        const std::size_t grown = single + EqualsBefore(m_NextLongRepeat) - EqualsBefore(repeat);
        return grown < kMaxPacketBytes ? grown : single;
    }

    std::size_t FindLongRepeat(std::size_t at) const;

    std::vector<std::uint64_t> m_Equal;
    std::vector<std::uint64_t> m_LongRepeat;
    std::vector<std::uint32_t> m_EqualsBefore;
    std::size_t m_Size = 0;
    std::size_t m_NextLongRepeat = 0;  ///< of the last place asked for; places ascend
};

}  // namespace kv::pict
