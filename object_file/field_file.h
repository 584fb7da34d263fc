#pragma once

#include <array>
#include <cstddef>
#include <span>

#include <platform/archive.h>
#include <platform/file.h>
#include <platform/string.h>

#include "object_file/block_fields.h"

// Stored fields, little-endian, at a file's current position.
namespace kv {

/// Each call reads one field and is false when the file ends before it. What has come of a number
/// or a block by then is in it. Exceptions of the file pass through.
class FieldReader {
  public:
    explicit FieldReader(CFile& file) : m_File(file) {}

    bool Int32(LONG& value);
    bool Double(double& value);
    bool Block(std::span<BYTE> bytes) { return Some(bytes) == bytes.size(); }
    /// Up to bytes.size() bytes; the number that came.
    std::size_t Some(std::span<BYTE> bytes);
    /// A block of Size bytes, read over the record whose fields visit(BlockReader or BlockWriter)
    /// names.
    template <std::size_t Size, typename Visit>
    bool Record(Visit visit) {
        std::array<BYTE, Size> bytes{};
        BlockWriter before(bytes);
        visit(before);
        const bool whole = Block(bytes);
        BlockReader after(bytes);
        visit(after);
        return whole;
    }
    /// A length in bytes, then the bytes. A string that ends early becomes empty; a length that no
    /// string can have throws CMemoryException. Memory follows what comes, not what the length
    /// says.
    bool String(CString& text);

  private:
    CFile& m_File;
};

/// One write of the file for each field, for strings two. Exceptions of the file pass through.
class FieldWriter {
  public:
    explicit FieldWriter(CFile& file) : m_File(file) {}

    void Int32(LONG value);
    void Double(double value);
    void Block(std::span<const BYTE> bytes);
    /// A block of Size bytes; what visit(BlockWriter) skips is zero.
    template <std::size_t Size, typename Visit>
    void Record(Visit visit) {
        std::array<BYTE, Size> bytes{};
        BlockWriter writer(bytes);
        visit(writer);
        Block(bytes);
    }
    void String(const CString& text);

  private:
    CFile& m_File;
};

/// The result of an object file's operation: 1 when transfer gives true, 0 when there is no file,
/// when transfer gives false, or when it throws.
template <typename Transfer>
int ObjectFileResult(CFile* file, Transfer transfer) {
    try {
        return file != nullptr && transfer(*file) ? 1 : 0;
    } catch (...) {  // an application's file may throw what it likes
        return 0;
    }
}

/// Serialises an object by its Read and Write, whose results an archive has no place for.
template <typename Object>
void SerializeThroughFile(CArchive& archive, Object& object) {
    if (archive.IsLoading()) {
        object.Read(archive.GetFile());
    } else {
        object.Write(archive.GetFile());
    }
}

}  // namespace kv
