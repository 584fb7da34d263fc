#pragma once

#include "platform/types.h"

/// The effect parameter records, as every drawing object holds them. Colours are 0xKKRRGGBB with K
/// the straight opacity key; lengths are final pixels.

/// A two-colour gradient.
struct tagGRADINFO {
    LONG Mode;    ///< stored and read back; painting does not read it
    LONG Patern;  ///< 1 to 10; any other value paints a left-to-right ramp
    LONG x;       ///< centre column within the painted layer; outside the layer: no centre
    LONG y;       ///< centre row within the painted layer
    DWORD Col1;   ///< colour of the ramp's far end
    DWORD Col2;   ///< colour of the ramp's start
};

/// A texture from an image file.
struct tagTEXTUREINFO {
    LONG Mode;         ///< 0 once and centred, 1 tiled from the top left, 2 scaled to the layer
    const char* File;  ///< path of the image; who owns it depends on the record's holder
};

/// What to draw besides the mask: scale, position, edge, shadow and the three layers' paints.
struct tagKVBWDRAWINFO {
    LONG AntiScale;           ///< enlargement of the mask along each axis: 1, 4, 8 or 16
    LONG Pos_X;               ///< frame-buffer column of the body layer's top left pixel
    LONG Pos_Y;               ///< frame-buffer row of the same pixel
    LONG EdgeType_Type;       ///< 0 hard edge, anything else soft edge
    LONG EdgeType_Size;       ///< edge radius; 0 and below: no edge
    LONG EdgeType_SoftPen;    ///< stored; the soft edge does not depend on it
    LONG ShadType_Type;       ///< 0 flat, 1 3D, 2 soft; anything else acts as 0
    LONG ShadType_Size;       ///< diagonal distance on both axes, signed; 0: no shadow
    LONG ShadType_SoftSize;   ///< radius of the soft shadow (type 2); negative: none
    LONG ShadType_SoftPen;    ///< non-zero: every layer goes in through its coverage
    LONG BodyMode;            ///< paint of the body: 0 colour, 1 gradient, 2 texture
    LONG EdgeMode;            ///< paint of the edge, same codes
    LONG ShadMode;            ///< paint of the shadow, same codes
    DWORD BodyCol;            ///< body colour for mode 0
    DWORD EdgeCol;            ///< edge colour for mode 0
    DWORD ShadCol;            ///< shadow colour for mode 0
    tagGRADINFO BodyGrad;     ///< body gradient for mode 1
    tagGRADINFO EdgeGrad;     ///< edge gradient for mode 1
    tagGRADINFO ShadGrad;     ///< shadow gradient for mode 1
    tagTEXTUREINFO BodyText;  ///< body texture for mode 2
    tagTEXTUREINFO EdgeText;  ///< edge texture for mode 2
    tagTEXTUREINFO ShadText;  ///< shadow texture for mode 2
};

/// One paint source. Only the pointer that Mode selects is read; the caller owns all three targets.
struct tagMAPINFO {
    LONG Mode;  ///< 0 colour, 1 gradient, 2 texture
    DWORD* Col;
    tagGRADINFO* Grad;
    tagTEXTUREINFO* Text;
};

static_assert(sizeof(tagGRADINFO) == 24);
