#pragma once

#include "KVDrawInfo.h"
#include "platform/font.h"
#include "platform/memory.h"

/// The text parameter record. Lengths are final pixels unless a field says otherwise. Drawing
/// writes NextAddress_X and NextAddress_Y and the position in BwDrawInfo; everything else is input.
struct tagKVFONTINFO {
    LONG AntiScale;      ///< enlargement of font and mask: 1, 4, 8, 16; as in BwDrawInfo
    LONG AspectMode;     ///< horizontal lines: 0 widens characters by 1.125, anything else does not
    char FontName[34];   ///< family name, zero-terminated, code page 932; 31 bytes are used
    LONG Size_Height;    ///< character height
    LONG Size_WidthPer;  ///< character width in percent; 0 counts as 100
    LONG Dir;            ///< 0 and 2 horizontal, 1 and 3 vertical
    LONG Space;          ///< extra distance between characters, may be negative
    LONG SpPer;          ///< width of a blank in percent; 0 leaves blanks as the font has them
    LONG Weight;         ///< 0 normal, anything else bold
    LONG Italic;         ///< 0 upright, anything else italic
    LONG Format;         ///< alignment in the area: 0 start, 1 end, 2 centre; anything else as 0
    LONG Eria_Width;     ///< width of the area
    LONG Eria_Height;    ///< height of the area
    LONG FitMode;        ///< 0 as it comes, 1 shrink to the area, 2 shrink or stretch
    LONG FitStrMax_Max;  ///< upper bound of the character width, percent, when a fit stretches
    LONG FitStrMax_Min;  ///< lower bound of the character width, percent, when a fit shrinks
    LONG FitSpMax_Max;   ///< upper bound of the character distance when a fit stretches
    LONG FitSpMax_Min;   ///< lower bound of the character distance when a fit shrinks
    LONG Pos_X;          ///< left end of a horizontal line, left edge of a vertical one
    LONG Pos_Y;          ///< lower edge of a horizontal line's cell, upper end of a vertical line
    LONG NextAddress_X;  ///< column where a following piece of text begins
    LONG NextAddress_Y;  ///< row where a following piece of text begins
    LONG AddressMode;    ///< horizontal lines: 0 start at Pos, anything else at NextAddress
    tagKVBWDRAWINFO BwDrawInfo;  ///< the effects
};

/// One font of a font list. Entry i of a list begins at byte i * 232 of its block.
struct FontEntry {
    DWORD FontType;  ///< the type word that the enumeration delivers
    ENUMLOGFONTA LogFont;
    NEWTEXTMETRICA TextMetric;
};
static_assert(sizeof(FontEntry) == 232);

/// A font list: Count entries of FontEntry in a moveable global block.
struct tagENUMER {
    HGLOBAL Handle;
    LONG Count;
};
