#include "platform/font/font_name.h"

#include <cstring>

#include <KVUtf8.h>

#include "platform/text/mbcs.h"

namespace kv::gdi {

namespace {

// Full-width capitals are 0x82 0x60 to 0x82 0x79, the small letters 0x82 0x81 to 0x82 0x9A.
constexpr unsigned char kFullWidthLead = 0x82;
constexpr unsigned char kFullWidthA = 0x60;
constexpr unsigned char kFullWidthZ = 0x79;
constexpr char kFullWidthToLower = 0x21;

}  // namespace

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
        const auto last = static_cast<unsigned char>(at[bytes - 1]);
        if (bytes == 1 && last >= 'A' && last <= 'Z') {
            at[0] = static_cast<char>(last + ('a' - 'A'));
        } else if (bytes == 2 && static_cast<unsigned char>(at[0]) == kFullWidthLead &&
                   last >= kFullWidthA && last <= kFullWidthZ) {
            at[1] = static_cast<char>(last + kFullWidthToLower);
        }
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

}  // namespace kv::gdi
