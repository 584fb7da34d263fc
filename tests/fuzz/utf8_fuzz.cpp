#include <cstdint>
#include <cstdlib>
#include <string>

#include <KVUtf8.h>

#include "platform/text/mbcs.h"

// Both directions on any bytes. What one has made, the other takes back to the same bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const CString encoded = KVFromUtf8(text.c_str());
    const std::string decoded = KVToUtf8(encoded);
    if (!(KVFromUtf8(decoded.c_str()) == encoded)) {
        std::abort();
    }
    const std::string direct = KVToUtf8(text.c_str());
    if (kv::_mbslen(KVFromUtf8(direct.c_str())) != kv::_mbslen(text.c_str())) {
        std::abort();
    }
    return 0;
}
