// Fonts and the device context: what is selected, modes, text.

#include "platform/dc.h"

#include <string_view>
#include <utility>

#include "base/narrow.h"
#include "platform/device/picture.h"
#include "platform/device/text_painter.h"

using kv::device::LayOutText;
using kv::device::TextLine;
using kv::font::FontInstance;

namespace {

bool IsText(const char* text, int byteCount) {
    return byteCount == 0 || (byteCount > 0 && text != nullptr);
}

std::string_view View(const char* text, int byteCount) {
    return byteCount > 0 ? std::string_view(text, static_cast<std::size_t>(byteCount))
                         : std::string_view();
}

}  // namespace

bool CFont::CreateFontIndirectA(const LOGFONTA& description) {
    m_Font = FontInstance::Create(description);
    return m_Font != nullptr;
}

int GetObjectA(const CFont& font, int size, LOGFONTA* description) {
    if (font.IsNull() || size < static_cast<int>(sizeof(LOGFONTA)) || description == nullptr) {
        return 0;
    }
    *description = font.m_Font->description;
    return static_cast<int>(sizeof(LOGFONTA));
}

bool CDC::CreateCompatibleDC(CDC* /*other*/) {
    *this = CDC();
    return true;
}

void CDC::DeleteDC() {
    *this = CDC();
}

CFont CDC::SelectObject(const CFont& font) {
    return std::exchange(m_Font, font);
}

CBitmap CDC::SelectObject(const CBitmap& bitmap) {
    return std::exchange(m_Bitmap, bitmap);
}

CPalette CDC::SelectPalette(const CPalette& palette, bool /*background*/) {
    return std::exchange(m_Palette, palette);
}

int CDC::SetStretchBltMode(int mode) {
    return mode == COLORONCOLOR ? std::exchange(m_StretchMode, mode) : 0;
}

LONG CDC::SetTextCharacterExtra(LONG extra) {
    return std::exchange(m_CharacterExtra, extra);
}

void CDC::SetTextJustification(LONG distance, LONG count) {
    m_BreakExtra = count > 0 ? distance / count : 0;
}

COLORREF CDC::SetTextColor(COLORREF colour) {
    return std::exchange(m_TextColor, colour);
}

COLORREF CDC::SetBkColor(COLORREF colour) {
    return std::exchange(m_BkColor, colour);
}

bool CDC::GetTextMetricsA(TEXTMETRICA* metric) const {
    if (m_Font.IsNull() || metric == nullptr) {
        return false;
    }
    *metric = m_Font.m_Font->metrics;
    return true;
}

bool CDC::GetTextExtentPoint32A(const char* text, int byteCount, tagSIZE* extent) const {
    if (m_Font.IsNull() || !IsText(text, byteCount) || extent == nullptr) {
        return false;
    }
    const FontInstance& font = *m_Font.m_Font;
    const TextLine line = LayOutText(font, {m_CharacterExtra, m_BreakExtra}, View(text, byteCount));
    *extent = {kv::SaturateToInt32(line.length), font.metrics.tmHeight};
    return true;
}

bool CDC::TextOutA(LONG x, LONG y, const char* text, int byteCount) {
    kv::raster::BitSurface* const surface =
        m_Bitmap.IsNull() ? nullptr : m_Bitmap.m_Picture->ForText();
    if (m_Font.IsNull() || surface == nullptr || !IsText(text, byteCount)) {
        return false;
    }
    const FontInstance& font = *m_Font.m_Font;
    const TextLine line = LayOutText(font, {m_CharacterExtra, m_BreakExtra}, View(text, byteCount));
    kv::device::TextPainter(font).Draw(line, {*surface, x, y, m_TextColor != 0, m_BkColor != 0});
    return true;
}

bool CDC::BitBlt(LONG x, LONG y, LONG width, LONG height, CDC* /*source*/, LONG /*sourceX*/,
                 LONG /*sourceY*/, DWORD operation) {
    return operation == BLACKNESS && !m_Bitmap.IsNull() &&
           m_Bitmap.m_Picture->ClearRect(x, y, std::int64_t{x} + width, std::int64_t{y} + height);
}
