#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <platform/types.h>

namespace kv::pict {

struct Packet {
    std::size_t count;  ///< bytes of the row
    bool isRun;
};

/// Decides the packets of a row, each in constant time, from three arrays of bits or counts that
/// are made in one pass: bytes that equal the next one, starts of four such bytes on end, and the
/// number of the former before each word.
class RowPackets {
  public:
    /// For rows of up to size bytes.
    explicit RowPackets(std::size_t size);

    /// Takes a row of size bytes, and the byte behind it, with which its last one is compared.
    void SetRow(const BYTE* row, std::size_t size);

    /// The packet that starts there. A row's packets are asked from left to right.
    Packet At(std::size_t start);

  private:
    std::uint64_t EqualsFrom(std::size_t at) const;
    std::size_t EqualsBefore(std::size_t at) const;
    std::size_t NextLongRepeat(std::size_t at);
    std::size_t LiteralCount(std::size_t start);

    std::vector<std::uint64_t> m_Equal;
    std::vector<std::uint64_t> m_LongRepeat;
    std::vector<std::uint32_t> m_EqualsBefore;
    std::size_t m_Size = 0;
    std::size_t m_NextLongRepeat = 0;
};

}  // namespace kv::pict
