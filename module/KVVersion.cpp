// The library's version, from the numbers that the build takes too.

#include "KVVersion.h"

#define DIGITS_OF(number) #number
#define DIGITS(number) DIGITS_OF(number)

const char* KVVersion() {
    return DIGITS(KVDRAW_VERSION_MAJOR) "." DIGITS(KVDRAW_VERSION_MINOR) "." DIGITS(
        KVDRAW_VERSION_PATCH);
}
