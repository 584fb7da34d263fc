#include <CKVPictImage.h>

#include "tests/fuzz/round_trip.h"

namespace {

// A file. The preamble, which nobody reads, is not part of the input.
void ReadFile(const std::vector<BYTE>& input) {
    std::vector<BYTE> bytes(512);
    bytes.insert(bytes.end(), input.begin(), input.end());
    MemoryFile file(bytes);
    CKVFrameBuffer fb;
    if (CKVPictImage().LoadImg(&file, &fb) == 0 && fb.m_Width <= 8191 && fb.m_Size < 1 << 22) {
        RoundTrip<CKVPictImage>(fb, 0);
    }
}

// A decoder by itself: its number, width, height, two bytes of row length, rows.
void Decode(const std::vector<BYTE>& input) {
    using Decoder = int (CKVPictImage::*)(const BYTE*, BYTE*, DWORD, DWORD, DWORD, DWORD);
    constexpr Decoder kDecoders[] = {&CKVPictImage::ImgConv_Comp32, &CKVPictImage::ImgConv_Comp24,
                                     &CKVPictImage::ImgConv_Comp16};
    if (input.size() < 5) {
        return;
    }
    const DWORD width = input[1];
    const DWORD height = input[2];
    const DWORD rowBytes = input[3] | DWORD{input[4]} << 8;
    std::vector<BYTE> pixels(std::size_t{width} * height * 4);
    const std::vector<BYTE> rows(input.begin() + 5, input.end());  // its end is guarded
    CKVPictImage codec;
    (codec.*kDecoders[input[0] % 3])(rows.data(), pixels.data(), width, height,
                                     static_cast<DWORD>(rows.size()), rowBytes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<BYTE> input(data, data + size);
    ReadFile(input);
    Decode(input);
    return 0;
}
