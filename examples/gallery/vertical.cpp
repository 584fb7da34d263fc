// Text: vertical lines, and lines fitted to an area.

#include <initializer_list>

#include "entry.h"

namespace gallery {

// Draws texts as columns from right to left. The place of the next one.
static LONG DrawColumns(CKVFrameBuffer& picture, CDrawText& line, LONG x, LONG step,
                        std::initializer_list<const char*> columns) {
    for (const char* const words : columns) {
        line.SetString(KVFromUtf8(words));
        line.SetPos(x, 16);
        line.DrawFrame(nullptr, &picture);
        x -= step;
    }
    return x;
}

static void VerticalPoem(CKVFrameBuffer& picture) {
    Sky(picture, 720, 480);
    CDrawText line;
    line.SetFontName(KVFromUtf8("ＭＳ 明朝"));
    line.SetDir(1);
    line.SetSize(36, 89);
    line.SetShadType(2, 2, 4, 0);
    line.SetShadCol(0xA0000000);
    const LONG x = DrawColumns(picture, line, 600, 64,
                               {"春はあけぼの。", "やうやう白くなりゆく山ぎは、",
                                "すこしあかりて、", "紫だちたる雲の", "ほそくたなびきたる。"});
    line.SetSize(22, 89);
    line.SetFormat(1);  // at the lower end of its area
    line.SetEria(0, 440);
    DrawColumns(picture, line, x, 0, {"『枕草子』より"});
}

static void VerticalMarks(CKVFrameBuffer& picture) {
    Sky(picture, 720, 520);
    CDrawText line;
    line.SetDir(1);
    line.SetSize(44, 89);
    LONG x = 640;
    for (const char* const face : {"ＭＳ ゴシック", "ＭＳ 明朝"}) {
        line.SetFontName(KVFromUtf8(face));
        x = DrawColumns(
            picture, line, x, 76,
            {"「きゃっ、ホームラン！」", "（あーいう）——はい…。", "【東京・大阪】〜ァィゥ"});
        x -= 100;
    }
}

static void UprightNumbers(CKVFrameBuffer& picture) {
    Sky(picture, 720, 330);
    CDrawText line;
    line.SetSize(40, 89);
    LONG x = 640;
    for (const LONG dir : {3, 1}) {  // each run upright in one cell; all of them on their side
        line.SetDir(dir);
        x = DrawColumns(picture, line, x, 90, {"平成25年12月3日", "第5回 NHK杯", "午後7時45分～"});
        x -= 70;
    }
}

static void SqueezedRuns(CKVFrameBuffer& picture) {
    Sky(picture, 720, 300);
    CDrawText line;
    line.SetDir(3);
    line.SetSize(56, 100);
    DrawColumns(picture, line, 620, 130,
                {"第1回大会", "第12回大会", "第123回会", "西暦2026年", "定価12800円"});
}

static void VerticalStyles(CKVFrameBuffer& picture) {
    Sky(picture, 720, 370);
    CDrawText line;
    line.SetDir(3);
    line.SetSize(48, 89);
    line.SetString(KVFromUtf8("斜めの国、5年。"));
    LONG column = 630;
    for (const char* const face : {"ＭＳ ゴシック", "ＭＳ 明朝"}) {
        line.SetFontName(KVFromUtf8(face));
        for (const LONG style : {0, 1, 2, 3}) {
            line.SetWeight(style & 1);
            line.SetItalic(style & 2);
            line.SetPos(column, 16);
            line.DrawFrame(nullptr, &picture);
            column -= 84;
        }
    }
}

// Outlines an area.
static void DrawArea(CKVFrameBuffer& picture, LONG x, LONG y, LONG width, LONG height) {
    const tagRECT area{x, y, x + width, y + height};
    CDrawGraph box;
    box.SetRect(&area);
    box.SetBodyCol(0xFFFFE040);
    box.DrawFrame(&picture);
}

static void FittedRows(CKVFrameBuffer& picture) {
    Sky(picture, 720, 420);
    CDrawText line;
    line.SetFitMode(2);
    line.SetFitSpMax(60, -3);    // distance first, in pixels,
    line.SetFitStrMax(180, 50);  // then width, in percent
    LONG row = 60;
    for (const LONG dir : {0, 2}) {
        line.SetDir(dir);
        for (const char* const words :
             {"箱の幅", "箱の幅に合わせる", "長い文字列も箱の幅に合わせる"}) {
            line.SetString(KVFromUtf8(words));
            line.SetSize(36, 100);
            line.SetPos(160, row);
            line.SetEria(400, 0);
            line.DrawFrame(nullptr, &picture);
            DrawArea(picture, 160, row - 40, 400, 44);
            row += 62;
        }
    }
}

static void FittedColumns(CKVFrameBuffer& picture) {
    Sky(picture, 720, 420);
    CDrawText line;
    line.SetFitMode(2);
    line.SetFitSpMax(60, -3);
    line.SetFitStrMax(180, 50);
    LONG column = 630;
    for (const LONG dir : {1, 3}) {
        line.SetDir(dir);
        for (const char* const words :
             {"第7回", "平成25年、春", "長い文字列も箱の高さに合わせる12月"}) {
            line.SetString(KVFromUtf8(words));
            line.SetSize(36, 100);
            line.SetPos(column, 30);
            line.SetEria(0, 360);
            line.DrawFrame(nullptr, &picture);
            DrawArea(picture, column - 2, 30, 44, 360);
            column -= 100;
        }
        column -= 20;
    }
}

std::span<const Entry> Vertical() {
    static constexpr Entry kEntries[] = {
        GALLERY_ENTRY(VerticalPoem, "Vertical lines, the last one at the lower end of its area"),
        GALLERY_ENTRY(VerticalMarks, "Punctuation, small kana, brackets and long vowel marks"),
        GALLERY_ENTRY(UprightNumbers, "Numbers set upright in one cell, and on their side"),
        GALLERY_ENTRY(SqueezedRuns, "Numbers too wide for a cell are squeezed into it"),
        GALLERY_ENTRY(VerticalStyles, "Bold, italic and both"),
        GALLERY_ENTRY(FittedRows, "Stretched and shrunk to a width, by both forms of the fit"),
        GALLERY_ENTRY(FittedColumns, "Stretched and shrunk to a height, by both vertical forms"),
    };
    return kEntries;
}

}  // namespace gallery
