#pragma once

#include <algorithm>
#include <cstring>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include <CDib.h>
#include <gtest/gtest.h>

#include "tests/support/memory_file.h"
#include "tests/support/temp_folder.h"

namespace dib {

using Bytes = std::vector<BYTE>;

inline constexpr int kDepths[] = {1, 4, 8, 16, 24, 32};

inline void Put(Bytes& bytes, std::size_t at, DWORD value, std::size_t count = 4) {
    std::memcpy(bytes.data() + at, &value, count);
}

/// A BMP file laid out by hand: 54 bytes of headers, `extra` (colours, masks), rows. Fields are
/// patched by the tests at their offsets in the file.
inline Bytes File(LONG width, LONG height, int bits, const Bytes& extra, const Bytes& rows) {
    Bytes file(54 + extra.size() + rows.size());
    file[0] = 'B';
    file[1] = 'M';
    Put(file, 10, static_cast<DWORD>(54 + extra.size()));
    Put(file, 14, 40);
    Put(file, 18, static_cast<DWORD>(width));
    Put(file, 22, static_cast<DWORD>(height));
    Put(file, 26, 1, 2);
    Put(file, 28, static_cast<DWORD>(bits), 2);
    std::ranges::copy(extra, file.begin() + 54);
    std::ranges::copy(rows, file.end() - static_cast<std::ptrdiff_t>(rows.size()));
    return file;
}

inline int Load(CDib& dib, const Bytes& bytes) {
    MemoryFile file(bytes);
    return dib.Read(&file);
}

inline Bytes Saved(CDib& dib) {
    MemoryFile file;
    EXPECT_EQ(dib.Write(&file), 1);
    return file.m_Bytes;
}

inline Bytes Rows(const CDib& dib) {
    const auto* first = static_cast<const BYTE*>(dib.m_Image);
    return first == nullptr ? Bytes() : Bytes(first, first + dib.m_SizeImage);
}

/// Colours and pixels from a seed; pixels in stretches, so that runs and literals both come up.
inline void Fill(CDib& dib, unsigned int seed, unsigned int longest = 9) {
    std::mt19937 random(seed);
    for (LONG i = 0; i < dib.m_ColorEntries; ++i) {
        const auto colour = static_cast<DWORD>(random() & 0xFFFFFF);
        std::memcpy(dib.m_ColorTable + i, &colour, 4);
    }
    auto* pixels = static_cast<BYTE*>(dib.m_Image);
    BYTE value = 0;
    for (DWORD i = 0, left = 0; i < dib.m_SizeImage; ++i, --left) {
        if (left == 0) {
            left = static_cast<DWORD>(random() % longest + 1);
            value = static_cast<BYTE>(random() & 0xFF);
        }
        pixels[i] = value;
    }
}

/// A context with a cleared colour bitmap.
struct Screen {
    Screen(LONG width, LONG height) : m_Width(width), m_Height(height) {
        EXPECT_TRUE(m_Bitmap.CreateBitmap(width, height, 1, 32, nullptr));
        m_Dc.SelectObject(m_Bitmap);
    }
    /// Top row first, 0x00RRGGBB.
    std::vector<DWORD> Pixels() const {
        std::vector<DWORD> pixels(static_cast<std::size_t>(m_Width) *
                                  static_cast<std::size_t>(m_Height));
        const auto size = static_cast<DWORD>(pixels.size() * 4);
        EXPECT_EQ(m_Bitmap.GetBitmapBits(size, pixels.data()), size);
        return pixels;
    }

    LONG m_Width;
    LONG m_Height;
    CBitmap m_Bitmap;
    CDC m_Dc;
};

/// The picture as a device shows it.
inline std::vector<DWORD> Shown(CDib& dib) {
    const CSize size = dib.GetDimensions();
    Screen screen(size.cx, size.cy);
    EXPECT_EQ(dib.Draw(&screen.m_Dc, CPoint(0, 0), size), 1);
    return screen.Pixels();
}

/// A folder of its own for a test's files.
class Folder : public testing::Test {
  protected:
    std::string Path(const std::string& name) const { return m_Folder / name; }
    std::string Written(const std::string& name, const Bytes& bytes) const {
        std::ofstream(Path(name), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        return Path(name);
    }
    static Bytes Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        return {text.begin(), text.end()};
    }

    TempFolder m_Folder;
};

}  // namespace dib
