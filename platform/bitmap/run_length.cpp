#include "platform/bitmap/run_length.h"

#include <algorithm>
#include <cstring>

#include "base/checked.h"

namespace kv::dib {

void RunLengthReader::Run(std::span<BYTE> row, std::size_t count, BYTE value) {
    const std::size_t begin = std::min(column_, row.size());
    const std::size_t end = std::min(column_ + count, row.size());
    column_ += count;
    if (bits_ == 8) {
        std::fill(row.data() + begin, row.data() + end, value);
        return;
    }
    const BYTE pair[2] = {static_cast<BYTE>(value >> 4), static_cast<BYTE>(value & 0x0F)};
    for (std::size_t i = begin; i < end; ++i) {
        row[i] = pair[(i - begin) % 2];
    }
}

void RunLengthReader::Literal(std::span<BYTE> row, std::size_t count) {
    const std::size_t begin = std::min(column_, row.size());
    column_ += count;
    const std::size_t bytes = bits_ == 8 ? count : (count + 1) / 2;
    const auto stored = data_.subspan(at_, std::min(bytes, data_.size() - at_));
    const std::size_t there = std::min(count, stored.size() * 8 / bits_);
    const std::size_t end = begin + std::min(there, row.size() - begin);
    if (bits_ == 8 && end > begin) {
        std::memcpy(row.data() + begin, stored.data(), end - begin);
    }
    for (std::size_t i = begin; bits_ != 8 && i < end; ++i) {
        const BYTE both = stored[(i - begin) / 2];
        row[i] = static_cast<BYTE>((i - begin) % 2 == 0 ? both >> 4 : both & 0x0F);
    }
    at_ += std::min(bytes + bytes % 2, data_.size() - at_);
}

// False when the row is at its end.
bool RunLengthReader::Escape(std::span<BYTE> row, BYTE code) {
    switch (code) {
        case 0:
            column_ = 0;
            return false;
        case 1:
            ended_ = true;
            return false;
        case 2:
            column_ += Next();
            rowsToSkip_ = Next();
            return rowsToSkip_ == 0;
        default:
            Literal(row, code);
            return true;
    }
}

void RunLengthReader::ReadRow(std::span<BYTE> row) {
    std::ranges::fill(row, BYTE{0});
    // A move of n rows leaves n - 1 empty ones behind the one where it stands.
    if (rowsToSkip_ > 1) {
        --rowsToSkip_;
        return;
    }
    rowsToSkip_ = 0;
    while (!ended_ && at_ < data_.size()) {
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
    constexpr std::uint64_t kMostPixelsOfPair = 255;
    const std::uint64_t claimed =
        static_cast<std::uint64_t>(format.width) * static_cast<std::uint64_t>(format.height);
    return MayHold(pixels.size() / 2, claimed, kMostPixelsOfPair);
}

}  // namespace kv::dib
