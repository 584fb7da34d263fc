// Files that other programs wrote, and those programs reading ours.

#include <CKVPictImage.h>

#include "tests/codec/peer_support.h"

namespace {

class PictPeer : public Peer {
  protected:
    void Save() const {
        ASSERT_EQ(CKVPictImage().SaveImage((m_Folder / "ours.pct").c_str(), &m_Picture, 0), 0);
    }
};

TEST_F(PictPeer, WritesWhatWeRead) {
    if (!HasImageMagick()) {
        GTEST_SKIP() << "no ImageMagick";
    }
    ASSERT_TRUE(Run(ConvertPicture() + " 32.pct"));
    ExpectReads<CKVPictImage>("32.pct", 0);
    ASSERT_TRUE(Run(ConvertPicture() + " -alpha off 24.pct"));
    ExpectReads<CKVPictImage>("24.pct", 0xFF000000);
    // A long comment of odd length before the clip region.
    ASSERT_TRUE(Run("printf abcdefg >odd"));
    ASSERT_TRUE(Run(ConvertPicture() + " -profile iptc:odd comment.pct"));
    ExpectReads<CKVPictImage>("comment.pct", 0);
}

TEST_F(PictPeer, ReadsWhatWeWrite) {
    if (!HasImageMagick()) {
        GTEST_SKIP() << "no ImageMagick";
    }
    Save();
    ASSERT_TRUE(Run("convert ours.pct -alpha off -depth 8 rgb:out.rgb"));
    EXPECT_TRUE(Content("out.rgb") == Channels(3));
}

TEST_F(PictPeer, ReadsTheKeysWeWrite) {
    if (!Run("ffmpeg -version")) {
        GTEST_SKIP() << "no FFmpeg";
    }
    Save();
    ASSERT_TRUE(Run("ffmpeg -i ours.pct -f rawvideo -pix_fmt rgba out.rgba")) << Content("log");
    EXPECT_TRUE(Content("out.rgba") == Channels());
}

}  // namespace
