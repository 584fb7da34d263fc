#pragma once

namespace kv::text {

/// WHITE CIRCLE: stands for one cell of a vertical line where its length is measured.
inline constexpr char kLineCell[] = "\x81\x9B";

}  // namespace kv::text
