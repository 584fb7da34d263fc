#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/bytes.h"

// A record's fields in a block of stored bytes, little-endian. Reader and writer have the same
// calls, so that one visit of the fields, in stored order, serves both ways. The block must hold
// all that is visited.
namespace kv {

class BlockReader {
  public:
    explicit BlockReader(std::span<const std::uint8_t> block) : m_Rest(block) {}

    void Field(std::uint32_t& value) { value = FromLittleEndian<std::uint32_t>(Take(4)); }
    void Field(std::int32_t& value) {
        std::uint32_t bits = 0;
        Field(bits);
        value = static_cast<std::int32_t>(bits);
    }
    void Field(std::span<char> text) { std::ranges::copy(Take(text.size()), text.begin()); }
    void Skip(std::size_t count) { Take(count); }

  private:
    std::span<const std::uint8_t> Take(std::size_t count) {
        const auto taken = m_Rest.first(count);
        m_Rest = m_Rest.subspan(count);
        return taken;
    }

    std::span<const std::uint8_t> m_Rest;
};

/// Leaves what is skipped as it is.
class BlockWriter {
  public:
    explicit BlockWriter(std::span<std::uint8_t> block) : m_Rest(block) {}

    void Field(std::uint32_t value) { std::ranges::copy(ToLittleEndian(value), Take(4).begin()); }
    void Field(std::int32_t value) { Field(static_cast<std::uint32_t>(value)); }
    void Field(std::span<const char> text) { std::ranges::copy(text, Take(text.size()).begin()); }
    void Skip(std::size_t count) { Take(count); }

  private:
    std::span<std::uint8_t> Take(std::size_t count) {
        const auto taken = m_Rest.first(count);
        m_Rest = m_Rest.subspan(count);
        return taken;
    }

    std::span<std::uint8_t> m_Rest;
};

}  // namespace kv
