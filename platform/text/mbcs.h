#pragma once

#include <cstddef>
#include <span>

// Stepping through zero-terminated strings in code page 932. A lead byte directly before the
// terminator is a single-byte character of its own code, and nothing steps past the terminator.
namespace kv {

/// True for 0x81 to 0x9F and 0xE0 to 0xFC.
constexpr bool _ismbblead(unsigned int byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

/// Bytes of the character at text: 0 at the terminator, else 1 or 2.
constexpr std::size_t CharBytes(const char* text) {
    if (text[0] == '\0') {
        return 0;
    }
    return _ismbblead(static_cast<unsigned char>(text[0])) && text[1] != '\0' ? 2 : 1;
}

/// The code of the character at text: lead * 256 + trail, or the byte; 0 at the terminator.
unsigned int CharCode(const char* text);

/// A character's code in lower case: letters of the Latin alphabet, full-width ones too. The lead
/// byte stays.
unsigned int FoldCase(unsigned int code);

/// Characters up to the terminator.
std::size_t _mbslen(const char* text);

/// The next character; text itself at the terminator.
const char* _mbsinc(const char* text);

/// Below 0, 0 or above 0 as a comes before, is equal to or comes after b, without regard to the
/// case of ASCII and full-width Latin letters.
int _mbsicmp(const char* a, const char* b);

/// Splits a path into a drive (a letter and its colon), a directory with its closing "/" or "\\", a
/// name, and an extension with its dot. The second byte of a double-byte character is no separator.
/// 0 when done; an errno value, with empty strings in the buffers (of a byte at least), when path
/// is null (EINVAL) or a part with its terminator does not fit (ERANGE).
int _splitpath_s(const char* path, std::span<char> drive, std::span<char> directory,
                 std::span<char> name, std::span<char> extension);

/// Joins the parts that _splitpath_s gives; they hold their separators. 0 when done; ERANGE, with
/// an empty string in path, when it is too small.
int _makepath_s(std::span<char> path, const char* drive, const char* directory, const char* name,
                const char* extension);

}  // namespace kv
