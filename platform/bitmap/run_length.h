#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <platform/types.h>

#include "platform/bitmap/format.h"

// Run-length rows of 4 and 8 bits: pairs of a count and a pixel (of two that alternate, at 4 bits);
// a count of 0 introduces the end of a row, the end of the picture, a move, or literal pixels
// padded to 16 bits. The bottom row comes first.
namespace kv::dib {

/// Reads one row after the other. What leaves a row to the right is dropped; pixels and rows that
/// the data do not reach are index 0.
class RunLengthReader {
  public:
    RunLengthReader(std::span<const BYTE> data, unsigned int bits) : m_Data(data), m_Bits(bits) {}

    /// The next row, a byte an index.
    void ReadRow(std::span<BYTE> row);

  private:
    BYTE Next() { return m_At < m_Data.size() ? m_Data[m_At++] : BYTE{0}; }
    void Run(std::span<BYTE> row, std::size_t count, BYTE value);
    void Literal(std::span<BYTE> row, std::size_t count);
    bool Escape(std::span<BYTE> row, BYTE code);

    std::span<const BYTE> m_Data;
    unsigned int m_Bits;
    std::size_t m_At = 0;
    std::size_t m_Column = 0;
    unsigned int m_RowsToSkip = 0;
    bool m_Ended = false;
};

/// True if the pixels of a picture are all there. Run-length ones may end early, but a picture of
/// more than 2^24 pixels must not claim more than its data could hold.
bool AllThere(const Format& format, std::span<const BYTE> pixels);

/// Encodes rows, given bottom first, a byte an index. What finds no room is counted, not written.
class RunLengthWriter {
  public:
    RunLengthWriter(unsigned int bits, std::span<BYTE> room) : m_Bits(bits), m_Room(room) {}

    void WriteRow(std::span<const BYTE> row, bool last);
    std::uint64_t Size() const { return m_Size; }

  private:
    unsigned int m_Bits;
    std::span<BYTE> m_Room;
    std::uint64_t m_Size = 0;
    std::vector<BYTE> m_Encoded;  // of one row
};

}  // namespace kv::dib
