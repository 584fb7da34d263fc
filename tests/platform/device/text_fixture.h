#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <KVUtf8.h>
#include <platform/dc.h>
#include <platform/font.h>

#include "platform/font/font_name.h"

// Fonts, extents and drawn pixels for the tests of text. Texts are UTF-8 here.
namespace kv::device::test {

inline std::string Bytes(const char* utf8) {
    const CString bytes = KVFromUtf8(utf8);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(bytes.GetLength())};
}

inline LOGFONTA Describe(const char* face, LONG height, LONG escapement = 0) {
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfEscapement = escapement;
    font::StoreName(Bytes(face), description.lfFaceName);
    return description;
}

inline CFont MakeFont(const LOGFONTA& description) {
    CFont font;
    font.CreateFontIndirectA(description);
    return font;
}

inline TEXTMETRICA Metrics(const LOGFONTA& description) {
    TEXTMETRICA metrics{};
    CDC dc;
    dc.SelectObject(MakeFont(description));
    dc.GetTextMetricsA(&metrics);
    return metrics;
}

inline tagSIZE Extent(CDC& dc, const std::string& bytes) {
    tagSIZE extent{-1, -1};
    dc.GetTextExtentPoint32A(bytes.data(), static_cast<int>(bytes.size()), &extent);
    return extent;
}

inline tagSIZE Extent(const LOGFONTA& description, const std::string& bytes) {
    CDC dc;
    dc.SelectObject(MakeFont(description));
    return Extent(dc, bytes);
}

struct Box {
    int left, top, right, bottom;
};

/// A context with a bitmap that draws white on black.
class Canvas {
  public:
    Canvas(int width, int height) : m_Width(width), m_Height(height) {
        m_Bitmap.CreateBitmap(width, height, 1, 1, nullptr);
        dc.SelectObject(m_Bitmap);
        dc.SetTextColor(0xFFFFFF);
        dc.SetBkColor(0);
    }

    bool Draw(const LOGFONTA& description, int x, int y, const std::string& bytes) {
        dc.SelectObject(MakeFont(description));
        return dc.TextOutA(x, y, bytes.data(), static_cast<int>(bytes.size()));
    }

    /// A byte a pixel, row by row; rows include their padding when asked for.
    std::vector<char> Pixels(bool padding = false) const {
        const std::size_t width = (static_cast<std::size_t>(m_Width) + 15) / 16 * 16;
        std::vector<std::uint8_t> bits(width / 8 * static_cast<std::size_t>(m_Height));
        m_Bitmap.GetBitmapBits(static_cast<DWORD>(bits.size()), bits.data());
        std::vector<char> pixels;
        for (std::size_t i = 0; i < bits.size() * 8; ++i) {
            if (padding || i % width < static_cast<std::size_t>(m_Width)) {
                pixels.push_back(static_cast<char>(bits[i / 8] >> (7 - i % 8) & 1));
            }
        }
        return pixels;
    }

    /// Half-open bounds of what is set; all 0 when nothing is.
    Box Ink() const {
        Box box{m_Width, m_Height, 0, 0};
        const std::vector<char> pixels = Pixels();
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const int x = static_cast<int>(i) % m_Width;
            const int y = static_cast<int>(i) / m_Width;
            if (pixels[i] != 0) {
                box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                       std::max(box.bottom, y + 1)};
            }
        }
        return box.right == 0 ? Box{0, 0, 0, 0} : box;
    }

    int Area(bool padding = false) const {
        const std::vector<char> pixels = Pixels(padding);
        return static_cast<int>(std::count(pixels.begin(), pixels.end(), 1));
    }

    CDC dc;

  private:
    CBitmap m_Bitmap;
    int m_Width;
    int m_Height;
};

}  // namespace kv::device::test
