#pragma once

#include <cstddef>
#include <cstdint>

#include <platform/types.h>

// Files mapped into memory. Handles are given back by CloseHandle, views by UnmapViewOfFile; a
// mapping holds its file, but a view outlives neither the file's bytes nor its own unmapping.

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;
inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD CREATE_ALWAYS = 2;
inline constexpr DWORD OPEN_EXISTING = 3;
inline constexpr DWORD PAGE_READONLY = 2;
inline constexpr DWORD PAGE_READWRITE = 4;
inline constexpr DWORD FILE_MAP_WRITE = 2;
inline constexpr DWORD FILE_MAP_READ = 4;

/// Opens a file; null when that fails, also where it does not go with how others have the file
/// open. FILE_SHARE_READ lets other readers in, 0 nobody, until the handles of the file and of its
/// mappings are closed. CREATE_ALWAYS makes the file or empties it once it is ours.
HANDLE CreateFileA(const char* name, DWORD access, DWORD share, DWORD disposition);

/// A mapping of the file's first size bytes, of all it has for 0. PAGE_READWRITE lengthens the
/// file to that size, with room on the disk for all of it. Null on failure and for an empty file.
HANDLE CreateFileMappingA(HANDLE file, DWORD protection, std::uint64_t size);

/// The first byte of the mapped bytes, null on failure.
void* MapViewOfFile(HANDLE mapping, DWORD access);
bool UnmapViewOfFile(void* view);
bool CloseHandle(HANDLE handle);

namespace kv {

/// The number of bytes in a view; 0 for what is none.
std::size_t ViewSize(const void* view);

/// Gives a file, its mapping and the view back, in the order that they need; any may be null.
void CloseMapped(HANDLE file, HANDLE mapping, void* view);

}  // namespace kv
