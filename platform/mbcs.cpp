#include "platform/mbcs.h"

#include <cerrno>
#include <cstring>

namespace kv {

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

const char* _mbsninc(const char* text, std::size_t count) {
    for (; count > 0 && *text != '\0'; --count) {
        text += CharBytes(text);
    }
    return text;
}

std::size_t _mbsnbcnt(const char* text, std::size_t count) {
    return static_cast<std::size_t>(_mbsninc(text, count) - text);
}

int _mbsnbcpy_s(char* target, std::size_t targetSize, const char* text, std::size_t byteCount) {
    if (target == nullptr || targetSize == 0) {
        return EINVAL;
    }
    target[0] = '\0';
    if (text == nullptr) {
        return EINVAL;
    }
    std::size_t length = 0;
    while (text[length] != '\0' && length + CharBytes(text + length) <= byteCount) {
        length += CharBytes(text + length);
    }
    if (length >= targetSize) {
        return ERANGE;
    }
    std::memcpy(target, text, length);
    target[length] = '\0';
    return 0;
}

}  // namespace kv
