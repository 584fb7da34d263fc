// Text on a one-bit picture: fonts, extents, drawing.

#include "text/line_context.h"

#include "base/narrow.h"

namespace kv::text {
namespace {

constexpr COLORREF kWhite = 0xFFFFFF;
constexpr COLORREF kBlack = 0;

int ByteCount(const std::string& text) {
    return SaturateToInt32(static_cast<std::int64_t>(text.size()));
}

}  // namespace

LineContext::LineContext() {
    m_Dc.CreateCompatibleDC(nullptr);
    m_Dc.SetTextColor(kWhite);
    m_Dc.SetBkColor(kBlack);
}

void LineContext::Make(LineFont& font) {
    font.font.CreateFontIndirectA(font.description);
    m_Dc.SelectObject(font.font);
    m_Dc.GetTextMetricsA(&font.metric);
}

void LineContext::Select(const CFont& font, LONG extra) {
    m_Dc.SelectObject(font);
    m_Dc.SetTextCharacterExtra(extra);
}

bool LineContext::CreatePicture(tagSIZE size) {
    if (!m_Picture.CreateBitmap(size.cx, size.cy, 1, 1, nullptr)) {
        return false;
    }
    m_Dc.SelectObject(m_Picture);
    m_Dc.BitBlt(0, 0, size.cx, size.cy, nullptr, 0, 0, BLACKNESS);
    return true;
}

tagSIZE LineContext::Extent(const std::string& text) const {
    tagSIZE extent{};
    m_Dc.GetTextExtentPoint32A(text.c_str(), ByteCount(text), &extent);
    return extent;
}

void LineContext::TextOut(LONG x, LONG y, const std::string& text) {
    m_Dc.TextOutA(x, y, text.c_str(), ByteCount(text));
}

}  // namespace kv::text
