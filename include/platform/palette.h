#pragma once

#include <memory>
#include <vector>

#include "export.h"
#include "types.h"

struct tagPALETTEENTRY {
    BYTE peRed;
    BYTE peGreen;
    BYTE peBlue;
    BYTE peFlags;
};
using PALETTEENTRY = tagPALETTEENTRY;

/// What a palette is made from; its number of entries is that of the list.
struct tagLOGPALETTE {
    WORD palVersion = 0x300;
    std::vector<PALETTEENTRY> palPalEntry;
};
using LOGPALETTE = tagLOGPALETTE;

/// A logical palette, shared by its copies and read-only.
class KVDRAW_API CPalette {
  public:
    CPalette() = default;

    /// False, and a null palette, for another version than 0x300 and for less than 1 or more than
    /// 65535 entries.
    bool CreatePalette(LOGPALETTE palette);
    bool IsNull() const { return m_Entries == nullptr; }
    int GetEntryCount() const;
    /// Copies count entries from start on, as far as there are some; the number copied.
    UINT GetPaletteEntries(UINT start, UINT count, PALETTEENTRY* entries) const;

  private:
    std::shared_ptr<const std::vector<PALETTEENTRY>> m_Entries;
};

/// A palette handle that somebody owns and gives back by DeleteObject. A context that has it
/// selected keeps its entries.
using HPALETTE = CPalette*;
/// Null where CPalette::CreatePalette fails.
KVDRAW_API HPALETTE CreatePalette(LOGPALETTE palette);
KVDRAW_API void DeleteObject(HPALETTE palette);
