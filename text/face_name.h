#pragma once

#include <cstddef>
#include <string>

namespace kv::text {

/// Bytes of a face name that a logical font holds beside its terminator.
inline constexpr std::size_t kFaceNameMax = 31;

/// At most kFaceNameMax bytes of a name in an array of the given size, which may lack a terminator.
/// A double-byte character is never cut in two.
std::string UsableFaceName(const char* name, std::size_t arraySize);

}  // namespace kv::text
