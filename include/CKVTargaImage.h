#pragma once

#include "CKVFrameBuffer.h"
#include "platform/export.h"
#include "platform/file.h"
#include "platform/types.h"

/// The header of a TGA file: 18 bytes, numbers little-endian in the file.
struct tagTGA_HEADER {
    BYTE IdLength;         ///< bytes between the header and the pixels, skipped
    BYTE ColorMapType;     ///< must be 0
    BYTE ImageType;        ///< 2 raw or 10 run-length true colour
    BYTE ColorMapSpec[5];  ///< not read
    WORD XOrigin;          ///< not read
    WORD YOrigin;          ///< not read
    WORD Width;            ///< pixels
    WORD Height;           ///< pixels
    BYTE PixelDepth;       ///< 32: four bytes a pixel; 8 and 16 are refused; else three
    BYTE Descriptor;       ///< bit 5: top row first; bit 4, right to left, is refused
};
static_assert(sizeof(tagTGA_HEADER) == 18);

/// Reads and writes true-colour TGA files of 24 and 32 bits, raw or run-length encoded; always
/// writes 32 bits, bottom row first. The file's pixel bytes are those of the frame buffer: blue,
/// green, red and key.
///
/// Results are 0 done and -1 failed; the forms that take a file name (bytes as given) answer the
/// positive cause code of CFileException when the file cannot be opened.
///
/// The codec takes no lock: while it works, the frame buffer belongs to the calling thread. It
/// yields the processor after every chunk of the file.
class KVDRAW_API CKVTargaImage {
  public:
    LONG m_KeyFlag = 0;  ///< as GetKeyFlag tells

    CKVTargaImage() = default;
    CKVTargaImage(const CKVTargaImage&) = default;
    CKVTargaImage& operator=(const CKVTargaImage&) = default;
    virtual ~CKVTargaImage() = default;

    /// Reads a picture into fb, which must have no store. Everything behind the header and the
    /// identification field counts as pixel data; what follows a full picture is not looked at.
    /// Keys become 255 when the file has none.
    ///
    /// Failed with fb still empty: no TGA file of a known kind, a frame buffer that cannot be made,
    /// or a picture of more than 2^24 pixels whose data are shorter than any encoding of it, one
    /// byte for 32 pixels. Failed with fb made: pixel data that end early. Pixels that were not
    /// reached are 0; a raw picture with too few bytes is 0 all over.
    int LoadImg(const char* name, CKVFrameBuffer* fb);
    /// The same from an open file, from its first byte. The position afterwards is not defined.
    int LoadImg(CFile* file, CKVFrameBuffer* fb);

    /// Writes the picture, key bytes as they are: raw for mode 0, else run-length encoded. Failed,
    /// with nothing written, when fb has no store, its width or height is above 65535, or there is
    /// no memory; the form with a name has made or emptied the file by then.
    int SaveImage(const char* name, const CKVFrameBuffer* fb, LONG mode);
    /// The same to an open file, from its first byte. Failed writing gives -1; an exception of the
    /// seek before it reaches the caller.
    int SaveImage(CFile* file, const CKVFrameBuffer* fb, LONG mode);

    /// 1 when the picture last read had keys of its own, and after any writing; else 0. A failed
    /// reading leaves it.
    LONG GetKeyFlag() const { return m_KeyFlag; }

  protected:
    int LoadImg_Proc(CFile* file, CKVFrameBuffer* fb);

    /// Makes the frame buffer and decodes size bytes of src into it.
    int ImgConv_TgaToFb(const BYTE* src, DWORD size, const tagTGA_HEADER* hdr, CKVFrameBuffer* fb);

    /// The decoders. dst holds height rows of width * 4 bytes; a top other than 0 means that the
    /// first row in src is the top one.
    int ImgConv_UnComp32(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                         DWORD top);
    int ImgConv_UnComp24(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                         DWORD top);
    int ImgConv_Comp32(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                       DWORD top);
    int ImgConv_Comp24(const BYTE* src, DWORD size, BYTE* dst, DWORD width, DWORD height,
                       DWORD top);

    int SaveImage_Proc(CFile* file, const CKVFrameBuffer* fb, LONG mode);

    /// Fills in the header and encodes the picture into dst, which must hold five bytes a pixel;
    /// len receives the number of bytes.
    int ImgConv_FbToTga(BYTE* dst, DWORD* len, tagTGA_HEADER* hdr, const CKVFrameBuffer* fb,
                        DWORD mode);

    /// The encoders, bottom row first. src is aligned for 32-bit words and four bytes longer than
    /// its rows: the run-length encoder compares the last pixel with the word behind it.
    int ImgConv_TgaUnComp(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD* len);
    int ImgConv_TgaComp(const BYTE* src, BYTE* dst, DWORD width, DWORD height, DWORD* len);

    /// The packet that starts at pixels, with that many pixels left in its row: its number of
    /// pixels, 127 at most, and in isRun 1 for a run of equal pixels, 0 for literal ones. Reads one
    /// pixel more than remain.
    int TgaCheckComp(const DWORD* pixels, LONG remaining, LONG* isRun);
};
