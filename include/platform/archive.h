#pragma once

#include "export.h"
#include "file.h"

/// A direction of transfer tied to a file, as Serialize takes it. It holds nothing back: what an
/// object serialises goes to the file, or comes from it, at once and at the file's own position.
/// The file belongs to the caller and must outlive the archive.
class KVDRAW_API CArchive {
  public:
    enum Mode : UINT { store = 0, load = 1 };

    CArchive(CFile* file, UINT mode) : m_File(file), m_Mode(mode) {}
    CArchive(const CArchive&) = delete;
    CArchive& operator=(const CArchive&) = delete;

    bool IsLoading() const { return (m_Mode & load) != 0; }
    bool IsStoring() const { return !IsLoading(); }
    CFile* GetFile() const { return m_File; }

  private:
    CFile* m_File;
    UINT m_Mode;
};
