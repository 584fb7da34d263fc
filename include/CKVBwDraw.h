#pragma once

#include "CBox.h"
#include "KVDrawInfo.h"
#include "platform/export.h"

class CKVFrameBuffer;
class CKVGrayBitmap;
class CKVMonoBitmap;

/// The render engine: from a one-bit mask and an effect record to a picture of body, edge and
/// shadow. All lengths are final pixels; coverage is 0 none to 255 full. Results are 0 done, -1
/// failed. It holds no lock and keeps nothing between calls but its two pointers: one object serves
/// one call at a time, several objects may render in parallel, also into one frame buffer.
class KVDRAW_API CKVBwDraw {
  public:
    CKVFrameBuffer* m_pFb = nullptr;     ///< target of the last render call, not owned
    tagKVBWDRAWINFO* m_pInfo = nullptr;  ///< record of the last render call, not owned

    CKVBwDraw() = default;
    CKVBwDraw(const CKVBwDraw&) = default;
    CKVBwDraw& operator=(const CKVBwDraw&) = default;
    virtual ~CKVBwDraw() = default;

    /// Renders into fb with the mask's top left corner at (Pos_X, Pos_Y). On success *box is the
    /// part of fb that was touched. -1 for an unknown AntiScale or BodyMode, or when there is no
    /// memory for the body; then fb and *box are as before. An edge or shadow that cannot be made
    /// is left out. No pointer may be null.
    int DispFb(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info, const CKVMonoBitmap* mask, CBox* box);

    /// Renders by itself into fb, which is replaced by a surface made to fit (empty when that has
    /// no size or cannot be had). eria gets that surface's place in the scene; body, edge and shad
    /// get the layers' places within it, all 0 for a layer that was not made. Failures as for
    /// DispFb: nothing is changed.
    int SetFb(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info, const CKVMonoBitmap* mask, CBox& eria,
              CBox& body, CBox& edge, CBox& shad);

    /// Builds into fb, which is replaced, the picture source with the record's edge and shadow
    /// around what its keys show. The record's AntiScale and body paint have no part. The boxes and
    /// fb's size are those of SetFb, the picture being the body. fb may be source. An edge or
    /// shadow that cannot be made is left out; an empty source makes fb empty. 0, or -1 with
    /// nothing changed when a pointer is null. source is read in part without its lock: no other
    /// thread may change it.
    int SetImgEdgeShadow(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info, const CKVFrameBuffer* source,
                         CBox& eria, CBox& body, CBox& edge, CBox& shad);

    /// The same, but fb gets source's size: the picture stays at (0, 0), what lies around it is cut
    /// off. The boxes tell the uncut arrangement.
    int SetFullImgEdgeShadow(CKVFrameBuffer* fb, tagKVBWDRAWINFO* info,
                             const CKVFrameBuffer* source, CBox& eria, CBox& body, CBox& edge,
                             CBox& shad);

    /// Copies the picture's keys to a coverage of its size, replacing what coverage held; an empty
    /// picture leaves it empty. -1 when a pointer is null or memory runs out. Takes no lock.
    int KeyToGray(const CKVFrameBuffer* fb, CKVGrayBitmap* coverage);

    /// Reduces a mask enlarged scale times (1, 4, 8 or 16) to coverage, replacing what coverage
    /// held: Pitch * 8 / scale columns and Height / scale rows. A mask smaller than one final pixel
    /// leaves coverage empty with the result 0; another scale leaves it empty with -1.
    int MakeAntiGray(int scale, const CKVMonoBitmap* mask, CKVGrayBitmap* coverage);

    /// Makes fb a new surface of coverage's size, painted with the colour through the coverage: the
    /// key is scaled by it, uncovered pixels are 0. -1 when a pointer is null or memory runs out.
    int MakeFb_Color(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb, const DWORD* colour);

    /// The same with a gradient: the ramp over the whole layer, then its key scaled by the
    /// coverage. grad's x and y are pixels of this layer. Results as MakeFb_Color; grad null
    /// gives -1.
    int MakeFb_Grad(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb, const tagGRADINFO* grad);

    /// The same with a picture from a file, which is read anew at each call: by Mode once in the
    /// middle with solid black around it (0), repeated from the top left corner (1), or scaled to
    /// the layer (2); another Mode leaves the layer 0. The picture's own key shapes the layer, too.
    /// A file that cannot be read shows as solid black and is no failure. Results as MakeFb_Color;
    /// texture null gives -1.
    int MakeFb_Text(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb,
                    const tagTEXTUREINFO* texture);

    /// Paints by map->Mode through one of the three above and gives its result; -1 with nothing
    /// changed for another Mode or a null map.
    int GrayToFb(const CKVGrayBitmap* coverage, CKVFrameBuffer* fb, const tagMAPINFO* map);

    /// Writes a bare ramp to width * height pixels, row after row without padding: col2 where the
    /// distance is 0, toward col1 with growing distance, each byte by itself modulo 256 (a distance
    /// beyond the ramp's length wraps). patern 1 to 10 is the type; with (x, y) inside the layer it
    /// is that + 100, and 0 becomes 100. Any other patern is the horizontal ramp of length width.
    /// Nothing is written for a null pixels or a size below 1. Always 0.
    int Pis_Grad_Paint(DWORD* pixels, int width, int height, int x, int y, DWORD col1, DWORD col2,
                       int patern);

    /// Length and centre of a ramp between inclusive bounds, in pixels. *length, held to the range
    /// of int, is always written; *centreX and *centreY for the types 4 to 10 (the middle) and 104
    /// to 110 (the given point) only, and may be null for others. Types 100 to 103 take their
    /// length from the given point; any type without a rule is the horizontal ramp. Always 0.
    int Pis_Grad_Paint_Set1(int type, int x, int y, int left, int top, int right, int bottom,
                            int* centreX, int* centreY, int* length);

    /// *distance becomes the distance of the pixel (posX, posY), 0 at col2 and negative toward
    /// col1. centreX and centreY are read for the types that have a centre. Always 0.
    int Pis_Grad_Paint_Conv(int type, int posX, int posY, int left, int top, int right, int bottom,
                            int centreX, int centreY, double* distance);

    /// Makes target the source grown by size, with its origin size pixels left of and above the
    /// source's: 2 * size more columns than the source's Pitch, 2 * size more rows. type 0 is the
    /// hard form, any other the soft one. -1 with target unchanged when size is below 1, source
    /// empty, or both the same bitmap; -1 when memory runs out.
    int MakeEdge(int type, int size, int softPen, const CKVGrayBitmap* source,
                 CKVGrayBitmap* target);

    /// Grey-scale dilation with a disc of radius size: each target pixel becomes the greatest of
    /// what it holds and the source pixels whose disc covers it. The target's origin lies size
    /// pixels left of and above the source's. -1 with target unchanged when target has not room for
    /// 2 * size more columns and rows than source, when size is negative, or when memory runs out.
    int GrayMakeNomEdge(int size, const CKVGrayBitmap* source, CKVGrayBitmap* target);

    /// Falloff around every source pixel that is not 0: each target pixel at distance d < size
    /// from the nearest becomes at least 255 * (size - d) / size. Geometry and failures as for
    /// GrayMakeNomEdge. softPen has no effect.
    int GrayMakeSoftEdge(int size, int softPen, const CKVGrayBitmap* source, CKVGrayBitmap* target);

    /// Fills a table of size rows of size bytes with a radial brush: 255 within (pen - 1) / 2 of
    /// the middle, falling to 0 at size / 2. A pen from -254 to -1 dims the brush. Always 0.
    int FilterBlush(unsigned char* brush, int size, int pen);

    /// Makes the shadow coverage target from source: type 1 an extrusion over |size| steps, type 2
    /// the soft edge with radius softSize, any other a copy. -1 with target unchanged when source
    /// is empty, softSize negative for type 2, or both the same bitmap; -1 when memory runs out.
    int MakeShadow(int type, int size, int softSize, int softPen, const CKVGrayBitmap* source,
                   CKVGrayBitmap* target);

    /// Smears the source along the down-right diagonal over size steps into target, which keeps
    /// what is greater. target must have size - 1 more columns and rows than source, else -1. A
    /// size below 1 (taken as signed) does nothing.
    int Make3DShadow(DWORD size, const CKVGrayBitmap* source, CKVGrayBitmap* target);
};
