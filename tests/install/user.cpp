// A user's program: draws through the installed library, prints its version, and tells whether
// anything was drawn.

#include <cstdio>

#include <KVDraw.h>

int main() {
    std::puts(KVVersion());
    CKVFrameBuffer picture(320, 120, 1);
    CDrawText title;
    title.SetString(KVFromUtf8("題 Title"));
    title.SetPos(10, 100);
    title.DrawFrame(nullptr, &picture);
    for (DWORD i = 0; i < picture.GetWidth() * picture.GetHeight(); ++i) {
        if (picture.GetBufferDWord()[i] >> 24 == 255) {
            return 0;
        }
    }
    return 1;
}
