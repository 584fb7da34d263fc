#pragma once

#include <cstddef>

#include "export.h"
#include "types.h"

/// Global memory blocks. A handle stays the same while its block moves; the block's bytes are
/// reached by locking it. All calls may be made from any thread; a handle that names no block is an
/// error with a defined result, except that a freed handle may be given out anew.
using HGLOBAL = void*;

inline constexpr UINT GMEM_MOVEABLE = 0x02;
inline constexpr UINT GMEM_ZEROINIT = 0x40;
inline constexpr UINT GHND = GMEM_MOVEABLE | GMEM_ZEROINIT;

/// A new block of that many bytes, zeroed when flags hold GMEM_ZEROINIT. Every block is moveable,
/// whatever flags say. Null when there is no memory. The caller frees it with GlobalFree.
KVDRAW_API HGLOBAL GlobalAlloc(UINT flags, std::size_t size);

/// Changes a block's size and keeps its bytes up to the smaller size; added bytes are zeroed when
/// flags hold GMEM_ZEROINIT. Gives the handle back, or null with the block unchanged when there is
/// no memory, or when the block is locked and flags do not hold GMEM_MOVEABLE. Pointers from
/// GlobalLock are void afterwards.
KVDRAW_API HGLOBAL GlobalReAlloc(HGLOBAL handle, std::size_t size, UINT flags);

/// The block's first byte, aligned for any type, valid until the block is resized or freed. Adds 1
/// to the lock count. Null for a bad handle and for a block of size 0.
KVDRAW_API void* GlobalLock(HGLOBAL handle);

/// Takes 1 from the lock count, not below 0. True while the block is still locked.
KVDRAW_API bool GlobalUnlock(HGLOBAL handle);

/// The block's bytes as asked for; 0 for a bad handle.
KVDRAW_API std::size_t GlobalSize(HGLOBAL handle);

/// Frees a block, locked or not. Null when done, the handle itself for a bad one.
KVDRAW_API HGLOBAL GlobalFree(HGLOBAL handle);
