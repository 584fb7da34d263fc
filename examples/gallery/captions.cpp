// Text: faces, weights, spacing, alignment, continuation.

#include "entry.h"

namespace gallery {

static void JapaneseTitle(CKVFrameBuffer& picture) {
    Sky(picture, 720, 150);
    CDrawText title;
    title.SetString(KVFromUtf8("春の海、終日のたり"));
    title.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    title.SetSize(64, 100);
    title.SetPos(40, 110);
    title.SetEdgeType(0, 3, 0);
    title.SetEdgeCol(0xFF302060);
    title.SetShadType(2, 2, 8, 0);
    title.SetShadCol(0xC0000000);
    title.DrawFrame(nullptr, &picture);
}

static void LatinTitle(CKVFrameBuffer& picture) {
    Sky(picture, 720, 150);
    CDrawText title;
    title.SetString("The Spring Sea, 7:30 pm");
    title.SetFontName("Times New Roman");
    title.SetSize(72, 90);
    title.SetPos(30, 110);
    title.SetBodyCol(0xFFFFE9A0);
    title.SetEdgeType(0, 2, 0);
    title.SetEdgeCol(0xFF703010);
    title.SetShadType(0, 4, 0, 0);
    title.SetShadCol(0x80000000);
    title.DrawFrame(nullptr, &picture);
}

static void GothicFace(CKVFrameBuffer& picture) {
    Sky(picture, 720, 120);
    CDrawText title;  // the face that a new object has
    title.SetString(KVFromUtf8("（あーいう）「漢字」ｶﾅ ABC 123"));
    title.SetSize(48, 90);
    title.SetPos(20, 84);
    title.DrawFrame(nullptr, &picture);
}

static void Bold(CKVFrameBuffer& picture) {
    Sky(picture, 720, 210);
    CDrawText title;
    title.SetSize(56, 90);
    title.SetWeight(1);
    title.SetString(KVFromUtf8("太い文字 Bold"));
    title.SetPos(40, 90);
    title.DrawFrame(nullptr, &picture);
    title.SetFontName("Arial");
    title.SetString("Bold Arial 0123");
    title.SetPos(40, 180);
    title.DrawFrame(nullptr, &picture);
}

static void Italic(CKVFrameBuffer& picture) {
    Sky(picture, 720, 210);
    CDrawText title;
    title.SetSize(56, 90);
    title.SetItalic(1);
    title.SetString(KVFromUtf8("斜めの文字 Italic"));
    title.SetPos(40, 90);
    title.DrawFrame(nullptr, &picture);
    title.SetFontName("Times New Roman");
    title.SetString("Italic, of its own face");
    title.SetPos(40, 180);
    title.DrawFrame(nullptr, &picture);
}

static void Spaced(CKVFrameBuffer& picture) {
    Sky(picture, 720, 260);
    CDrawText title;
    title.SetSize(40, 100);
    LONG row = 60;
    for (const LONG space : {-6, 0, 8, 24}) {
        title.SetSpace(space);
        title.SetString(KVFromUtf8("字の間 Space"));
        title.SetPos(30, row);
        title.DrawFrame(nullptr, &picture);
        row += 60;
    }
}

static void Continued(CKVFrameBuffer& picture) {
    Sky(picture, 720, 120);
    CDrawText title;
    title.SetSize(48, 100);
    title.SetPos(30, 84);
    title.SetString(KVFromUtf8("赤い"));
    title.SetBodyCol(0xFFFF5050);
    title.DrawFrame(nullptr, &picture);
    title.SetAddressMode(1);  // go on where the last piece ended
    title.SetString(KVFromUtf8("青い"));
    title.SetBodyCol(0xFF60A0FF);
    title.DrawFrame(nullptr, &picture);
    title.SetString(KVFromUtf8("黄色い line"));
    title.SetBodyCol(0xFFFFE040);
    title.DrawFrame(nullptr, &picture);
}

static void Widths(CKVFrameBuffer& picture) {
    Sky(picture, 720, 240);
    CDrawText title;
    title.SetString(KVFromUtf8("横幅 Width"));
    LONG row = 70;
    for (const LONG percent : {60, 100, 160}) {
        title.SetSize(48, percent);
        title.SetPos(30, row);
        title.DrawFrame(nullptr, &picture);
        row += 70;
    }
}

static void Blanks(CKVFrameBuffer& picture) {
    Sky(picture, 720, 240);
    CDrawText title;
    title.SetFontName("Arial");
    title.SetString("a narrow or a wide blank");
    title.SetSize(44, 90);
    LONG row = 70;
    for (const LONG percent : {50, 100, 220}) {
        title.SetSpPer(percent);
        title.SetPos(30, row);
        title.DrawFrame(nullptr, &picture);
        row += 70;
    }
}

static void Aligned(CKVFrameBuffer& picture) {
    Sky(picture, 720, 240);
    CDrawText title;
    title.SetSize(44, 90);
    title.SetEria(660, 0);
    LONG row = 70;
    for (const LONG format : {0, 2, 1}) {
        title.SetFormat(format);
        title.SetString(KVFromUtf8("左・中央・右"));
        title.SetPos(30, row);
        title.DrawFrame(nullptr, &picture);
        row += 70;
    }
}

static void Scales(CKVFrameBuffer& picture) {
    Sky(picture, 720, 260);
    CDrawText title;
    title.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    title.SetString(KVFromUtf8("拡大して縮める 1/4/8/16"));
    title.SetSize(36, 90);
    LONG row = 60;
    for (const LONG scale : {1, 4, 8, 16}) {
        title.SetAntiScale(scale);
        title.SetPos(30, row);
        title.DrawFrame(nullptr, &picture);
        row += 60;
    }
}

std::span<const Entry> Captions() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(JapaneseTitle, "A Japanese title with edge and soft shadow"),
        GALLERY_ENTRY(LatinTitle, "A Latin title with edge and flat shadow"),
        GALLERY_ENTRY(GothicFace, "The default face: punctuation, half-width kana, Latin"),
        GALLERY_ENTRY(Bold, "Bold: made from the face, and a face of its own"),
        GALLERY_ENTRY(Italic, "Italic: slanted from the face, and a face of its own"),
        GALLERY_ENTRY(Spaced, "Distance between characters"),
        GALLERY_ENTRY(Continued, "One line in three pieces"),
        GALLERY_ENTRY(Widths, "Character width in percent"),
        GALLERY_ENTRY(Blanks, "Width of the blank"),
        GALLERY_ENTRY(Aligned, "Alignment in an area"),
        GALLERY_ENTRY(Scales, "Enlargement of the mask: 1, 4, 8, 16"),
    };
    return kEntries;
}

}  // namespace gallery
