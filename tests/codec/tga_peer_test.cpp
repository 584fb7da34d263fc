// Files that another program wrote, and that program reading ours.

#include <CKVTargaImage.h>

#include "tests/codec/peer_support.h"

namespace {

using TgaPeer = Peer;

TEST_F(TgaPeer, WritesWhatWeRead) {
    if (!HasImageMagick()) {
        GTEST_SKIP() << "no ImageMagick";
    }
    for (const std::string pack : {"none", "rle"}) {
        // It writes rows in the order it has them and tells that order by the orientation.
        const std::string from = ConvertPicture() + " -compress " + pack;
        ASSERT_TRUE(Run(from + " -orient TopLeft 32.tga"));
        ExpectReads<CKVTargaImage>("32.tga", 0);
        ASSERT_TRUE(Run(from + " -alpha off -flip -orient BottomLeft 24.tga"));
        ExpectReads<CKVTargaImage>("24.tga", 0xFF000000);
    }
}

TEST_F(TgaPeer, ReadsWhatWeWrite) {
    if (!HasImageMagick()) {
        GTEST_SKIP() << "no ImageMagick";
    }
    for (const LONG mode : {0, 1}) {
        ASSERT_EQ(CKVTargaImage().SaveImage((m_Folder / "ours.tga").c_str(), &m_Picture, mode), 0);
        ASSERT_TRUE(Run("convert ours.tga -auto-orient -depth 8 rgba:out.rgba"));
        EXPECT_TRUE(Content("out.rgba") == Channels()) << mode;
    }
}

}  // namespace
