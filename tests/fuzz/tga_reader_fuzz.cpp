#include <CKVTargaImage.h>

#include "tests/fuzz/round_trip.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    MemoryFile file(std::vector<BYTE>(data, data + size));
    CKVFrameBuffer fb;
    CKVTargaImage codec;
    if (codec.LoadImg(&file, &fb) == 0) {
        RoundTrip<CKVTargaImage>(fb, 0);
        RoundTrip<CKVTargaImage>(fb, 1);
    }
    return 0;
}
