#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <platform/file.h>
#include <platform/types.h>

#include "base/scratch.h"

// Whole pictures to and from files, in chunks with a yield after each.
namespace kv {

/// Bytes whose number comes from a picture or a file: null when there is no memory, not
/// initialised.
using ByteBuffer = std::unique_ptr<BYTE[], FreeBytes>;
ByteBuffer AllocateBytes(std::size_t size);

/// What came of a file. bytes is null when there is no memory for what was asked, or when that is
/// more than 32 bits count.
struct FileData {
    ByteBuffer bytes;
    DWORD size = 0;
};

/// Reads what lies behind the file's position, up to most bytes, in chunks of that size. A chunk
/// that comes short does not end the reading; the next one joins on.
FileData ReadRest(CFile& file, std::uint64_t most, DWORD chunk);

void WriteChunks(CFile& file, const BYTE* bytes, DWORD size);

/// Opens a file for reading, or makes it for writing: 0, or the positive cause code. share: what
/// others may do with a file that is read meanwhile; one that is written is nobody else's.
int OpenToLoad(CFile& file, const char* name, UINT share);
int OpenToSave(CFile& file, const char* name);

/// The answer to a file that was written: result, or -1 when closing it fails.
int CloseSaved(CFile& file, int result);

/// Opens the file and gives the codec's answer, or the cause code when it cannot be opened.
template <typename Load>
int LoadNamed(const char* name, const Load& load, UINT share = CFile::shareDenyWrite) {
    CFile file;
    const int cause = OpenToLoad(file, name, share);
    return cause != 0 ? cause : load(file);
}

template <typename Save>
int SaveNamed(const char* name, const Save& save) {
    CFile file;
    const int cause = OpenToSave(file, name);
    return cause != 0 ? cause : CloseSaved(file, save(file));
}

}  // namespace kv
