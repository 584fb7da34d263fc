#pragma once

#include "types.h"

/// The platform's font records. Names are zero-terminated bytes in code page 932.

struct tagLOGFONTA {
    LONG lfHeight;      ///< positive: cell height; negative: em height; 0: a default size
    LONG lfWidth;       ///< average character width; 0: natural
    LONG lfEscapement;  ///< angle of the line, tenths of a degree counter-clockwise
    LONG lfOrientation;
    LONG lfWeight;  ///< 400 normal, 700 bold
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;  ///< 128 for a Japanese face, else 0
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[32];
};
using LOGFONTA = tagLOGFONTA;

struct tagENUMLOGFONTA {
    tagLOGFONTA elfLogFont;
    char elfFullName[64];
    char elfStyle[32];
};
using ENUMLOGFONTA = tagENUMLOGFONTA;

struct tagTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
};
using TEXTMETRICA = tagTEXTMETRICA;

/// The metrics that an enumeration delivers.
struct tagNEWTEXTMETRICA {
    LONG tmHeight;
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    BYTE tmFirstChar;
    BYTE tmLastChar;
    BYTE tmDefaultChar;
    BYTE tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;
    BYTE tmCharSet;
    DWORD ntmFlags;
    UINT ntmSizeEM;
    UINT ntmCellHeight;
    UINT ntmAvgWidth;
};
using NEWTEXTMETRICA = tagNEWTEXTMETRICA;

inline constexpr BYTE SHIFTJIS_CHARSET = 128;

static_assert(sizeof(tagLOGFONTA) == 60);
static_assert(sizeof(tagENUMLOGFONTA) == 156);
static_assert(sizeof(tagNEWTEXTMETRICA) == 72);
