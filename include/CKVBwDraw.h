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

    /// Renders into pFb with the mask's top left corner at (Pos_X, Pos_Y). On success *pBox is the
    /// part of pFb that was touched. -1 for an unknown AntiScale or BodyMode, or when there is no
    /// memory for the body; then pFb and *pBox are as before. An edge or shadow that cannot be made
    /// is left out. No pointer may be null.
    int DispFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono, CBox* pBox);

    /// Renders by itself into pFb, which is replaced by a surface made to fit (empty when that has
    /// no size or cannot be had). Eria gets that surface's place in the scene; Body, Edge and Shad
    /// get the layers' places within it, all 0 for a layer that was not made. Failures as for
    /// DispFb: nothing is changed.
    int SetFb(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVMonoBitmap* pMono, CBox& Eria,
              CBox& Body, CBox& Edge, CBox& Shad);

    /// Builds into pFb, which is replaced, the picture pSrc with the record's edge and shadow
    /// around what its keys show. The record's AntiScale and body paint have no part. The boxes and
    /// pFb's size are those of SetFb, the picture being the body. pFb may be pSrc. An edge or
    /// shadow that cannot be made is left out; an empty pSrc makes pFb empty. 0, or -1 with nothing
    /// changed when a pointer is null. pSrc is read in part without its lock: no other thread may
    /// change it.
    int SetImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo, const CKVFrameBuffer* pSrc,
                         CBox& Eria, CBox& Body, CBox& Edge, CBox& Shad);

    /// The same, but pFb gets pSrc's size: the picture stays at (0, 0), what lies around it is cut
    /// off. The boxes tell the uncut arrangement.
    int SetFullImgEdgeShadow(CKVFrameBuffer* pFb, tagKVBWDRAWINFO* pInfo,
                             const CKVFrameBuffer* pSrc, CBox& Eria, CBox& Body, CBox& Edge,
                             CBox& Shad);

    /// Copies the picture's keys to a coverage of its size, replacing what pGray held; an empty
    /// picture leaves it empty. -1 when a pointer is null or memory runs out. Takes no lock.
    int KeyToGray(const CKVFrameBuffer* pFb, CKVGrayBitmap* pGray);

    /// Reduces a mask enlarged Scale times (1, 4, 8 or 16) to coverage, replacing what pGray held:
    /// Pitch * 8 / Scale columns and Height / Scale rows. A mask smaller than one final pixel
    /// leaves pGray empty with the result 0; another Scale leaves it empty with -1.
    int MakeAntiGray(int Scale, const CKVMonoBitmap* pMono, CKVGrayBitmap* pGray);

    /// Makes pFb a new surface of pGray's size, painted with the colour through the coverage: the
    /// key is scaled by it, uncovered pixels are 0. -1 when a pointer is null or memory runs out.
    int MakeFb_Color(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const DWORD* pCol);

    /// The same with a gradient: the ramp over the whole layer, then its key scaled by the
    /// coverage. pGrad's x and y are pixels of this layer. Results as MakeFb_Color; pGrad null
    /// gives -1.
    int MakeFb_Grad(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagGRADINFO* pGrad);

    /// The same with a picture from a file, which is read anew at each call: by Mode once in the
    /// middle with solid black around it (0), repeated from the top left corner (1), or scaled to
    /// the layer (2); another Mode leaves the layer 0. The picture's own key shapes the layer, too.
    /// A file that cannot be read shows as solid black and is no failure. Results as MakeFb_Color;
    /// pText null gives -1.
    int MakeFb_Text(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagTEXTUREINFO* pText);

    /// Paints by pMap->Mode through one of the three above and gives its result; -1 with nothing
    /// changed for another Mode or a null pMap.
    int GrayToFb(const CKVGrayBitmap* pGray, CKVFrameBuffer* pFb, const tagMAPINFO* pMap);

    /// Writes a bare ramp to Width * Height pixels, row after row without padding: Col2 where the
    /// distance is 0, toward Col1 with growing distance, each byte by itself modulo 256 (a distance
    /// beyond the ramp's length wraps). Patern 1 to 10 is the type; with (x, y) inside the layer it
    /// is that + 100, and 0 becomes 100. Any other Patern is the horizontal ramp of length Width.
    /// Nothing is written for a null pPixels or a size below 1. Always 0.
    int Pis_Grad_Paint(DWORD* pPixels, int Width, int Height, int x, int y, DWORD Col1, DWORD Col2,
                       int Patern);

    /// Length and centre of a ramp between inclusive bounds, in pixels. *pLen, held to the range of
    /// int, is always written; *pCx and *pCy for the types 4 to 10 (the middle) and 104 to 110 (the
    /// given point) only, and may be null for others. Types 100 to 103 take their length from the
    /// given point; any type without a rule is the horizontal ramp. Always 0.
    int Pis_Grad_Paint_Set1(int Type, int x, int y, int Left, int Top, int Right, int Bottom,
                            int* pCx, int* pCy, int* pLen);

    /// *pOut becomes the distance of the pixel (PosX, PosY), 0 at Col2 and negative toward Col1.
    /// Cx and Cy are read for the types that have a centre. Always 0.
    int Pis_Grad_Paint_Conv(int Type, int PosX, int PosY, int Left, int Top, int Right, int Bottom,
                            int Cx, int Cy, double* pOut);

    /// Makes pDst the source grown by Size, with its origin Size pixels left of and above the
    /// source's: 2 * Size more columns than the source's Pitch, 2 * Size more rows. Type 0 is the
    /// hard form, any other the soft one. -1 with pDst unchanged when Size is below 1 or pSrc
    /// empty, -1 when memory runs out.
    int MakeEdge(int Type, int Size, int SoftPen, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst);

    /// Grey-scale dilation with a disc of radius Size: each target pixel becomes the greatest of
    /// what it holds and the source pixels whose disc covers it. The target's origin lies Size
    /// pixels left of and above the source's. -1 with pDst unchanged when pDst has not room for 2 *
    /// Size more columns and rows than pSrc, when Size is negative, or when memory runs out.
    int GrayMakeNomEdge(int Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst);

    /// Falloff around every source pixel that is not 0: each target pixel at distance d < Size
    /// from the nearest becomes at least 255 * (Size - d) / Size. Geometry and failures as for
    /// GrayMakeNomEdge. SoftPen has no effect.
    int GrayMakeSoftEdge(int Size, int SoftPen, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst);

    /// Fills a table of Size rows of Size bytes with a radial brush: 255 within (Pen - 1) / 2 of
    /// the middle, falling to 0 at Size / 2. A Pen from -254 to -1 dims the brush. Always 0.
    int FilterBlush(unsigned char* pBuf, int Size, int Pen);

    /// Makes the shadow coverage pDst from pSrc: Type 1 an extrusion over |Size| steps, Type 2 the
    /// soft edge with radius SoftSize, any other a copy. -1 when pSrc is empty, SoftSize is
    /// negative for Type 2 (pDst unchanged in both), or memory runs out.
    int MakeShadow(int Type, int Size, int SoftSize, int SoftPen, const CKVGrayBitmap* pSrc,
                   CKVGrayBitmap* pDst);

    /// Smears the source along the down-right diagonal over Size steps into pDst, which keeps what
    /// is greater. pDst must have Size - 1 more columns and rows than pSrc, else -1. A Size below 1
    /// (taken as signed) does nothing.
    int Make3DShadow(DWORD Size, const CKVGrayBitmap* pSrc, CKVGrayBitmap* pDst);
};
