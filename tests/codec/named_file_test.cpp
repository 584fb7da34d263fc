// Both codecs by file name.

#include <filesystem>

#include <CKVPictImage.h>
#include <CKVTargaImage.h>

#include "tests/codec/picture_support.h"

namespace {

template <typename Codec>
class NamedFile : public testing::Test {
  protected:
    NamedFile() { pictures::FillInStretches(m_Picture, 3, 4); }
    ~NamedFile() override { std::filesystem::remove_all(m_Folder); }
    void SetUp() override { ASSERT_NE(mkdtemp(m_Folder.data()), nullptr); }

    int Load(const std::string& path) {
        CKVFrameBuffer fb;
        return Codec().LoadImg(path.c_str(), &fb);
    }
    int Save(const std::string& path, const CKVFrameBuffer& fb, LONG mode = 1) {
        return Codec().SaveImage(path.c_str(), &fb, mode);
    }

    std::string m_Folder = testing::TempDir() + "kvdraw_named_XXXXXX";
    CKVFrameBuffer m_Picture{90, 20, 1};
};

using Codecs = testing::Types<CKVPictImage, CKVTargaImage>;
TYPED_TEST_SUITE(NamedFile, Codecs);

TYPED_TEST(NamedFile, GivesTheCauseOfAFailedOpen) {
    const std::string file = this->m_Folder + "/file";
    ASSERT_EQ(this->Save(file, this->m_Picture), 0);
    EXPECT_EQ(this->Load(this->m_Folder + "/none"), CFileException::fileNotFound);
    EXPECT_EQ(this->Load(this->m_Folder + "/none/none"), CFileException::badPath);
    EXPECT_EQ(this->Load(this->m_Folder), CFileException::accessDenied);
    EXPECT_EQ(this->Save(this->m_Folder, this->m_Picture), CFileException::accessDenied);
    EXPECT_GT(this->Load(file + "/below"), 0);
    for (const std::size_t length : {300U, 5000U, 100000U}) {
        EXPECT_GT(this->Load(this->m_Folder + "/" + std::string(length, 'x')), 0);
        EXPECT_GT(this->Save(this->m_Folder + "/" + std::string(length, 'x'), this->m_Picture), 0);
    }
}

TYPED_TEST(NamedFile, ReplacesWhatWasThereUnderAnyName) {
    for (const std::string name : {"plain", "\x95\x5C\x8E\xA6\x83\\", "\xFF\x80 %s"}) {
        const std::string path = this->m_Folder + "/" + name;
        ASSERT_EQ(this->Save(path, this->m_Picture, 0), 0);
        ASSERT_EQ(this->Save(path, this->m_Picture, 1), 0);
        EXPECT_EQ(std::filesystem::file_size(path),
                  pictures::Saved<TypeParam>(this->m_Picture, 1).size());
        CKVFrameBuffer back;
        EXPECT_EQ(TypeParam().LoadImg(path.c_str(), &back), 0);
        EXPECT_EQ(pictures::Pixels(back), pictures::Pixels(this->m_Picture));
    }
}

TYPED_TEST(NamedFile, FailsAfterTheOpen) {
    const std::string path = this->m_Folder + "/empty";
    EXPECT_EQ(this->Save(path, CKVFrameBuffer()), -1);
    EXPECT_EQ(std::filesystem::file_size(path), 0U) << "made before the frame buffer is looked at";
    EXPECT_EQ(this->Load(path), -1);
    EXPECT_EQ(this->Save("/dev/full", this->m_Picture), -1);
}

}  // namespace
