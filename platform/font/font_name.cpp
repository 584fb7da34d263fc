// Face names: cutting, comparing, converting.

#include "platform/font/font_name.h"

#include <cstring>

#include <KVUtf8.h>

#include "platform/text/mbcs.h"

namespace kv::font {

std::string CutName(std::string_view name, std::size_t count) {
    const std::string whole(name);
    std::size_t length = 0;
    for (std::size_t bytes = CharBytes(whole.c_str()); bytes != 0 && length + bytes <= count;
         bytes = CharBytes(whole.c_str() + length)) {
        length += bytes;
    }
    return whole.substr(0, length);
}

std::string FoldName(std::string_view name) {
    std::string folded(name);
    for (char* at = folded.data(); *at != '\0';) {
        const std::size_t bytes = CharBytes(at);
        at[bytes - 1] = static_cast<char>(FoldCase(CharCode(at)) & 0xFF);
        at += bytes;
    }
    return folded;
}

std::string NameFromUtf8(const char* utf8) {
    const CString converted = KVFromUtf8(utf8);
    const std::string name(static_cast<const char*>(converted));
    // The bridge puts a question mark in place of what it cannot convert.
    const bool whole = std::strchr(utf8, '?') != nullptr || name.find('?') == std::string::npos;
    return whole ? name : std::string();
}

}  // namespace kv::font
