// Stepping, comparing and paths in code page 932.

#include "platform/text/mbcs.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>

namespace kv {
namespace {

// Of the bytes that split a path only the backslash can be a second one. Lead bytes before the
// others are what names in other encodings happen to hold.
std::size_t PathCharBytes(const char* text) {
    return CharBytes(text) == 2 && static_cast<unsigned char>(text[1]) >= 0x40 ? 2 : 1;
}

bool IsLetter(char byte) {
    const unsigned int folded = FoldCase(static_cast<unsigned char>(byte));
    return folded >= 'a' && folded <= 'z';
}

// Drive, directory, name, extension.
using PathParts = std::array<std::string_view, 4>;

PathParts PartsOf(const char* path) {
    const char* const directory = IsLetter(path[0]) && path[1] == ':' ? path + 2 : path;
    const char* name = directory;
    const char* dot = nullptr;
    const char* end = directory;
    for (; *end != '\0'; end += PathCharBytes(end)) {
        if (*end == '/' || *end == '\\') {
            name = end + 1;
            dot = nullptr;
        } else if (*end == '.') {
            dot = end;
        }
    }
    const char* const extension = dot != nullptr ? dot : end;
    return {std::string_view(path, directory), std::string_view(directory, name),
            std::string_view(name, extension), std::string_view(extension, end)};
}

}  // namespace

unsigned int FoldCase(unsigned int code) {
    constexpr unsigned int kFullWidthUpper = 0x8260;
    constexpr unsigned int kFullWidthLower = 0x8281;
    if (code >= 'A' && code <= 'Z') {
        return code - 'A' + 'a';
    }
    if (code >= kFullWidthUpper && code <= kFullWidthUpper + ('Z' - 'A')) {
        return code - kFullWidthUpper + kFullWidthLower;
    }
    return code;
}

unsigned int CharCode(const char* text) {
    const unsigned int first = static_cast<unsigned char>(text[0]);
    return CharBytes(text) == 2 ? first * 256 + static_cast<unsigned char>(text[1]) : first;
}

std::size_t _mbslen(const char* text) {
    std::size_t count = 0;
    for (; *text != '\0'; text += CharBytes(text)) {
        ++count;
    }
    return count;
}

const char* _mbsinc(const char* text) {
    return text + CharBytes(text);
}

int _mbsicmp(const char* a, const char* b) {
    while (*a != '\0' && FoldCase(CharCode(a)) == FoldCase(CharCode(b))) {
        a = _mbsinc(a);
        b = _mbsinc(b);
    }
    return static_cast<int>(FoldCase(CharCode(a))) - static_cast<int>(FoldCase(CharCode(b)));
}

int _splitpath_s(const char* path, std::span<char> drive, std::span<char> directory,
                 std::span<char> name, std::span<char> extension) {
    const std::span<char> buffers[] = {drive, directory, name, extension};
    for (const std::span<char> buffer : buffers) {
        buffer[0] = '\0';
    }
    if (path == nullptr) {
        return EINVAL;
    }
    const PathParts parts = PartsOf(path);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (parts[i].size() >= buffers[i].size()) {
            return ERANGE;
        }
    }
    for (std::size_t i = 0; i < parts.size(); ++i) {
        *std::ranges::copy(parts[i], buffers[i].begin()).out = '\0';
    }
    return 0;
}

int _makepath_s(std::span<char> path, const char* drive, const char* directory, const char* name,
                const char* extension) {
    const std::string_view parts[] = {drive, directory, name, extension};
    std::size_t length = 0;
    for (const std::string_view part : parts) {
        length += part.size();
    }
    path[0] = '\0';
    if (length >= path.size()) {
        return ERANGE;
    }
    auto end = path.begin();
    for (const std::string_view part : parts) {
        end = std::ranges::copy(part, end).out;
    }
    *end = '\0';
    return 0;
}

}  // namespace kv
