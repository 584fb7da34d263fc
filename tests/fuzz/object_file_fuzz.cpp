#include <cstdint>

#include <CDrawGraph.h>
#include <CDrawText.h>
#include <CImgFile.h>
#include <CKVFrameBuffer.h>

#include "tests/fuzz/drawing_bounds.h"
#include "tests/support/memory_file.h"

namespace {

// What was read is written and read again: nothing may be lost on the way.
template <typename Object>
void ReadTwice(const std::vector<BYTE>& bytes, Object& object) {
    MemoryFile file(bytes);
    object.Read(&file);
    MemoryFile first;
    bool kept = object.Write(&first) == 1;
    first.m_At = 0;
    MemoryFile second;
    Object again;
    kept = kept && again.Read(&first) == 1 && again.Write(&second) == 1 &&
           first.m_Bytes == second.m_Bytes;
    if (!kept) {
        __builtin_trap();
    }
}

void DrawShape(const std::vector<BYTE>& bytes, CKVFrameBuffer& fb) {
    CDrawGraph shape;
    ReadTwice(bytes, shape);
    if (!BoundDrawing(shape)) {
        return;
    }
    try {
        shape.DrawFrame(&fb);
    } catch (const CInvalidArgException&) {
        return;  // too few points for the kind
    }
}

void DrawText(const std::vector<BYTE>& bytes, CKVFrameBuffer& fb) {
    CDrawText text;
    ReadTwice(bytes, text);
    BoundDrawing(text);
    text.DrawFrame(nullptr, &fb);
}

void DrawImage(const std::vector<BYTE>& bytes, CKVFrameBuffer& fb) {
    CImgFile image;
    ReadTwice(bytes, image);
    image.LoadImg();
    image.SetImage(&fb);
    image.DrawFrame(&fb);
}

}  // namespace

// An object file, whole or broken, read by the object that its first bytes name, then drawn.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::vector<BYTE> bytes(data, data + size);
    const BYTE kind = size > 1 ? bytes[1] : BYTE{0};
    CKVFrameBuffer fb(64, 64, 1);
    if (kind == 'G') {
        DrawShape(bytes, fb);
    } else if (kind == 'T') {
        DrawText(bytes, fb);
    } else {
        DrawImage(bytes, fb);
    }
    return 0;
}
