#pragma once

#include <algorithm>
#include <cstring>
#include <vector>

#include <platform/file.h>

/// A file in memory. It can be told to throw at the nth call of an operation that the codecs guard.
class MemoryFile : public CFile {
  public:
    MemoryFile() = default;
    explicit MemoryFile(std::vector<BYTE> bytes) : m_Bytes(std::move(bytes)) {}

    UINT Read(void* bytes, UINT count) override {
        MayThrow();
        const std::uint64_t rest = m_Bytes.size() - std::min<std::uint64_t>(m_At, m_Bytes.size());
        const auto part = static_cast<UINT>(std::min<std::uint64_t>(count, rest));
        if (part > 0) {
            std::memcpy(bytes, m_Bytes.data() + m_At, part);
        }
        m_At += part;
        return part;
    }
    void Write(const void* bytes, UINT count) override {
        MayThrow();
        m_Bytes.resize(std::max(m_Bytes.size(), static_cast<std::size_t>(m_At + count)));
        std::memcpy(m_Bytes.data() + m_At, bytes, count);
        m_At += count;
    }
    std::uint64_t Seek(std::int64_t offset, UINT from) override {
        MayThrow();
        return m_At = (from == current ? m_At : 0) + static_cast<std::uint64_t>(offset);
    }
    std::uint64_t GetLength() const override {
        MayThrow();
        return m_ClaimedLength != 0 ? m_ClaimedLength : m_Bytes.size();
    }
    std::uint64_t GetPosition() const override {
        MayThrow();
        return m_At;
    }

    std::vector<BYTE> m_Bytes;
    std::uint64_t m_At = 0;
    std::uint64_t m_ClaimedLength = 0;        ///< GetLength's answer when not 0
    mutable int m_CallsUntilThrow = 1 << 30;  ///< calls that succeed before one throws
    bool m_ThrowsAnything = false;            ///< what is thrown is an int then

  private:
    void MayThrow() const {
        if (m_CallsUntilThrow == 0 && m_ThrowsAnything) {
            throw 0;
        }
        if (m_CallsUntilThrow == 0) {
            throw CFileException(CFileException::hardIO);
        }
        --m_CallsUntilThrow;
    }
};
