#pragma once

#include <memory>
#include <span>

#include "base/scratch.h"
#include "platform/bitmap/format.h"

namespace kv::dib {

/// A picture of plain rows. Device bitmaps made from indexed ones keep a byte an index and
/// remember the depth they came from; all others have 32 bits a pixel, sections any format.
class ColourBitmap {
  public:
    /// All pixels 0. Null for a size below 1 by 1 and when there is no memory.
    static std::shared_ptr<ColourBitmap> CreateTrueColour(LONG width, LONG height);
    /// The same with rows of any plain format. sourceBits: see SourceBits.
    static std::shared_ptr<ColourBitmap> Create(const Format& format, unsigned int sourceBits);

    const Format& Rows() const { return m_Format; }
    /// The depth that the bitmap's pixels had where it was made.
    unsigned int SourceBits() const { return m_SourceBits; }

    /// Row 0 is the top one.
    BYTE* Row(LONG row) { return m_Bits.get() + Offset(row); }
    const BYTE* Row(LONG row) const { return m_Bits.get() + Offset(row); }
    /// The rows as they are stored.
    BYTE* Bits() { return m_Bits.get(); }

    /// Copies whole and partial rows, top one first, until bytes is full; the number of bytes.
    DWORD CopyTopDown(std::span<BYTE> bytes) const;

  private:
    explicit ColourBitmap(const Format& format, unsigned int sourceBits)
        : m_Format(format), m_SourceBits(sourceBits) {}
    std::size_t Offset(LONG row) const {
        return m_Format.stride * static_cast<std::size_t>(m_Format.StoredRow(row));
    }

    Format m_Format;
    unsigned int m_SourceBits;
    std::unique_ptr<BYTE[], kv::FreeBytes> m_Bits;
};

}  // namespace kv::dib
