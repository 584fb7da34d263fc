#include "codec/transfer.h"

#include <algorithm>

#include <platform/sync.h>

namespace kv {
namespace {

constexpr DWORD kReadChunk = 4096;
constexpr DWORD kWriteChunk = 16384;

}  // namespace

ByteBuffer AllocateBytes(std::size_t size) {
    return ByteBuffer(static_cast<BYTE*>(std::malloc(std::max<std::size_t>(size, 1))));
}

DWORD ReadChunks(CFile& file, BYTE* bytes, DWORD size) {
    DWORD received = 0;
    for (DWORD asked = 0; asked < size;) {
        const DWORD chunk = std::min(size - asked, kReadChunk);
        received += std::min(file.Read(bytes + received, chunk), chunk);
        asked += chunk;
        Sleep(0);
    }
    return received;
}

void WriteChunks(CFile& file, const BYTE* bytes, DWORD size) {
    for (DWORD done = 0; done < size;) {
        const DWORD chunk = std::min(size - done, kWriteChunk);
        file.Write(bytes + done, chunk);
        done += chunk;
        Sleep(0);
    }
}

}  // namespace kv
