#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <KVUtf8.h>
#include <platform/font.h>

#include "platform/gdi/dc.h"
#include "platform/gdi/font_name.h"

// Fonts, extents and drawn pixels for the tests of text. Texts are UTF-8 here.
namespace kv::gdi::test {

inline std::string Bytes(const char* utf8) {
    const CString bytes = KVFromUtf8(utf8);
    return {static_cast<const char*>(bytes), static_cast<std::size_t>(bytes.GetLength())};
}

inline LOGFONTA Describe(const char* face, LONG height, LONG escapement = 0) {
    LOGFONTA description{};
    description.lfHeight = height;
    description.lfEscapement = escapement;
    StoreName(Bytes(face), description.lfFaceName);
    return description;
}

inline CFont MakeFont(const LOGFONTA& description) {
    CFont font;
    font.CreateFontIndirectA(description);
    return font;
}

inline TEXTMETRICA Metrics(const LOGFONTA& description) {
    CDC dc;
    dc.SelectObject(MakeFont(description));
    TEXTMETRICA metrics{};
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
    bool operator==(const Box&) const = default;
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

    /// All bits, padding included.
    std::vector<std::uint8_t> Bits() const {
        std::vector<std::uint8_t> bits(Stride() * static_cast<std::size_t>(m_Height));
        m_Bitmap.GetBitmapBits(static_cast<DWORD>(bits.size()), bits.data());
        return bits;
    }

    /// A byte a pixel, row by row.
    std::vector<char> Pixels() const {
        const std::vector<std::uint8_t> bits = Bits();
        std::vector<char> pixels;
        for (int y = 0; y < m_Height; ++y) {
            for (int x = 0; x < m_Width; ++x) {
                const std::uint8_t byte =
                    bits[Stride() * static_cast<std::size_t>(y) + static_cast<std::size_t>(x / 8)];
                pixels.push_back(static_cast<char>(byte >> (7 - x % 8) & 1));
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

    int Area() const {
        const std::vector<char> pixels = Pixels();
        return static_cast<int>(std::count(pixels.begin(), pixels.end(), 1));
    }

    CDC dc;

  private:
    std::size_t Stride() const { return static_cast<std::size_t>((m_Width + 15) / 16 * 2); }

    CBitmap m_Bitmap;
    int m_Width;
    int m_Height;
};

}  // namespace kv::gdi::test
