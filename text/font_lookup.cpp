// Font lookup and the font list: both collect what an enumeration delivers into a global block.

#include <cstring>
#include <new>

#include <CKVFont.h>
#include <platform/exception.h>

#include "platform/font/font_enum.h"

namespace {

// Adds one entry; 0 for lack of memory, which ends the enumeration with the entries so far.
int CollectFont(const ENUMLOGFONTA* font, const NEWTEXTMETRICA* metric, DWORD type,
                LPARAM parameter) {
    auto& list = *reinterpret_cast<tagENUMER*>(parameter);
    const auto index = static_cast<std::size_t>(list.Count);
    if (GlobalReAlloc(list.Handle, (index + 1) * sizeof(FontEntry), GMEM_MOVEABLE) == nullptr) {
        return 0;
    }
    const FontEntry entry{type, *font, *metric};
    auto* block = static_cast<BYTE*>(GlobalLock(list.Handle));
    std::memcpy(block + index * sizeof entry, &entry, sizeof entry);
    GlobalUnlock(list.Handle);
    ++list.Count;
    return 1;
}

// False when memory ran out where the catalogue is built.
bool Enumerate(HDC dc, const char* family, tagENUMER& list) {
    try {
        EnumFontFamiliesA(dc, family, CollectFont, reinterpret_cast<LPARAM>(&list));
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const CMemoryException&) {
        return false;
    }
    return true;
}

// False, with a null handle, when there is no memory to collect into.
bool Collect(HWND window, const char* family, tagENUMER& list) {
    list.Count = 0;
    list.Handle = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 1);
    if (list.Handle == nullptr) {
        return false;
    }
    const HDC dc = GetDC(window);
    const bool whole = Enumerate(dc, family, list);
    ReleaseDC(window, dc);
    if (!whole) {
        list.Handle = GlobalFree(list.Handle);
    }
    return whole;
}

}  // namespace

int CKVFont::GetFontLogfont(HWND window, const char* name, tagLOGFONTA* out) {
    tagENUMER found{};
    if (!Collect(window, name == nullptr ? "" : name, found)) {
        return -1;
    }
    const bool any = found.Count > 0;
    if (any) {
        FontEntry first;
        std::memcpy(&first, GlobalLock(found.Handle), sizeof first);
        GlobalUnlock(found.Handle);
        *out = first.LogFont.elfLogFont;
    }
    GlobalFree(found.Handle);
    return any ? 0 : -2;
}

int CKVFont::GetAllFontList(HWND window, tagENUMER* list) {
    return Collect(window, nullptr, *list) ? 0 : -1;
}
