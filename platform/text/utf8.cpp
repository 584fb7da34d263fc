// The bridge between code page 932 and UTF-8.

#include <cstdint>

#include "KVUtf8.h"
#include "platform/text/codepage.h"
#include "platform/text/mbcs.h"

namespace kv {
namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;

// What a lead byte announces: the number of bytes behind it, the range of the first of them
// (narrowed against overlong forms, surrogates and values above U+10FFFF) and the lead's own bits.
struct Sequence {
    int more;
    unsigned char firstMin;
    unsigned char firstMax;
    unsigned char leadMask;
};

Sequence SequenceOf(unsigned char lead) {
    if (lead >= 0xC2 && lead <= 0xDF) {
        return {1, 0x80, 0xBF, 0x1F};
    }
    if (lead >= 0xE0 && lead <= 0xEF) {
        const unsigned char low = lead == 0xE0 ? 0xA0 : 0x80;
        const unsigned char high = lead == 0xED ? 0x9F : 0xBF;
        return {2, low, high, 0x0F};
    }
    if (lead >= 0xF0 && lead <= 0xF4) {
        const unsigned char low = lead == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = lead == 0xF4 ? 0x8F : 0xBF;
        return {3, low, high, 0x07};
    }
    return {0, 0, 0, 0};
}

// Takes one character, or one maximal malformed part, off the text; the latter gives kReplacement.
// The terminator fits no range, so nothing is read behind it.
std::uint32_t TakeScalar(const unsigned char*& text) {
    const unsigned char lead = *text++;
    if (lead < 0x80) {
        return lead;
    }
    const Sequence sequence = SequenceOf(lead);
    if (sequence.more == 0) {
        return kReplacement;
    }
    std::uint32_t scalar = lead & sequence.leadMask;
    unsigned char low = sequence.firstMin;
    unsigned char high = sequence.firstMax;
    for (int i = 0; i < sequence.more; ++i) {
        if (*text < low || *text > high) {
            return kReplacement;
        }
        scalar = scalar << 6 | (*text++ & 0x3FU);
        low = 0x80;
        high = 0xBF;
    }
    return scalar;
}

void PutUtf8(std::string& to, std::uint32_t scalar) {
    const auto tail = [&](unsigned int shift) {
        to += static_cast<char>(0x80 | ((scalar >> shift) & 0x3F));
    };
    if (scalar < 0x80) {
        to += static_cast<char>(scalar);
    } else if (scalar < 0x800) {
        to += static_cast<char>(0xC0 | scalar >> 6);
        tail(0);
    } else {
        to += static_cast<char>(0xE0 | scalar >> 12);  // the code page lies within 16 bits
        tail(6);
        tail(0);
    }
}

}  // namespace
}  // namespace kv

CString KVFromUtf8(const char* text) {
    CString result;
    if (text == nullptr) {
        return result;
    }
    const auto* rest = reinterpret_cast<const unsigned char*>(text);
    while (*rest != 0) {
        const unsigned int code = kv::FromUnicode(kv::TakeScalar(rest));
        if (code > 0xFF) {
            result += static_cast<char>(code >> 8);
        }
        result += code != 0 ? static_cast<char>(code & 0xFF) : '?';
    }
    return result;
}

std::string KVToUtf8(const char* text) {
    std::string result;
    for (; text != nullptr && *text != '\0'; text = kv::_mbsinc(text)) {
        const std::uint32_t scalar = kv::ToUnicode(kv::CharCode(text));
        kv::PutUtf8(result, scalar != 0 ? scalar : kv::kReplacement);
    }
    return result;
}
