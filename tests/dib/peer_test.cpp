// Files that another program wrote, and that program reading ours; skipped where it is missing.

#include "tests/dib/dib_support.h"

namespace {

class DibPeer : public dib::Folder {
  protected:
    void SetUp() override {
        if (!Run("convert -list format | grep -q BMP3")) {
            GTEST_SKIP() << "no ImageMagick";
        }
    }
    // Runs a command within the folder.
    bool Run(const std::string& command) const {
        return std::system(("cd '" + Path("") + "' && " + command + " 2>/dev/null").c_str()) == 0;
    }
    // The pictures 0.bmp and so on as that program shows them.
    std::vector<std::vector<DWORD>> Peers(std::size_t count) const {
        std::string command = "convert";
        for (std::size_t i = 0; i < count; ++i) {
            command += " '(' " + std::to_string(i) +
                       ".bmp -alpha off -depth 8 -write rgb:" + std::to_string(i) +
                       ".rgb +delete ')'";
        }
        EXPECT_TRUE(Run(command + " xc: null:"));
        std::vector<std::vector<DWORD>> pictures(count);
        for (std::size_t i = 0; i < count; ++i) {
            const dib::Bytes bytes = Read(Path(std::to_string(i) + ".rgb"));
            for (std::size_t at = 0; at + 2 < bytes.size(); at += 3) {
                pictures[i].push_back(DWORD{bytes[at]} << 16 | DWORD{bytes[at + 1]} << 8 |
                                      bytes[at + 2]);
            }
        }
        return pictures;
    }
};

TEST_F(DibPeer, WritesWhatWeRead) {
    const struct {
        int bits;
        DWORD compression;
        const char* options;
    } forms[] = {
        {1, BI_RGB, "-monochrome -write BMP3:"},
        {4, BI_RGB, "-colors 16 -type Palette -write BMP3:"},
        {8, BI_RLE8, "-colors 30 -type Palette -compress RLE -write BMP3:"},
        {8, BI_RLE8, "-colors 200 -type Palette -write BMP:"},
        {8, BI_RGB, "-colors 200 -type Palette -compress None -write BMP3:"},
        {24, BI_RGB, "-write BMP3:"},
        {24, BI_RGB, "-type TrueColor -write BMP:"},
        {32, BI_BITFIELDS, "-alpha set -write BMP:"},
        // Last, since the wish stays in force.
        {16, BI_BITFIELDS, "-define bmp:subtype=RGB555 -write BMP3:"},
        {16, BI_BITFIELDS, "-define bmp:subtype=RGB565 -write BMP3:"},
    };
    std::size_t count = 0;
    std::string command = "convert -size 37x21 plasma:red-blue -depth 8";
    for (const auto& form : forms) {
        command += " '(' +clone " + std::string(form.options) + std::to_string(count++) +
                   ".bmp +delete ')'";
    }
    ASSERT_TRUE(Run(command + " null:"));
    const auto pictures = Peers(count);
    for (std::size_t i = 0; i < count; ++i) {
        CDib dib;
        ASSERT_EQ(dib::Load(dib, Read(Path(std::to_string(i) + ".bmp"))), 1) << forms[i].options;
        EXPECT_EQ(dib.GetDimensions(), CSize(37, 21));
        EXPECT_EQ(dib.GetBitCount(), forms[i].bits) << forms[i].options;
        EXPECT_EQ(static_cast<DWORD>(dib.m_Header->biCompression), forms[i].compression);
        EXPECT_EQ(dib::Shown(dib), pictures[i]) << forms[i].options;
    }
}

TEST_F(DibPeer, ReadsWhatWeWrite) {
    dib::Screen screen(1, 1);
    std::vector<std::vector<DWORD>> shown;
    for (const int bits : dib::kDepths) {
        for (const int form : {0, 1, 2}) {  // bottom up, top down, run-length
            CDib dib(37, 21, bits, form == 1 ? 1 : 0);
            dib::Fill(dib, static_cast<unsigned int>(bits + form));
            if (form == 2 && dib.Compress(&screen.m_Dc, 1) == 0) {
                continue;
            }
            Written(std::to_string(shown.size()) + ".bmp", dib::Saved(dib));
            shown.push_back(dib::Shown(dib));
        }
    }
    EXPECT_EQ(Peers(shown.size()), shown);
}

}  // namespace
