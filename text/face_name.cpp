#include "text/face_name.h"

#include <cstring>

#include "platform/mbcs.h"

namespace kv::text {

std::string UsableFaceName(const char* name, std::size_t arraySize) {
    const std::string whole(name, strnlen(name, arraySize));
    std::size_t used = 0;
    for (const char* p = whole.c_str(); *p != '\0'; p = _mbsinc(p)) {
        const auto end = static_cast<std::size_t>(_mbsinc(p) - whole.c_str());
        if (end > kFaceNameMax) {
            break;
        }
        used = end;
    }
    return whole.substr(0, used);
}

}  // namespace kv::text
