#include <cstdint>
#include <cstdlib>
#include <string>

#include <CKVFont.h>

#include "platform/text/mbcs.h"

namespace {

void Check(bool good) {
    if (!good) {
        std::abort();
    }
}

// The text without the blanks that are characters of their own.
std::string WithoutBlanks(const std::string& text) {
    std::string out;
    for (const char* p = text.c_str(); *p != '\0'; p = kv::_mbsinc(p)) {
        if (*p != ' ') {
            out.append(p, kv::CharBytes(p));
        }
    }
    return out;
}

}  // namespace

// Runs lose nothing but blanks, and the measured line has one cell for each double-byte character
// and each single-byte run.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CStringArray parts;
    CString multi;
    CKVFont().SplitMultiAndSingle(text.c_str(), parts, multi);
    std::string joined;
    std::size_t cells = 0;
    for (int i = 0; i < parts.GetSize(); ++i) {
        const char* part = parts[i];
        joined += part;
        cells += kv::CharCode(part) > 255 ? kv::_mbslen(part) : *part != '\0' ? 1 : 0;
    }
    Check(joined == WithoutBlanks(text.c_str()));
    Check(kv::_mbslen(multi) == cells);

    CString replaced(text.c_str());
    Check(CKVFont().ChBreakChar(replaced, 0xA0) == 1);
    Check(std::string(replaced).find(' ') == std::string::npos);
    return 0;
}
