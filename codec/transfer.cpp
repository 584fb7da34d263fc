// What the codecs have in common: files opened, read to their end, written in chunks.

#include "codec/transfer.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include <platform/sync.h>

namespace kv {
namespace {

constexpr UINT kOpenToRead = CFile::typeBinary | CFile::modeRead;
constexpr UINT kOpenToWrite =
    CFile::typeBinary | CFile::modeCreate | CFile::shareExclusive | CFile::modeWrite;

constexpr DWORD kWriteChunk = 16384;

std::uint64_t BytesBehind(const CFile& file) {
    const std::uint64_t length = file.GetLength();
    const std::uint64_t position = file.GetPosition();
    return position < length ? length - position : 0;
}

int CauseOfOpen(CFile& file, const char* name, UINT flags) {
    CFileException error;
    return file.Open(name, flags, &error) ? 0 : error.m_cause;
}

}  // namespace

ByteBuffer AllocateBytes(std::size_t size) {
    return ByteBuffer(static_cast<BYTE*>(std::malloc(std::max<std::size_t>(size, 1))));
}

FileData ReadRest(CFile& file, std::uint64_t most, DWORD chunk) {
    const std::uint64_t size = std::min(BytesBehind(file), most);
    if (size > std::numeric_limits<DWORD>::max()) {
        return {};
    }
    FileData data{AllocateBytes(size), 0};
    if (data.bytes == nullptr) {
        return {};
    }
    for (std::uint64_t asked = 0; asked < size; asked += chunk) {
        const auto part = static_cast<UINT>(std::min<std::uint64_t>(size - asked, chunk));
        data.size += std::min(file.Read(data.bytes.get() + data.size, part), part);
        Sleep(0);
    }
    return data;
}

void WriteChunks(CFile& file, const BYTE* bytes, DWORD size) {
    for (DWORD done = 0; done < size;) {
        const DWORD chunk = std::min(size - done, kWriteChunk);
        file.Write(bytes + done, chunk);
        done += chunk;
        Sleep(0);
    }
}

int OpenToLoad(CFile& file, const char* name, UINT share) {
    return CauseOfOpen(file, name, kOpenToRead | share);
}

int OpenToSave(CFile& file, const char* name) {
    return CauseOfOpen(file, name, kOpenToWrite);
}

int CloseSaved(CFile& file, int result) {
    try {
        file.Close();  // some file systems report a full disk only now
    } catch (const CException&) {
        return -1;
    }
    return result;
}

}  // namespace kv
