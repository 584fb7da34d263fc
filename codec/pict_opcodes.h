#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <span>

#include <platform/file.h>
#include <platform/types.h>

#include "base/bytes.h"

namespace kv::pict {

/// Reads a file by blocks: opcodes have two bytes, and a call of the system for each of them makes
/// minutes of a large file that has no pixel map.
class OpcodeReader {
  public:
    explicit OpcodeReader(CFile& file) : m_File(file) {}

    /// Nothing when the file ends before.
    template <std::size_t kBytes>
    std::optional<std::array<BYTE, kBytes>> Bytes() {
        static_assert(kBytes <= kBlockBytes);
        if (m_Rest.size() < kBytes) {
            Fill();
        }
        if (m_Rest.size() < kBytes) {
            return std::nullopt;
        }
        std::array<BYTE, kBytes> bytes;
        std::ranges::copy(m_Rest.first(kBytes), bytes.begin());
        m_Rest = m_Rest.subspan(kBytes);
        return bytes;
    }

    std::optional<WORD> Word() {
        const auto bytes = Bytes<2>();
        return bytes ? std::optional(ByteReader(*bytes).U16Be()) : std::nullopt;
    }

    void Skip(std::size_t bytes) {
        const std::size_t here = std::min(bytes, m_Rest.size());
        m_Rest = m_Rest.subspan(here);
        if (bytes > here) {
            m_File.Seek(static_cast<std::int64_t>(bytes - here), CFile::current);
        }
    }

    /// Puts the file where the reading stands.
    void Settle() {
        m_File.Seek(-static_cast<std::int64_t>(m_Rest.size()), CFile::current);
        m_Rest = {};
    }

  private:
    static constexpr std::size_t kBlockBytes = 4096;

    // Joins the next bytes of the file to those that are left.
    void Fill() {
        std::ranges::copy(m_Rest, m_Block.begin());
        const auto room = std::span(m_Block).subspan(m_Rest.size());
        const std::size_t read = m_File.Read(room.data(), static_cast<UINT>(room.size()));
        m_Rest = std::span(m_Block).first(m_Rest.size() + std::min(read, room.size()));
    }

    CFile& m_File;
    std::array<BYTE, kBlockBytes> m_Block;
    std::span<const BYTE> m_Rest;
};

}  // namespace kv::pict
