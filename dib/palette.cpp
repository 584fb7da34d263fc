// The palettes of bitmaps, from their colours or from a device.

#include "dib/palette.h"

#include <algorithm>
#include <new>
#include <utility>

#include "platform/device/device.h"

HPALETTE kv::dib::TablePalette(std::span<const BYTE> table) try {
    LOGPALETTE palette;
    palette.palPalEntry.reserve(table.size() / 4);
    for (std::size_t at = 0; at < table.size(); at += 4) {
        palette.palPalEntry.push_back({table[at + 2], table[at + 1], table[at], 0});
    }
    return CreatePalette(std::move(palette));
} catch (const std::bad_alloc&) {
    return nullptr;
}

HPALETTE kv::dib::SystemPalette(CDC* dc) try {
    int count = GetDeviceCaps(dc, SIZEPALETTE);
    if (count == 0) {
        count = GetDeviceCaps(dc, NUMCOLORS);
    }
    LOGPALETTE palette;
    palette.palPalEntry.resize(static_cast<std::size_t>(std::max(count, 0)));
    GetSystemPaletteEntries(dc, 0, static_cast<UINT>(palette.palPalEntry.size()),
                            palette.palPalEntry.data());
    return CreatePalette(std::move(palette));
} catch (const std::bad_alloc&) {
    return nullptr;
}
