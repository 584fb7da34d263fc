#pragma once

#include <cstddef>
#include <span>

#include "platform/archive.h"
#include "platform/bitmap_header.h"
#include "platform/dc.h"
#include "platform/export.h"
#include "platform/file.h"
#include "platform/geometry.h"
#include "platform/memory.h"
#include "platform/object.h"
#include "platform/palette.h"
#include "platform/types.h"

/// A device-independent bitmap: a header, a colour table and rows of 1, 4, 8, 16, 24 or 32 bits a
/// pixel, padded to 4 bytes, the bottom row first unless the header's height is negative. It is
/// read from and written to BMP files, tied to mapped ones, and drawn onto device contexts.
///
/// An object is empty, or has a header with pixels that are its own (Create, Read, Compress), the
/// caller's (AttachImage), in the block of the header (AttachMemory), in a mapped file, or in a
/// section (CreateSection); or a header alone. Results are 1 done and 0 failed. Everything that
/// makes or attaches a picture first releases what there was. One object serves one thread.
class KVDRAW_API CDib : public CObject {
  public:
    tagRGBQUAD* m_ColorTable = nullptr;       ///< directly behind m_Header
    HBITMAP m_Bitmap = nullptr;               ///< the section of CreateSection, owned
    void* m_Image = nullptr;                  ///< the rows; null while there are none
    tagBITMAPINFOHEADER* m_Header = nullptr;  ///< null in an empty object
    HGLOBAL m_Global = nullptr;               ///< as given to AttachMemory
    LONG m_HeaderAlloc = 0;   ///< the header's owner: 0 others, 1 delete[], 2 GlobalFree(m_Global)
    LONG m_ImageAlloc = 0;    ///< the rows' owner: 0 others, 1 delete[]
    DWORD m_SizeImage = 0;    ///< bytes of the rows together
    LONG m_ColorEntries = 0;  ///< as the header has it, right or wrong
    HANDLE m_File = nullptr;  ///< not null while tied to a mapped file
    HANDLE m_Mapping = nullptr;
    void* m_View = nullptr;        ///< the mapped file's first byte
    HPALETTE m_Palette = nullptr;  ///< owned
    void* m_DrawDib = nullptr;     ///< always null

    CDib() = default;
    /// A header alone, for CreateSection; its colours are 0. Size and depth are not checked; where
    /// they make no size of rows that 32 bits can tell, m_SizeImage is 0.
    CDib(CSize size, int bitCount);
    /// As Create; empty where that fails.
    CDib(int width, int height, int bitCount, int topDown);
    /// As AttachImage; empty where that fails.
    CDib(void* image, CSize size, int bitCount, int topDown);
    CDib(const CDib&) = delete;
    CDib& operator=(const CDib&) = delete;
    ~CDib() override;

    static CRuntimeClass classCDib;  ///< the class's run-time record
    static CObject* CreateObject();
    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    CRuntimeClass* GetRuntimeClass() const override;
    /// Read or Write with the archive's file; whether it worked is not told.
    void Serialize(CArchive& archive) override;

    /// A picture with colours and pixels not set. Top down for a topDown of exactly 1. 0, with the
    /// object as it was, for a size below 1 by 1 or above what 32 bits count in bytes, and for
    /// another depth than 1, 4, 8, 16, 24 and 32. Throws std::bad_alloc.
    int Create(int width, int height, int bitCount, int topDown);
    /// A picture of the caller's rows, which must outlive it. 0, with the object as it was, for
    /// another depth than 16, 24 and 32. Throws std::bad_alloc.
    int AttachImage(void* image, CSize size, int bitCount, int topDown);
    /// Takes a block of header, colours and rows, one directly behind the other, as its picture.
    /// owned 0: the caller keeps it; else it is released with the picture, by GlobalUnlock and
    /// GlobalFree when global is not null, by delete[] of bytes when it is. 0, with an empty
    /// object and the block still the caller's, for null and for a global block that is too short
    /// for a header. Colours and rows beyond the end of the global block do not count as there.
    int AttachMemory(void* header, int owned, void* global);
    /// Releases everything that is owned.
    void Empty();

    /// Ties the object to a bitmap file, read-only: its pixels must not be written to. share not 0
    /// lets other readers open the file. The pixels are those behind the colour table, wherever the
    /// file header says they are. 0, with the object as it was, for a file that cannot be opened so
    /// or mapped, is no bitmap file, or does not hold header, colours and rows.
    int AttachMapFile(const char* name, int share);
    /// Moves the picture into a new file, which nobody else may open meanwhile, and ties the object
    /// to it: what is written to the pixels from then on goes to the file. 0, with the object as it
    /// was, without pixels and when the file cannot be made; a file of that name may be emptied.
    int CopyToMapFile(const char* name);

    /// Reads a BMP file of any depth and compression from the file's position, to be owned. 0, with
    /// an empty object, for another signature and where header, colours and rows are not all there;
    /// 0 when the file throws: a header that was read by then stays, without pixels.
    int Read(CFile* file);
    /// Writes a BMP file at the file's position: header, as many colours as m_ColorEntries tells
    /// and the header's block holds, rows. Masks of 16 and 32-bit pictures are not written. 0
    /// without pixels and when the file throws.
    int Write(CFile* file);

    /// Stretches the picture, or the part src of it, onto the context's colour bitmap, the nearest
    /// pixel for each; extents of different signs mirror it. src counts rows from the bottom of a
    /// bottom-up picture. Run-length pixels that the data leave out show colour 0. A palette stays
    /// selected in the context. 0 without a header, else 1, whether or not there was anything to
    /// draw.
    int Draw(CDC* dc, CPoint origin, CSize size);
    int Draw(CDC* dc, CRect dest, CRect src);
    /// As Draw, but always 1.
    int DrawVfw(CDC* dc, CPoint origin, CSize size);
    int DrawVfw(CDC* dc, CRect dest, CRect src);

    /// Gives a header without pixels the rows of a new bitmap, all 0; the object owns it. It can be
    /// selected into a context and drawn on. Null on failure and when there are pixels.
    HBITMAP CreateSection(CDC* dc);
    /// A bitmap of the context's own with this picture, for the caller to release by DeleteObject.
    /// Null on failure, without pixels or context.
    HBITMAP CreateBitmap(CDC* dc);
    /// Makes m_Palette of the colours, as far as the header's block holds them; null when there is
    /// no memory for it. 0 for a picture without a colour table.
    int MakePalette();
    /// Makes m_Palette the context's system palette. 0 for a picture with a colour table and for a
    /// context without a palette.
    int SetSystemPalette(CDC* dc);
    /// Does nothing; 0.
    unsigned int UsePalette(CDC* dc, int background);
    /// Rewrites the pixels run-length encoded, or plain for compress 0. They become the object's
    /// own. 0, with the picture as it was, for other depths than 4 and 8, for a section, for a
    /// top-down picture that is to be run-length, and without a context or memory.
    int Compress(CDC* dc, int compress);

    /// These need a header, except GetDimensions, which gives 0 by 0 without.
    LONG GetWidth() const { return m_Header->biWidth; }
    LONG GetHeight() const;  ///< not negative
    CSize GetDimensions() const;
    int GetBitCount() const { return m_Header->biBitCount; }
    int GetInvert() const { return m_Header->biHeight < 0 ? 1 : 0; }  ///< 1 top down, else 0
    DWORD GetLineByte() const;                                        ///< bytes of a row, padded

    tagBITMAPINFOHEADER* GetBitmapInfoHeader() const { return m_Header; }
    void* GetImageBuffer() const { return m_Image; }
    int GetSizeImage() const { return static_cast<int>(m_SizeImage); }
    int GetSizeHeader() const {
        return static_cast<int>(sizeof *m_Header + 4 * static_cast<DWORD>(m_ColorEntries));
    }
    void* GetDrawDIB() const { return m_DrawDib; }
    operator void*() const { return m_DrawDib; }

    /// Sets m_ColorEntries: the header's biClrUsed unless 0, else 2, 16, 256 for 1, 4, 8 bits and 0
    /// for 16, 24, 32; other depths leave it.
    void ComputePaletteSize(int bitCount);
    /// Sets m_SizeImage, by biSizeImage unless 0, and m_ColorTable.
    void ComputeMetrics();

  private:
    void AttachBlock(void* header, std::size_t blockBytes);
    void MakeHeader(CSize size, int bitCount, int topDown);
    void InstallHeader(tagBITMAPINFOHEADER* header, std::size_t bytes, LONG alloc);
    bool ReadPicture(CFile& file);
    bool HasPixels() const { return m_Header != nullptr && m_Image != nullptr && m_SizeImage > 0; }
    /// Header and colours, as far as both m_ColorEntries and the block reach.
    std::span<const BYTE> HeaderAndColours() const;
    /// All that may be read from the header on: masks as well.
    std::span<const BYTE> Info() const;
    std::span<const BYTE> Pixels() const;

    std::size_t m_HeaderBytes = 0;  ///< bytes from m_Header on that may be read
};
