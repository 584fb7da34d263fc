// What holds for both codecs and their files.

#include <CKVPictImage.h>
#include <CKVTargaImage.h>

#include "tests/codec/picture_support.h"
#include "tests/support/temp_folder.h"

namespace {

template <typename Codec>
constexpr LONG kMaxWidth = 65535;
template <>
constexpr LONG kMaxWidth<CKVPictImage> = 8191;

template <typename Codec>
class CodecFile : public testing::Test {
  protected:
    CodecFile() { pictures::FillInStretches(m_Picture, 3, 2); }

    int Load(const std::string& path) {
        CKVFrameBuffer fb;
        return Codec().LoadImg(path.c_str(), &fb);
    }
    int Save(const std::string& path, LONG mode = 1) {
        return Codec().SaveImage(path.c_str(), &m_Picture, mode);
    }

    TempFolder m_Folder;
    CKVFrameBuffer m_Picture{90, 200, 1};
};

using Codecs = testing::Types<CKVPictImage, CKVTargaImage>;
TYPED_TEST_SUITE(CodecFile, Codecs);

TYPED_TEST(CodecFile, GivesTheCauseOfAFailedOpen) {
    const TempFolder& folder = this->m_Folder;
    ASSERT_EQ(this->Save(folder / "file"), 0);
    EXPECT_EQ(this->Load(folder / "none"), CFileException::fileNotFound);
    EXPECT_EQ(this->Load(folder / "none/none"), CFileException::badPath);
    EXPECT_EQ(this->Load(folder / ""), CFileException::accessDenied);
    EXPECT_EQ(this->Save(folder / "."), CFileException::accessDenied);
    EXPECT_GT(this->Load(folder / "file/below"), 0);
    for (const std::size_t length : {300U, 100000U}) {
        EXPECT_GT(this->Load(folder / std::string(length, 'x')), 0);
        EXPECT_GT(this->Save(folder / std::string(length, 'x')), 0);
    }
}

TYPED_TEST(CodecFile, ReplacesWhatWasThereUnderAnyName) {
    for (const std::string name : {"plain", "\x95\x5C\x8E\xA6\x83\\", "\xFF\x80 %s"}) {
        const std::string path = this->m_Folder / name;
        ASSERT_EQ(this->Save(path, 0), 0);
        ASSERT_EQ(this->Save(path, 1), 0);
        EXPECT_EQ(std::filesystem::file_size(path),
                  pictures::Saved<TypeParam>(this->m_Picture, 1).size());
        CKVFrameBuffer back;
        EXPECT_EQ(TypeParam().LoadImg(path.c_str(), &back), 0);
        EXPECT_EQ(pictures::Pixels(back), pictures::Pixels(this->m_Picture));
        EXPECT_EQ(TypeParam().LoadImg(path.c_str(), &back), -1) << "it has a picture";
        EXPECT_EQ(pictures::Pixels(back), pictures::Pixels(this->m_Picture));
    }
    EXPECT_EQ(this->Save("/dev/full"), -1);
    EXPECT_EQ(this->Load("/dev/null"), -1);
}

TYPED_TEST(CodecFile, WritesNothingForWhatAFileCannotHold) {
    const LONG most = kMaxWidth<TypeParam>;
    const CKVFrameBuffer wide(most + 1, 1, 1);
    const CKVFrameBuffer high(1, 65536, 1);
    const CKVFrameBuffer empty;
    MemoryFile file;
    for (const CKVFrameBuffer* fb :
         {&wide, &high, &empty, static_cast<const CKVFrameBuffer*>(nullptr)}) {
        EXPECT_EQ(TypeParam().SaveImage(&file, fb, 1), -1);
        EXPECT_TRUE(file.m_Bytes.empty());
    }
    EXPECT_EQ(TypeParam().LoadImg(&file, nullptr), -1);
    this->m_Picture.DeleteFrameBuffer();
    const std::string path = this->m_Folder / "empty";
    EXPECT_EQ(this->Save(path), -1);
    EXPECT_EQ(std::filesystem::file_size(path), 0U) << "made before the frame buffer is looked at";
    EXPECT_EQ(this->Load(path), -1);
    for (const auto& [width, height] : {std::pair(most, 1), std::pair(1, 65535)}) {
        CKVFrameBuffer back;
        EXPECT_EQ(pictures::Load<TypeParam>(
                      pictures::Saved<TypeParam>(CKVFrameBuffer(width, height, 1), 1), back),
                  0);
        EXPECT_EQ(back.m_Width, width);
        EXPECT_EQ(back.m_Height, height);
    }
}

// The calls fail one after the other, until none does.
TYPED_TEST(CodecFile, ExceptionsOfTheFileBecomeAFailure) {
    int call = 0;
    for (int result = -1; result != 0; ++call) {
        MemoryFile file(pictures::Saved<TypeParam>(this->m_Picture, 0));
        file.m_CallsUntilThrow = call;
        CKVFrameBuffer fb;
        result = TypeParam().LoadImg(&file, &fb);
        EXPECT_EQ(fb.IsBuffer(), result == 0 ? 0 : 1);
        ASSERT_LT(call, 40);
    }
    EXPECT_GT(call, 5);
    MemoryFile first;
    first.m_CallsUntilThrow = 0;
    EXPECT_THROW(TypeParam().SaveImage(&first, &this->m_Picture, 0), CFileException) << "a seek";
    call = 1;
    for (int result = -1; result != 0; ++call) {
        MemoryFile file;
        file.m_CallsUntilThrow = call;
        result = TypeParam().SaveImage(&file, &this->m_Picture, 0);
        ASSERT_LT(call, 40);
    }
    EXPECT_GT(call, 6);
}

}  // namespace
