#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

// Reading and writing of stored bytes. Nothing is touched outside the span given.
namespace kv {

/// The bytes of an unsigned number, the lowest first, and back. FromLittleEndian wants as many
/// bytes as the number has.
template <typename Bits>
constexpr std::array<std::uint8_t, sizeof(Bits)> ToLittleEndian(Bits bits) {
    std::array<std::uint8_t, sizeof(Bits)> bytes{};
    for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(bits & 0xFF);
        bits >>= 8;
    }
    return bytes;
}
template <typename Bits>
constexpr Bits FromLittleEndian(std::span<const std::uint8_t> bytes) {
    Bits bits = 0;
    for (std::size_t i = sizeof(Bits); i-- > 0;) {
        bits = bits << 8 | bytes[i];
    }
    return bits;
}

class ByteReader {
  public:
    explicit ByteReader(std::span<const std::uint8_t> bytes) : m_Rest(bytes) {}

    std::size_t Remaining() const { return m_Rest.size(); }

    /// The next count bytes, or all that is left when there are fewer.
    std::span<const std::uint8_t> Take(std::size_t count) {
        const auto taken = m_Rest.first(std::min(count, m_Rest.size()));
        m_Rest = m_Rest.subspan(taken.size());
        return taken;
    }

    /// Bytes that are not there read as 0.
    std::uint8_t U8() {
        const auto taken = Take(1);
        return taken.empty() ? std::uint8_t{0} : taken[0];
    }
    std::uint16_t U16Le() {
        const std::uint8_t low = U8();
        return static_cast<std::uint16_t>(low | U8() << 8);
    }
    std::uint16_t U16Be() {
        const std::uint8_t high = U8();
        return static_cast<std::uint16_t>(high << 8 | U8());
    }
    std::uint32_t U32Be() {
        const std::uint32_t high = U16Be();
        return high << 16 | U16Be();
    }

  private:
    std::span<const std::uint8_t> m_Rest;
};

/// What finds no room is dropped.
class ByteWriter {
  public:
    explicit ByteWriter(std::span<std::uint8_t> bytes) : m_Rest(bytes) {}

    void U8(std::uint8_t value) {
        if (!m_Rest.empty()) {
            m_Rest[0] = value;
            m_Rest = m_Rest.subspan(1);
        }
    }
    void U16Le(std::uint16_t value) {
        U8(static_cast<std::uint8_t>(value & 0xFF));
        U8(static_cast<std::uint8_t>(value >> 8));
    }
    void U16Be(std::uint16_t value) {
        U8(static_cast<std::uint8_t>(value >> 8));
        U8(static_cast<std::uint8_t>(value & 0xFF));
    }
    void U32Be(std::uint32_t value) {
        U16Be(static_cast<std::uint16_t>(value >> 16));
        U16Be(static_cast<std::uint16_t>(value & 0xFFFF));
    }
    void Bytes(std::span<const std::uint8_t> bytes) {
        for (const std::uint8_t byte : bytes) {
            U8(byte);
        }
    }

  private:
    std::span<std::uint8_t> m_Rest;
};

}  // namespace kv
