#pragma once

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/codec/picture_support.h"
#include "tests/support/temp_folder.h"

/// Tests with another program on the other side of a file; skipped where it is missing.
class Peer : public testing::Test {
  protected:
    Peer() { pictures::FillInStretches(m_Picture, 5, 30); }

    // Runs a command within the folder.
    bool Run(const std::string& command) const {
        return std::system(("cd '" + m_Folder / "" + "' && " + command + " >log 2>&1").c_str()) ==
               0;
    }
    bool HasImageMagick() const { return Run("convert -list format | grep -q RGBA"); }

    // The picture as the programs are given it: red, green, blue and, unless left out, key.
    std::string Channels(std::size_t count = 4) const {
        std::string bytes;
        for (const DWORD pixel : pictures::Pixels(m_Picture)) {
            const char channels[] = {static_cast<char>(pixel >> 16), static_cast<char>(pixel >> 8),
                                     static_cast<char>(pixel), static_cast<char>(pixel >> 24)};
            bytes.append(channels, count);
        }
        return bytes;
    }
    std::string Content(const std::string& name) const {
        std::ifstream file(m_Folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    // The program's command for the picture without its name: of in.rgba, which is made here.
    std::string ConvertPicture() const {
        std::ofstream(m_Folder / "in.rgba", std::ios::binary) << Channels();
        return "convert -size " + Size() + " -depth 8 rgba:in.rgba";
    }
    std::string Size() const {
        return std::to_string(m_Picture.m_Width) + "x" + std::to_string(m_Picture.m_Height);
    }

    template <typename Codec>
    void ExpectReads(const std::string& name, DWORD solid) const {
        std::vector<DWORD> expected = pictures::Pixels(m_Picture);
        for (DWORD& pixel : expected) {
            pixel |= solid;
        }
        CKVFrameBuffer fb;
        ASSERT_EQ(Codec().LoadImg((m_Folder / name).c_str(), &fb), 0) << name;
        EXPECT_EQ(pictures::Pixels(fb), expected) << name;
    }

    TempFolder m_Folder;
    CKVFrameBuffer m_Picture{97, 21, 1};
};
