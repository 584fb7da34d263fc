#pragma once

#include <cstddef>

#include <platform/types.h>

namespace kv {

/// dst[i] becomes src[i] blended over it by its key. The rows may be the same memory, or overlap
/// with dst below src.
void BlendRowByKey(DWORD* dst, const DWORD* src, std::size_t count);

/// dst[i] becomes src[i] blended over it through coverage mask[i]. Overlap as above.
void BlendRowByMask(DWORD* dst, const DWORD* src, const BYTE* mask, std::size_t count);

}  // namespace kv
