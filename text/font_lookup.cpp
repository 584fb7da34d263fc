// The lookup of a font, and the font list, which collects an enumeration into a global block.

#include <cstring>
#include <new>
#include <optional>

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

// False when memory runs out where the catalogue is built.
template <typename Call>
bool HasMemoryFor(const Call& call) {
    try {
        call();
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const CMemoryException&) {
        return false;
    }
    return true;
}

}  // namespace

int CKVFont::GetFontLogfont(HWND /*window*/, const char* name, tagLOGFONTA* out) {
    std::optional<LOGFONTA> found;
    if (!HasMemoryFor([&] { found = kv::font::FirstOf(name == nullptr ? "" : name); })) {
        return -1;
    }
    if (!found) {
        return -2;
    }
    *out = *found;
    return 0;
}

int CKVFont::GetAllFontList(HWND window, tagENUMER* list) {
    list->Count = 0;
    list->Handle = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 1);
    if (list->Handle == nullptr) {
        return -1;
    }
    const HDC dc = GetDC(window);
    const bool whole = HasMemoryFor(
        [&] { EnumFontFamiliesA(dc, nullptr, CollectFont, reinterpret_cast<LPARAM>(list)); });
    ReleaseDC(window, dc);
    if (!whole) {
        list->Handle = GlobalFree(list->Handle);
    }
    return whole ? 0 : -1;
}
