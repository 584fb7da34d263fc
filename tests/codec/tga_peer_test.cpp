// Files that other programs wrote, and other programs reading ours; skipped where they are missing.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/codec/tga_support.h"

namespace {

class TgaPeer : public testing::Test {
  protected:
    TgaPeer() : m_Folder(testing::TempDir() + "kvdraw_tga_XXXXXX") {
        EXPECT_NE(mkdtemp(m_Folder.data()), nullptr);
    }
    ~TgaPeer() override { std::filesystem::remove_all(m_Folder); }

    std::string Path(const std::string& name) const { return m_Folder + "/" + name; }
    // Runs a command within the folder.
    bool Run(const std::string& command) const {
        return std::system(("cd '" + m_Folder + "' && " + command + " 2>/dev/null").c_str()) == 0;
    }
    tga::Bytes Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    void Write(const std::string& name, const std::string& text, const tga::Bytes& bytes) const {
        std::ofstream file(Path(name), std::ios::binary);
        file << text;
        file.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }

    // The picture that the programs are given, as bytes of so many channels in the order red,
    // green, blue, key.
    static CKVFrameBuffer Picture() {
        CKVFrameBuffer fb(37, 21, 1);
        tga::FillInStretches(fb, 5, 30);
        return fb;
    }
    static tga::Bytes Channels(const CKVFrameBuffer& fb, int channels) {
        tga::Bytes bytes;
        for (const DWORD pixel : tga::Pixels(fb)) {
            for (const int shift : {16, 8, 0, 24}) {
                if (shift != 24 || channels == 4) {
                    bytes.push_back(static_cast<BYTE>(pixel >> shift & 0xFF));
                }
            }
        }
        return bytes;
    }
    void ExpectReads(const std::string& name, int channels) const {
        CKVFrameBuffer fb;
        CKVTargaImage codec;
        ASSERT_EQ(codec.LoadImg(Path(name).c_str(), &fb), 0) << name;
        EXPECT_EQ(codec.GetKeyFlag(), channels == 4 ? 1 : 0) << name;
        EXPECT_EQ(Channels(fb, channels), Channels(Picture(), channels)) << name;
    }

    std::string m_Folder;
};

TEST_F(TgaPeer, ImageMagickWritesWhatWeRead) {
    if (!Run("convert -list format | grep -q RGBA")) {
        GTEST_SKIP() << "no ImageMagick";
    }
    Write("in.rgba", "", Channels(Picture(), 4));
    // It writes rows in the order it has them and tells that order by the orientation.
    const std::string from = "convert -size 37x21 -depth 8 rgba:in.rgba ";
    ASSERT_TRUE(Run(from + "-orient TopLeft -compress none raw32.tga"));
    ASSERT_TRUE(Run(from + "-orient TopLeft -compress rle run32.tga"));
    ASSERT_TRUE(Run(from + "-alpha off -flip -orient BottomLeft -compress none raw24.tga"));
    ASSERT_TRUE(Run(from + "-alpha off -flip -orient BottomLeft -compress rle run24.tga"));
    ExpectReads("raw32.tga", 4);
    ExpectReads("run32.tga", 4);
    ExpectReads("raw24.tga", 3);
    ExpectReads("run24.tga", 3);
}

TEST_F(TgaPeer, ImageMagickReadsWhatWeWrite) {
    if (!Run("convert -list format | grep -q RGBA")) {
        GTEST_SKIP() << "no ImageMagick";
    }
    const CKVFrameBuffer fb = Picture();
    for (const LONG mode : {0, 1}) {
        ASSERT_EQ(CKVTargaImage().SaveImage(Path("ours.tga").c_str(), &fb, mode), 0);
        ASSERT_TRUE(Run("convert ours.tga -auto-orient -depth 8 rgba:out.rgba"));
        EXPECT_EQ(Read("out.rgba"), Channels(fb, 4)) << "mode " << mode;
    }
}

TEST_F(TgaPeer, NetpbmWritesWhatWeRead) {
    Write("in.ppm", "P6 37 21 255\n", Channels(Picture(), 3));
    if (!Run("pamtotga -rgb -norle in.ppm >raw.tga")) {
        GTEST_SKIP() << "no netpbm";
    }
    ASSERT_TRUE(Run("pamtotga -rgb in.ppm >run.tga"));
    ExpectReads("raw.tga", 3);
    ExpectReads("run.tga", 3);
}

TEST_F(TgaPeer, NetpbmReadsWhatWeWrite) {
    const CKVFrameBuffer fb = Picture();
    for (const LONG mode : {0, 1}) {
        ASSERT_EQ(CKVTargaImage().SaveImage(Path("ours.tga").c_str(), &fb, mode), 0);
        if (!Run("command -v tgatoppm >found")) {
            GTEST_SKIP() << "no netpbm";
        }
        ASSERT_TRUE(Run("tgatoppm ours.tga >out.ppm"));
        const tga::Bytes out = Read("out.ppm");
        const tga::Bytes expected = Channels(fb, 3);
        ASSERT_GT(out.size(), expected.size());
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(),
                               out.end() - static_cast<long>(expected.size())));
    }
}

}  // namespace
