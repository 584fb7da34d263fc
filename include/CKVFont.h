#pragma once

#include "CBox.h"
#include "CKVFrameBuffer.h"
#include "CKVMonoBitmap.h"
#include "KVFontInfo.h"
#include "platform/string.h"

/// Text layout: turns a string and a parameter record into a one-bit mask and its position, and the
/// two into a picture. Stateless; a record serves one thread at a time. Strings are code page 932
/// (KVFromUtf8 makes them from UTF-8); a null string is an empty one. A window handle may be null.
class KVDRAW_API CKVFont {
  public:
    CKVFont() = default;
    CKVFont(const CKVFont&) = default;
    CKVFont& operator=(const CKVFont&) = default;
    virtual ~CKVFont();

    /// The logical description of the first font of the named family. 0: *out filled; -1: no
    /// memory; -2: no such font. *out is unchanged on failure.
    int GetFontLogfont(HWND window, const char* name, tagLOGFONTA* out);

    /// One font of each family. 0: *list filled; -1: no memory, Handle null. The caller owns the
    /// block: it reads it between GlobalLock and GlobalUnlock and releases it with GlobalFree.
    int GetAllFontList(HWND window, tagENUMER* list);

    /// Replaces every blank by a font's break character. 1 replaced, 0 the break character is the
    /// blank itself, -1 it is above 255; the text is then unchanged.
    int ChBreakChar(CString& text, wchar_t breakChar);

    /// Cuts a text into runs of double-byte and of single-byte characters, blanks dropped: appended
    /// to parts. Appends to multi each double-byte character and, for each single-byte run, one
    /// white circle. An empty text gives one empty run.
    void SplitMultiAndSingle(const char* text, CStringArray& parts, CString& multi);

    /// Lays out one horizontal line at a fixed size. The mask is emptied and refilled, in enlarged
    /// pixels; *pos is its top left corner in final pixels; the continuation point goes to the
    /// record. Always 0. An enlargement other than 1, 4, 8, 16 gives no mask, Pos_X and Pos_Y, and
    /// leaves the continuation; a mask that cannot be had stays empty.
    int NomDispBwBmpH(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                      tagPOINT* pos);

    /// One vertical line at a fixed size, from Pos_X and Pos_Y downward: the line turned clockwise,
    /// double-byte characters of a Japanese face upright in their vertical forms, single-byte ones
    /// on their side. Otherwise as NomDispBwBmpH.
    int NomDispBwBmpV(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                      tagPOINT* pos);
    /// The same with each run of single-byte characters upright in one cell of the line, squeezed
    /// or centred; blanks are left out.
    int NomDispBwBmpV2(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                       tagPOINT* pos);

    /// One horizontal line fitted to Eria_Width: first by the distance between characters, then by
    /// their width, each as far as its bounds in the record allow. A FitMode other than 2 shrinks
    /// only. The line is drawn as long as it then is, and the continuation is Pos_X plus that
    /// length. The new width starts from the widened font, so that Size_WidthPer acts twice.
    /// Otherwise as NomDispBwBmpH.
    int FitDispBwBmpH(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                      tagPOINT* pos);
    /// The same with the new width counted from the natural one, and its percent rounded.
    int FitDispBwBmpH2(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                       tagPOINT* pos);
    /// NomDispBwBmpV fitted to Eria_Height, as FitDispBwBmpH. The thickness of the line stays.
    int FitDispBwBmpV(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                      tagPOINT* pos);
    /// NomDispBwBmpV2 fitted to Eria_Height; the character width has no bounds here.
    int FitDispBwBmpV2(HWND window, tagKVFONTINFO* info, const char* text, CKVMonoBitmap* mask,
                       tagPOINT* pos);

    /// Draws a line into fb with all its effects; *box receives the touched rectangle. Always 0:
    /// what cannot be drawn is left undrawn. Dir and FitMode choose the layout: 0, 1, 2 and 3 are
    /// H, V, H and V2, or where FitMode is not 0 the fitted H, V, H2 and V2. Nothing is drawn, and
    /// the effect record keeps its position, for any other Dir.
    int FontFbDisp(HWND window, tagKVFONTINFO* info, const char* text, CKVFrameBuffer* fb,
                   CBox* box);

    /// Draws a line by itself into fb, which is replaced by a buffer made to fit. The four boxes
    /// are those of CKVBwDraw::SetFb. Always 0.
    int FontFbSet(HWND window, tagKVFONTINFO* info, const char* text, CKVFrameBuffer* fb,
                  CBox& eria, CBox& body, CBox& edge, CBox& shad);
};
