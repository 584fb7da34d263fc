#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Face names: bytes in code page 932, at most 31 of them in a font record.
namespace kv::font {

inline constexpr std::size_t kFaceNameBytes = 31;

/// The most leading characters of a name that fit into count bytes.
std::string CutName(std::string_view name, std::size_t count);

/// The form in which names are compared: letters of the Latin alphabet, full-width ones too, in
/// lower case.
std::string FoldName(std::string_view name);

/// A UTF-8 name in code page 932; empty when the code page lacks one of its characters.
std::string NameFromUtf8(const char* utf8);

/// Copies a name into a record's field, cut to what fits with its terminator.
template <std::size_t kSize>
void StoreName(std::string_view name, char (&field)[kSize]) {
    const std::string cut = CutName(name, kSize - 1);
    field[cut.copy(field, kSize - 1)] = '\0';
}

}  // namespace kv::font
