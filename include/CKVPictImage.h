#pragma once

#include "CKVFrameBuffer.h"
#include "platform/export.h"
#include "platform/file.h"
#include "platform/types.h"

/// A rectangle of a PICT file, in pixels; right and bottom lie behind the last ones.
struct tagPICTRECT {
    WORD top;
    WORD left;
    WORD bottom;
    WORD right;
};

/// The pixel map of a PICT file, its numbers in the order of this machine. In the file it takes 70
/// bytes without gaps, the opcode included.
struct tagFMT_PICT_PIXMAP {
    WORD opcode;          ///< 0x009A
    DWORD baseAddr;       ///< not read
    WORD rowBytes;        ///< bytes of a row before packing; the top bit is a flag
    tagPICTRECT bounds;   ///< not read
    WORD pmVersion;       ///< not read
    WORD packType;        ///< must be 3 or 4
    DWORD packSize;       ///< not read
    DWORD hRes;           ///< not read
    DWORD vRes;           ///< not read
    WORD pixelType;       ///< not read
    WORD pixelSize;       ///< 16 or 32 bits
    WORD cmpCount;        ///< 3 or 4 when pixelSize is 32
    WORD cmpSize;         ///< not read
    DWORD planeBytes;     ///< not read
    DWORD pmTable;        ///< not read
    DWORD pmReserved;     ///< not read
    tagPICTRECT srcRect;  ///< the picture's size
    tagPICTRECT dstRect;  ///< not read
    WORD mode;            ///< not read
};

/// Reads PICT files of version 2 whose picture is one packed direct-colour pixel map of 16 or 32
/// bits, without keys or with; writes them with 32 bits and keys. What a file draws before its
/// pixel map is skipped where its length is known; it is no general interpreter.
///
/// Results are 0 done and -1 failed; the forms that take a file name (bytes as given) answer the
/// positive cause code of CFileException when the file cannot be opened.
///
/// The codec takes no lock: while it works, the frame buffer belongs to the calling thread. It
/// yields the processor after every chunk of the file.
class KVDRAW_API CKVPictImage {
  public:
    LONG m_KeyFlag = 0;  ///< as GetKeyFlag tells

    CKVPictImage() = default;
    CKVPictImage(const CKVPictImage&) = default;
    CKVPictImage& operator=(const CKVPictImage&) = default;
    virtual ~CKVPictImage() = default;

    /// Reads a picture into fb, which must have no store. Keys become 255 when the file has none;
    /// channels of 5 bits are shifted up, their low bits 0.
    ///
    /// Failed with fb still empty: no PICT file of a known kind, a frame buffer that cannot be
    /// made, or a picture of more than 2^24 pixels with less than one byte of data for 43 of them,
    /// which is less than whole rows pack to. Failed with fb made: a pixel size or number of
    /// components other than those above, pixel data that end early, rows too short for the width.
    /// The rows that were not reached are 0.
    int LoadImg(const char* name, CKVFrameBuffer* fb);
    /// The same from an open file, from its first byte. The position afterwards is not defined.
    int LoadImg(CFile* file, CKVFrameBuffer* fb);
    int LoadImg_Proc(CFile* file, CKVFrameBuffer* fb);

    /// Makes the frame buffer and unpacks size bytes of rows into it. Sets the key flag once the
    /// frame buffer is made.
    int ImgConv_PictToFb(const BYTE* src, DWORD size, const tagFMT_PICT_PIXMAP* pm,
                         CKVFrameBuffer* fb);

    /// The decoders: size bytes of packed rows into height rows of width * 4 bytes. rowBytes is
    /// that of the pixel map, its top bit clear.
    int ImgConv_Comp32(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                       DWORD rowBytes);
    int ImgConv_Comp24(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                       DWORD rowBytes);
    int ImgConv_Comp16(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD size,
                       DWORD rowBytes);

    /// Writes the picture, keys included; mode has no effect. Failed, with nothing written, when fb
    /// has no store, its width is above 8191 or its height above 65535, or there is no memory; the
    /// form with a name has made or emptied the file by then.
    int SaveImage(const char* name, const CKVFrameBuffer* fb, LONG mode);
    /// The same to an open file, from its first byte. Failed writing gives -1; an exception of the
    /// seek before it reaches the caller.
    int SaveImage(CFile* file, const CKVFrameBuffer* fb, LONG mode);
    int SaveImage_Proc(CFile* file, const CKVFrameBuffer* fb, LONG mode);

    /// ImgConv_Comp32A on the pixels of fb. pm and mode are not read.
    int ImgConv_FbToPict(BYTE* dst, DWORD* len, const tagFMT_PICT_PIXMAP* pm,
                         const CKVFrameBuffer* fb, DWORD mode);

    /// The encoder: height rows of width pixels, top down, packed into dst, which must hold
    /// width * 8 + 2 bytes a row and one more. Adds the bytes made to len, an odd sum made even by
    /// a byte 0. A row whose packets its count field cannot tell (noise, 48 to 62 pixels wide) is
    /// stored in literal packets alone. -1, with len as it was, when not even these fit, above
    /// 16255 pixels, or there is no memory.
    int ImgConv_Comp32A(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD* len);

    /// The packet that starts at bytes, with that many bytes left in its row: its number of bytes,
    /// 127 at most, and in isRun 1 for a run of equal bytes, 0 for literal ones. The encoder makes
    /// the same packets. Reads one byte more than remain, two at least.
    int PictCheckComp(const BYTE* bytes, LONG remaining, LONG* isRun);

    /// 1 when the picture last read had keys of its own, else 0. Writing leaves it.
    LONG GetKeyFlag() const { return m_KeyFlag; }

  protected:
    /// Big-endian numbers of two and four bytes, and four of them as a rectangle.
    WORD ChMsbWORD(const char* p);
    DWORD ChMsbDWORD(const char* p);
    tagPICTRECT ChMsbRECT(const char* p);
};
