// Palettes as lists of entries.

#include "platform/palette.h"

#include <algorithm>
#include <limits>
#include <span>

bool CPalette::CreatePalette(LOGPALETTE palette) {
    constexpr WORD kVersion = 0x300;
    constexpr std::size_t kMax = std::numeric_limits<WORD>::max();
    const std::size_t count = palette.palPalEntry.size();
    m_Entries = nullptr;
    if (palette.palVersion == kVersion && count > 0 && count <= kMax) {
        m_Entries =
            std::make_shared<const std::vector<PALETTEENTRY>>(std::move(palette.palPalEntry));
    }
    return !IsNull();
}

int CPalette::GetEntryCount() const {
    return IsNull() ? 0 : static_cast<int>(m_Entries->size());
}

UINT CPalette::GetPaletteEntries(UINT start, UINT count, PALETTEENTRY* entries) const {
    const auto all = static_cast<UINT>(GetEntryCount());
    if (start >= all || entries == nullptr) {
        return 0;
    }
    const UINT copied = std::min(count, all - start);
    std::ranges::copy(std::span(*m_Entries).subspan(start, copied), entries);
    return copied;
}

HPALETTE CreatePalette(LOGPALETTE palette) {
    auto made = std::make_unique<CPalette>();
    return made->CreatePalette(std::move(palette)) ? made.release() : nullptr;
}

void DeleteObject(HPALETTE palette) {
    delete palette;
}
