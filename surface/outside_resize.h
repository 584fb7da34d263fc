#pragma once

#include <optional>

#include <CKVFrameBuffer.h>

namespace kv {

/// Has the outside resize function fill the target, which has its store already, from the source.
/// True when it did, false when it failed, nothing when none is bound.
std::optional<bool> ResizeOutside(const CKVFrameBuffer& source, CKVFrameBuffer& target);

}  // namespace kv
