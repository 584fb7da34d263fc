// Files that another program wrote, and that program reading ours; skipped where it is missing.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/codec/tga_support.h"

namespace {

class TgaPeer : public testing::Test {
  protected:
    TgaPeer() { tga::FillInStretches(m_Picture, 5, 30); }
    ~TgaPeer() override { std::filesystem::remove_all(m_Folder); }
    void SetUp() override {
        ASSERT_NE(mkdtemp(m_Folder.data()), nullptr);
        if (!Run("convert -list format | grep -q RGBA")) {
            GTEST_SKIP() << "no ImageMagick";
        }
    }

    std::string Path(const std::string& name) const { return m_Folder + "/" + name; }
    // Runs a command within the folder.
    bool Run(const std::string& command) const {
        return std::system(("cd '" + m_Folder + "' && " + command + " 2>/dev/null").c_str()) == 0;
    }
    // The picture as the program is given it: red, green, blue, key.
    std::string Rgba() const {
        std::string bytes;
        for (const DWORD pixel : tga::Pixels(m_Picture)) {
            for (const int shift : {16, 8, 0, 24}) {
                bytes += static_cast<char>(pixel >> shift & 0xFF);
            }
        }
        return bytes;
    }
    void ExpectReads(const std::string& name, DWORD solid) const {
        std::vector<DWORD> expected = tga::Pixels(m_Picture);
        for (DWORD& pixel : expected) {
            pixel |= solid;
        }
        CKVFrameBuffer fb;
        ASSERT_EQ(CKVTargaImage().LoadImg(Path(name).c_str(), &fb), 0) << name;
        EXPECT_EQ(tga::Pixels(fb), expected) << name;
    }

    std::string m_Folder = testing::TempDir() + "kvdraw_tga_XXXXXX";
    CKVFrameBuffer m_Picture{37, 21, 1};
};

TEST_F(TgaPeer, WritesWhatWeRead) {
    std::ofstream(Path("in.rgba"), std::ios::binary) << Rgba();
    for (const std::string pack : {"none", "rle"}) {
        // It writes rows in the order it has them and tells that order by the orientation.
        const std::string from = "convert -size 37x21 -depth 8 rgba:in.rgba -compress " + pack;
        ASSERT_TRUE(Run(from + " -orient TopLeft 32.tga"));
        ExpectReads("32.tga", 0);
        ASSERT_TRUE(Run(from + " -alpha off -flip -orient BottomLeft 24.tga"));
        ExpectReads("24.tga", 0xFF000000);
    }
}

TEST_F(TgaPeer, ReadsWhatWeWrite) {
    for (const LONG mode : {0, 1}) {
        ASSERT_EQ(CKVTargaImage().SaveImage(Path("ours.tga").c_str(), &m_Picture, mode), 0);
        ASSERT_TRUE(Run("convert ours.tga -auto-orient -depth 8 rgba:out.rgba"));
        std::ifstream out(Path("out.rgba"), std::ios::binary);
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(out), {}), Rgba()) << mode;
    }
}

}  // namespace
