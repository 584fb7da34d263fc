// A title with an edge and a soft shadow, saved as a TGA file: title [FILE]

#include <KVDraw.h>

int main(int count, char** arguments) {
    CKVFrameBuffer picture(720, 160, 1);

    CDrawText title;
    title.SetString(KVFromUtf8("春の海 Spring Sea"));
    title.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    title.SetSize(72, 100);
    title.SetPos(40, 116);
    title.SetBodyCol(0xFFFFFFFF);
    title.SetEdgeType(0, 3, 0);
    title.SetEdgeCol(0xFF203080);
    title.SetShadType(2, 4, 8, 0);
    title.SetShadCol(0xC0000000);
    title.DrawFrame(nullptr, &picture);

    return CKVTargaImage().SaveImage(count > 1 ? arguments[1] : "title.tga", &picture, 1);
}
