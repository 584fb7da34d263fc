// What a device says of itself, its palette, and the C names of its calls.

#include "platform/device/device.h"

#include <algorithm>

#include "platform/bitmap/colour_bitmap.h"
#include "platform/device/picture.h"

namespace {

const kv::dib::Format* ColourRows(HDC context) {
    const auto* bitmap =
        context != nullptr ? kv::device::ColoursOf(context->GetCurrentBitmap()) : nullptr;
    return bitmap != nullptr ? &bitmap->Rows() : nullptr;
}

int ColourCount(HDC context) {
    const kv::dib::Format* rows = ColourRows(context);
    if (rows == nullptr) {
        return 2;
    }
    return rows->bits <= 8 ? static_cast<int>(rows->colourCount) : -1;
}

}  // namespace

kv::dib::ColourBitmap* kv::device::ColoursOf(const CBitmap& bitmap) {
    return bitmap.IsNull() ? nullptr : bitmap.m_Picture->ForBitmaps();
}

void SelectPalette(HDC context, HPALETTE palette, bool background) {
    if (context != nullptr) {
        context->SelectPalette(palette != nullptr ? *palette : CPalette(), background);
    }
}

int SetStretchBltMode(HDC context, int mode) {
    return context != nullptr ? context->SetStretchBltMode(mode) : 0;
}

int GetDeviceCaps(HDC context, int index) {
    if (context == nullptr) {
        return 0;
    }
    const kv::dib::Format* rows = ColourRows(context);
    const bool hasPalette = rows != nullptr && rows->bits == 8;
    switch (index) {
        case RASTERCAPS:
            return rows == nullptr ? 0
                                   : RC_DI_BITMAP | RC_STRETCHDIB | (hasPalette ? RC_PALETTE : 0);
        case SIZEPALETTE:
            return hasPalette ? static_cast<int>(rows->colourCount) : 0;
        case NUMCOLORS:
            return ColourCount(context);
        default:
            return 0;
    }
}

UINT GetSystemPaletteEntries(HDC context, UINT start, UINT count, PALETTEENTRY* entries) {
    const auto all = static_cast<UINT>(GetDeviceCaps(context, SIZEPALETTE));
    if (start >= all) {
        return 0;
    }
    const UINT copied = std::min(count, all - start);
    for (UINT i = 0; i < copied; ++i) {
        const DWORD colour = ColourRows(context)->colours[start + i];
        entries[i] = {static_cast<BYTE>(colour >> 16 & 0xFF), static_cast<BYTE>(colour >> 8 & 0xFF),
                      static_cast<BYTE>(colour & 0xFF), 0};
    }
    return copied;
}
