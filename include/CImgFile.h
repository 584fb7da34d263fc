#pragma once

#include "CBox.h"
#include "CKVFrameBuffer.h"
#include "platform/archive.h"
#include "platform/export.h"
#include "platform/object.h"
#include "platform/string.h"

/// The drawing object for a still picture: a file name, a position, a copy mode and a picture of
/// its own. It loads and saves the picture in the format that the file name's extension tells,
/// without regard to case: ".tga", written run-length encoded, ".pct", and ".bmp" of 24 bits, which
/// has no keys; all others fail. Paths are bytes as given; a directory, a name and an extension may
/// have 255 bytes each.
///
/// Results are 0 done and -1 failed unless said otherwise. A failed load leaves no picture, and the
/// key flag as it was. The object has no lock of its own: one object serves one thread at a time.
class KVDRAW_API CImgFile : public CObject {
  public:
    CString m_FileName;    ///< path of the picture; empty: none
    LONG m_AddressX = 0;   ///< left of the picture in the target
    LONG m_AddressY = 0;   ///< top of the picture in the target
    LONG m_CopyMode = 0;   ///< below 1 replaces pixels, else blends by key
    CKVFrameBuffer m_Img;  ///< the picture
    CBox m_DispEria;       ///< what the last DrawFrame touched; all 0 after a failed one
    LONG m_KeyFlag = 0;    ///< 1 when the file last loaded had keys of its own

    CImgFile() = default;
    /// Nothing is loaded. A null name is taken as an empty one, here and in the setters.
    CImgFile(const char* name, LONG x, LONG y, LONG mode);
    /// Copies name, position, mode and picture; the box and the key flag start at 0.
    CImgFile(const CImgFile& other);
    /// The same, but the box and the key flag keep their values.
    CImgFile& operator=(const CImgFile& other);
    ~CImgFile() override = default;

    static CRuntimeClass classCImgFile;  ///< the class's run-time record
    static CObject* CreateObject();
    static CRuntimeClass* GetThisClass();
    static CRuntimeClass* _GetBaseClass();
    CRuntimeClass* GetRuntimeClass() const override;

    void SetParam(const char* name, LONG x, LONG y, LONG mode);
    void SetFileName(const char* name) { m_FileName = name; }
    void SetAddress(LONG x, LONG y);
    void SetCopyMode(LONG mode) { m_CopyMode = mode; }

    const char* GetFileName() const { return m_FileName; }
    CPoint GetAddress() const { return {m_AddressX, m_AddressY}; }
    void GetAddress(LONG* x, LONG* y) const;
    LONG GetCopyMode() const { return m_CopyMode; }
    CSize GetSize() const { return m_Img.GetWH(); }
    void GetSize(LONG* w, LONG* h) const;
    DWORD GetImgByte() const { return m_Img.GetSize(); }        ///< bytes of all pixels
    BYTE* GetImgBufPointer() { return m_Img.GetBufferByte(); }  ///< first pixel, or null
    CKVFrameBuffer* GetImg() { return &m_Img; }
    LONG GetKeyFlag() const { return m_KeyFlag; }
    CBox& GetDispEria() { return m_DispEria; }

    /// Replaces the picture by the file's. An empty name fails and leaves the picture. The form
    /// with a name stores it first; it stays whatever the result. A name for which there is no
    /// memory fails here and in SaveImage with nothing changed.
    int LoadImg();
    int LoadImg(const char* name);
    /// Replaces fb's picture by the file's. keyFlag, which may be null, is written on success.
    static std::int64_t LoadImg(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);

    /// Writes the picture to the file. -1 for an empty name, and when there is no picture. The
    /// forms with a name store it first; it stays whatever the result. a and b have no effect.
    int SaveImage();
    int SaveImage(const char* name);
    int SaveImage(const char* name, LONG a, LONG b);
    /// The same with another picture; this object's own is not involved. An fb without a store
    /// fails; a ".tga" or ".pct" file has been made or emptied by then, a ".bmp" one has not.
    int SaveImage(const CKVFrameBuffer* fb);
    int SaveImage(const CKVFrameBuffer* fb, const char* name);
    int SaveImage(const CKVFrameBuffer* fb, const char* name, LONG a, LONG b);

    /// Deletes the picture. Always 0, also when there was none.
    int DeleteImage();
    /// Replaces the picture by a copy of fb. -1 with nothing changed when fb is null or has no
    /// store; -1 with no picture left when memory runs out. The object's own picture stays as it
    /// is.
    int SetImage(const CKVFrameBuffer* fb);
    /// CKVFrameBuffer::FbCopy from src into the object's picture. -1 when src is null or has no
    /// store, or the object no picture.
    int CopyImage(const CKVFrameBuffer* src, LONG sx, LONG sy, LONG w, LONG h, LONG dx, LONG dy,
                  LONG mode, CBox* box);
    /// Draws the whole picture into the target at the object's position in its copy mode. -1 for a
    /// null target, and when there is no picture or nothing of it lies in the target.
    int DrawFrame(CKVFrameBuffer* target);

    /// Writes a copy of the picture, stretched to width by height without regard to its shape, in
    /// the format of name's extension. An object without a picture loads it first and keeps it. -1
    /// when there is none to load and for a size below 1.
    int SaveIcon(const char* name, LONG width, LONG height);
    /// The same into the file beside the picture's that has "_icon.bmp" in place of its extension.
    /// -1 too without a file name and for a path of more than 259 bytes.
    int SaveIconBmp(LONG width, LONG height);

    /// Stores name, position and copy mode in the object's file form ("IFO0") at the file's current
    /// position; the picture stays in the file that the name tells. 1, or 0 when the file failed;
    /// what was written by then stays in it.
    int Write(CFile* file) const;
    /// Replaces name, position and copy mode from the file's current position; the picture stays
    /// until LoadImg. 1, or 0 when the file failed or ended early: the fields read by then are new,
    /// a name that was cut is empty.
    int Read(CFile* file);
    /// Read or Write on the archive's file; the result is dropped.
    void Serialize(CArchive& archive) override;

  protected:
    /// LoadImg and SaveImage for a name that is not empty.
    int ImageFileLoad();
    int ImageFileSave(const char* name, const CKVFrameBuffer* fb, LONG a, LONG b);

    /// One format each, whatever the extension: into the object's picture, or into fb with the key
    /// flag through a pointer that is not null. The picture must be empty; one that a broken file
    /// filled in part is left.
    int TgaImageLoad(const char* name);
    int PictImageLoad(const char* name);
    int BmpImageLoad(const char* name);
    int JpegImageLoad(const char* name);
    static std::int64_t TgaImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);
    static std::int64_t PictImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);
    static std::int64_t BmpImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);
    static std::int64_t JpegImageLoad(const char* name, CKVFrameBuffer* fb, LONG* keyFlag);

    int TgaImageSave(const char* name, const CKVFrameBuffer* fb);
    int PictImageSave(const char* name, const CKVFrameBuffer* fb);
    int BmpImageSave(const char* name, const CKVFrameBuffer* fb);
    int JpegImageSave(const char* name, const CKVFrameBuffer* fb, LONG a, LONG b);

  private:
    int SaveByName(const CKVFrameBuffer* fb, LONG a, LONG b);
};
