#pragma once

#include "platform/types.h"

/// The effect parameter records, as every drawing object holds them. Colours are 0xKKRRGGBB with K
/// the straight opacity key; lengths are final pixels.

namespace kv {

/// What a layer is painted with: the codes of BodyMode, EdgeMode, ShadMode and tagMAPINFO::Mode.
enum PaintKind : LONG { kColourPaint = 0, kGradientPaint = 1, kTexturePaint = 2 };

/// How a texture lies on its layer: once in the middle, repeated from the top left corner, or
/// scaled to the layer's size.
enum TextureMode : LONG { kCentredTexture = 0, kTiledTexture = 1, kScaledTexture = 2 };

/// Any other number is a soft edge.
enum EdgeType : LONG { kHardEdge = 0 };

/// Any number that is not here is a flat shadow.
enum ShadowType : LONG {
    kFlatShadow = 0,      ///< a copy of what casts it
    kExtrudedShadow = 1,  ///< 3D: smeared along the diagonal from what casts it on
    kSoftShadow = 2       ///< its soft edge
};

}  // namespace kv

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
    LONG Mode;         ///< kv::TextureMode; another number leaves the layer empty
    const char* File;  ///< path of the image; who owns it depends on the record's holder
};

/// What to draw besides the mask: scale, position, edge, shadow and the three layers' paints.
struct tagKVBWDRAWINFO {
    LONG AntiScale;           ///< enlargement of the mask along each axis: 1, 4, 8 or 16
    LONG Pos_X;               ///< frame-buffer column of the body layer's top left pixel
    LONG Pos_Y;               ///< frame-buffer row of the same pixel
    LONG EdgeType_Type;       ///< kv::EdgeType
    LONG EdgeType_Size;       ///< edge radius; 0 and below: no edge
    LONG EdgeType_SoftPen;    ///< stored; the soft edge does not depend on it
    LONG ShadType_Type;       ///< kv::ShadowType
    LONG ShadType_Size;       ///< diagonal distance on both axes, signed; 0: no shadow
    LONG ShadType_SoftSize;   ///< radius of the soft shadow; negative: none
    LONG ShadType_SoftPen;    ///< non-zero: every layer goes in through its coverage
    LONG BodyMode;            ///< paint of the body, a kv::PaintKind
    LONG EdgeMode;            ///< paint of the edge, likewise
    LONG ShadMode;            ///< paint of the shadow, likewise
    DWORD BodyCol;            ///< body colour for kv::kColourPaint
    DWORD EdgeCol;            ///< edge colour for kv::kColourPaint
    DWORD ShadCol;            ///< shadow colour for kv::kColourPaint
    tagGRADINFO BodyGrad;     ///< body gradient for kv::kGradientPaint
    tagGRADINFO EdgeGrad;     ///< edge gradient for kv::kGradientPaint
    tagGRADINFO ShadGrad;     ///< shadow gradient for kv::kGradientPaint
    tagTEXTUREINFO BodyText;  ///< body texture for kv::kTexturePaint
    tagTEXTUREINFO EdgeText;  ///< edge texture for kv::kTexturePaint
    tagTEXTUREINFO ShadText;  ///< shadow texture for kv::kTexturePaint
};

/// One paint source. Only the pointer that Mode selects is read; the caller owns all three targets.
struct tagMAPINFO {
    LONG Mode;  ///< kv::PaintKind
    DWORD* Col;
    tagGRADINFO* Grad;
    tagTEXTUREINFO* Text;
};

static_assert(sizeof(tagGRADINFO) == 24);
