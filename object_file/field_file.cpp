// The fields of object files, one after another, little-endian.

#include "object_file/field_file.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

#include <platform/exception.h>

#include "base/bytes.h"

namespace kv {
namespace {

constexpr std::size_t kStringChunk = 65536;

// Read over the bytes that the value has, so that a part leaves the rest as it was.
template <typename Bits, typename Value>
bool ReadOver(FieldReader& reader, Value& value) {
    auto bytes = ToLittleEndian(std::bit_cast<Bits>(value));
    const bool whole = reader.Block(bytes);
    value = std::bit_cast<Value>(FromLittleEndian<Bits>(bytes));
    return whole;
}

}  // namespace

bool FieldReader::Int32(LONG& value) {
    return ReadOver<DWORD>(*this, value);
}

bool FieldReader::Double(double& value) {
    return ReadOver<std::uint64_t>(*this, value);
}

std::size_t FieldReader::Some(std::span<BYTE> bytes) {
    return std::min<std::size_t>(m_File.Read(bytes.data(), static_cast<UINT>(bytes.size())),
                                 bytes.size());
}

bool FieldReader::String(CString& text) {
    LONG length = 0;
    if (!Int32(length)) {
        return false;
    }
    if (length < 0) {
        AfxThrowMemoryException();
    }
    text.Empty();
    std::vector<BYTE> chunk(std::min<std::size_t>(static_cast<std::size_t>(length), kStringChunk));
    CString read;
    while (read.GetLength() < length) {
        const auto left = static_cast<std::size_t>(length - read.GetLength());
        const auto part = std::span(chunk).first(std::min(left, chunk.size()));
        if (!Block(part)) {
            return false;
        }
        read.Append(reinterpret_cast<const char*>(part.data()), static_cast<int>(part.size()));
    }
    text = std::move(read);
    return true;
}

void FieldWriter::Int32(LONG value) {
    Block(ToLittleEndian(std::bit_cast<DWORD>(value)));
}

void FieldWriter::Double(double value) {
    Block(ToLittleEndian(std::bit_cast<std::uint64_t>(value)));
}

void FieldWriter::Block(std::span<const BYTE> bytes) {
    if (!bytes.empty()) {
        m_File.Write(bytes.data(), static_cast<UINT>(bytes.size()));
    }
}

void FieldWriter::String(const CString& text) {
    const char* bytes = text;
    const auto length = static_cast<std::size_t>(text.GetLength());
    Int32(text.GetLength());
    Block({reinterpret_cast<const BYTE*>(bytes), length});
}

}  // namespace kv
