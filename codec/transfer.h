#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>

#include <platform/file.h>
#include <platform/types.h>

// Whole pictures to and from files, in chunks with a yield after each.
namespace kv {

/// Bytes whose number comes from a picture or a file: null when there is no memory, not
/// initialised.
struct FreeBytes {
    void operator()(BYTE* bytes) const { std::free(bytes); }
};
using ByteBuffer = std::unique_ptr<BYTE[], FreeBytes>;
ByteBuffer AllocateBytes(std::size_t size);

/// Reads size bytes and gives the number that came. A chunk that comes short does not end the
/// reading; the next one joins on.
DWORD ReadChunks(CFile& file, BYTE* bytes, DWORD size);

void WriteChunks(CFile& file, const BYTE* bytes, DWORD size);

}  // namespace kv
