#pragma once

#include "CBox.h"
#include "CKVGrayBitmap.h"
#include "KVBufferLock.h"
#include "platform/bitmap_header.h"
#include "platform/export.h"
#include "platform/geometry.h"
#include "platform/types.h"

struct tagKVBWDRAWINFO;

/// The library's one picture type: a rectangle of 32-bit pixels that it owns.
///
/// A pixel is the bytes blue, green, red, key in memory, 0xKKRRGGBB as a little-endian DWORD;
/// colours given as DWORD have the same layout. The key is the pixel's opacity, straight, not
/// multiplied into the colour: 255 solid, 0 transparent. Rows run top down without padding, so
/// pixel (x, y) is at index y * width + x; the first pixel lies on a 128-byte boundary.
///
/// A surface is empty or has a store. With a store width and height are at least 1; without one all
/// sizes and pointers are 0.
///
/// Any thread may call any operation. Storage, copying and assignment take the surface's lock by
/// themselves (shared on a source first, exclusive on a destination second); the accessors take
/// none, so hold the lock while working on pixels that other threads can reach. Operations that
/// cross (A to B and B to A) must not run at the same moment on different threads.
class KVDRAW_API CKVFrameBuffer {
  public:
    void* m_Alloc = nullptr;       ///< the allocated block; null without a store
    mutable LONG m_ReadCount = 0;  ///< shared holds now open; read it under the exclusive hold only
    mutable KVBufferLock m_BufferLock{m_ReadCount};
    BYTE* m_BufferByte = nullptr;    ///< first pixel, or null
    DWORD* m_BufferDWord = nullptr;  ///< the same address
    DWORD m_Size = 0;                ///< bytes of the pixels: width * height * 4
    LONG m_Width = 0;                ///< pixels
    LONG m_Height = 0;               ///< pixels
    LONG m_Invert = 1;               ///< always 1

    /// An empty surface.
    CKVFrameBuffer() = default;

    /// Creates a store as UnlockCreateFrameBuffer does; stays empty if that fails.
    CKVFrameBuffer(LONG width, LONG height, int clear);

    /// Copies size and pixels; stays empty if other is empty or memory cannot be had.
    CKVFrameBuffer(const CKVFrameBuffer& other);

    /// Releases the store, then copies as the copy constructor does. A surface assigned to itself
    /// does not change.
    CKVFrameBuffer& operator=(const CKVFrameBuffer& other);

    virtual ~CKVFrameBuffer();

    /// Makes a store. Any clear but 0 fills it with transparent black; with 0 the pixels are not
    /// defined. 0 done, 1 a store exists already (nothing changes), 2 no memory or a size whose
    /// bytes do not fit 32 bits (stays empty), 4 width or height below 1.
    int CreateFrameBuffer(LONG width, LONG height, int clear);

    /// The same for callers inside the exclusive hold, which it takes once more; clears only when
    /// clear is exactly 1.
    int UnlockCreateFrameBuffer(LONG width, LONG height, int clear);

    /// Releases the store. 0 done, 3 there was none.
    int DeleteFrameBuffer();

    /// The same without taking a hold, for callers that have the exclusive one.
    int UnlockDeleteFrameBuffer();

    /// Holds on the pixels; see KVBufferLock for what passes and what waits.
    void ReadLock() const { m_BufferLock.ReadLock(); }
    void ReadUnlock() const { m_BufferLock.ReadUnlock(); }
    void WriteLock() { m_BufferLock.WriteLock(); }
    void WriteUnlock() { m_BufferLock.WriteUnlock(); }

    BYTE* GetBufferByte() { return m_BufferByte; }
    const BYTE* GetBufferByte() const { return m_BufferByte; }
    DWORD* GetBufferDWord() { return m_BufferDWord; }
    const DWORD* GetBufferDWord() const { return m_BufferDWord; }
    DWORD GetWidth() const { return static_cast<DWORD>(m_Width); }
    DWORD GetHeight() const { return static_cast<DWORD>(m_Height); }
    CSize GetWH() const { return {m_Width, m_Height}; }
    DWORD GetLineByte() const { return GetWidth() * 4; }  ///< bytes a row
    DWORD GetSize() const { return m_Size; }              ///< bytes of all pixels
    int GetInvert() const { return m_Invert; }            ///< always 1
    WORD GetBitCount() const { return 32; }

    /// 1 when there is NO store, 0 when there is one.
    int IsBuffer() const { return m_Alloc == nullptr ? 1 : 0; }

    /// Copies the rectangle (sx, sy, w, h) of src to (dx, dy) of this surface, cut to both. A
    /// negative destination origin cuts the picture where it stands; a negative source origin only
    /// shortens it, so that what is left lands at (dx, dy). mode below 1 replaces pixels, key
    /// included; 1 and above blends by the source's key. src may be this surface: pixels then go
    /// one by one, top to bottom and left to right, and what has been written is read again.
    ///
    /// 0 done, and box (may be null) receives the destination rectangle that was touched; -1 for a
    /// null src, a surface without a store or nothing left to copy, with box unchanged.
    int FbCopy(const CKVFrameBuffer* src, LONG sx, LONG sy, LONG w, LONG h, LONG dx, LONG dy,
               LONG mode, CBox* box);

    /// The same through a coverage mask that lies over src, at src's coordinates; beyond its edges
    /// it counts as 0. The mask takes away from the destination, it does not weaken the source: at
    /// 255 the source pixel replaces, at 0 it only fills what the destination's key leaves free.
    /// Results as FbCopy; -1 for a null mask too. The mask has no lock: no other thread may change
    /// it.
    int FbCopyMask(const CKVFrameBuffer* src, const CKVGrayBitmap* mask, LONG sx, LONG sy, LONG w,
                   LONG h, LONG dx, LONG dy, CBox* box);

    /// CKVBwDraw::SetImgEdgeShadow with this surface as the source: replaces target, which may be
    /// this surface, by the picture with its edge and shadow, made to fit. -1 when a pointer is
    /// null.
    int SetEdge(CKVFrameBuffer* target, tagKVBWDRAWINFO* info, CBox& eria, CBox& body, CBox& edge,
                CBox& shad) const;

    /// The same within the picture's own size; what lies outside is cut off.
    int SetEdgeOrgSize(CKVFrameBuffer* target, tagKVBWDRAWINFO* info) const;

    /// Writes the picture as 24-bit rows (blue, green, red) padded to 4 bytes; padding bytes are
    /// left alone. The bottom row comes first unless topDown is not 0. dst must hold (width * 24 +
    /// 31) / 32 * 4 bytes a row. header may be null; its height is negative when topDown is
    /// exactly 1. 0 done, -1 for a null dst or no store.
    int CopyBitmap24(BYTE* dst, tagBITMAPINFOHEADER* header, int topDown) const;

    // Operations on every pixel. Each takes the exclusive hold and does nothing without a store.

    /// Transparent black everywhere.
    void Clear();

    /// colour, key included, everywhere.
    void ClearCol(DWORD colour);

    /// A check pattern of two solid colours, whatever their keys: cells of cell.x by cell.y pixels,
    /// each at least 2, color1 at the upper left.
    void ClearCross(tagPOINT cell, DWORD color1, DWORD color2);

    /// Tints the picture: each channel becomes floor(Y * channel of colour / 255), where Y is the
    /// pixel's luminance (R * 19661 + G * 38666 + B * 7209 + 32768) >> 16. Keys stay; that of
    /// colour is not used.
    void ImageChColor(DWORD colour);

    /// Key 0 everywhere; the colours stay.
    void ClearKey();

    /// Makes the key from the luminance Y: 0 up to low, then floor((Y - low) * 255 / (range + 1))
    /// up to low + range, 255 above. The colours stay.
    void MakeLuminanceKey(DWORD low, DWORD range);

    /// One pixel over another by its key, as FbCopy blends, except that a transparent src never
    /// changes dst. Uses no surface.
    static DWORD CopyKeyPixcel(DWORD src, DWORD dst);

    /// Makes a picture of the key in target, whose store is replaced: all four bytes of a pixel are
    /// the key. Shared hold on this surface, exclusive on target. 0 done; -1 for a null target,
    /// this surface as target (nothing changes), no store, or no memory (target is then empty).
    int GetKeyFreameBuffer(CKVFrameBuffer* target) const;

    /// Makes a resampled copy of width by height pixels in target, whose store is replaced; the two
    /// axes scale independently. Bilinear, the pictures tied at their centres, all four bytes
    /// alike: colour is not weighed by the key, and shrinking takes no averages. Where an outside
    /// resize function is bound (see CKVDrawWApp) that one does the work, with other pixels.
    ///
    /// Takes no hold on this surface, and one on target only while its store is replaced: keep
    /// writers off both. 0 done; -1 for a size below 1, a null target, this surface as target or no
    /// store (target stays as it was); -1 with an empty target when there is no memory for it; -1
    /// with undefined pixels when the outside function fails.
    int SizeChange(CKVFrameBuffer* target, LONG width, LONG height) const;

    /// The same by factors: the new size is each side times its factor, cut to an integer; the
    /// factors themselves place the samples. -1 with target as it was also for a factor that is not
    /// above 0 and for a size beyond 32 bits; -1 with an empty target for a size of 0.
    int SizeChangeScale(CKVFrameBuffer* target, float scaleX, float scaleY) const;

  private:
    int Create(LONG width, LONG height, bool clear);
};
