// Run-length rows, decoded.

#include "platform/bitmap/run_length.h"

#include <algorithm>
#include <cstring>

#include "base/checked.h"

namespace kv::dib {

void RunLengthReader::Run(std::span<BYTE> row, std::size_t count, BYTE value) {
    const std::size_t begin = std::min(m_Column, row.size());
    const std::size_t end = std::min(m_Column + count, row.size());
    m_Column += count;
    if (m_Bits == 8) {
        std::fill(row.data() + begin, row.data() + end, value);
        return;
    }
    const BYTE pair[2] = {static_cast<BYTE>(value >> 4), static_cast<BYTE>(value & 0x0F)};
    for (std::size_t i = begin; i < end; ++i) {
        row[i] = pair[(i - begin) % 2];
    }
}

void RunLengthReader::Literal(std::span<BYTE> row, std::size_t count) {
    const std::size_t begin = std::min(m_Column, row.size());
    m_Column += count;
    const std::size_t bytes = m_Bits == 8 ? count : (count + 1) / 2;
    const auto stored = m_Data.subspan(m_At, std::min(bytes, m_Data.size() - m_At));
    const std::size_t given = std::min(count, stored.size() * 8 / m_Bits);
    const std::size_t end = begin + std::min(given, row.size() - begin);
    if (m_Bits == 8 && end > begin) {
        std::memcpy(row.data() + begin, stored.data(), end - begin);
    }
    for (std::size_t i = begin; m_Bits != 8 && i < end; ++i) {
        const BYTE both = stored[(i - begin) / 2];
        row[i] = static_cast<BYTE>((i - begin) % 2 == 0 ? both >> 4 : both & 0x0F);
    }
    m_At += std::min(bytes + bytes % 2, m_Data.size() - m_At);
}

// False when the row is at its end.
bool RunLengthReader::Escape(std::span<BYTE> row, BYTE code) {
    switch (code) {
        case 0:
            m_Column = 0;
            return false;
        case 1:
            m_Ended = true;
            return false;
        case 2:
            m_Column += Next();
            m_RowsToSkip = Next();
            return m_RowsToSkip == 0;
        default:
            Literal(row, code);
            return true;
    }
}

void RunLengthReader::ReadRow(std::span<BYTE> row) {
    std::ranges::fill(row, BYTE{0});
    // A move of n rows leaves n - 1 empty ones behind the one where it stands.
    if (m_RowsToSkip > 1) {
        --m_RowsToSkip;
        return;
    }
    m_RowsToSkip = 0;
    while (!m_Ended && m_At < m_Data.size()) {
        const BYTE count = Next();
        const BYTE value = Next();
        if (count != 0) {
            Run(row, count, value);
        } else if (!Escape(row, value)) {
            return;
        }
    }
}

bool AllThere(const Format& format, std::span<const BYTE> pixels) {
    if (!format.IsRunLength()) {
        return format.PlainBytes() <= pixels.size();
    }
    constexpr std::uint64_t kMaxPixelsOfPair = 255;
    const std::uint64_t claimed =
        static_cast<std::uint64_t>(format.width) * static_cast<std::uint64_t>(format.height);
    return MayHold(pixels.size() / 2, claimed, kMaxPixelsOfPair);
}

}  // namespace kv::dib
