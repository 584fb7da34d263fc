#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <platform/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#if !defined(__has_feature)
#define __has_feature(feature) 0
#endif

namespace {

constexpr UINT kToRead = CFile::typeBinary | CFile::shareDenyWrite | CFile::modeRead;
constexpr UINT kToWrite =
    CFile::typeBinary | CFile::modeCreate | CFile::shareExclusive | CFile::modeWrite;

class FileTest : public testing::Test {
  protected:
    FileTest() : m_Folder(testing::TempDir() + "kvdraw_file_XXXXXX") {
        EXPECT_NE(mkdtemp(m_Folder.data()), nullptr);
    }
    ~FileTest() override { std::filesystem::remove_all(m_Folder); }

    std::string Path(const std::string& name) const { return m_Folder + "/" + name; }
    std::string Written(const std::string& name, const std::string& bytes) const {
        CFile file;
        EXPECT_TRUE(file.Open(Path(name).c_str(), kToWrite));
        file.Write(bytes.data(), static_cast<UINT>(bytes.size()));
        return Path(name);
    }
    static int Cause(const std::string& path, UINT flags) {
        CFileException error;
        CFile file;
        return file.Open(path.c_str(), flags, &error) ? CFileException::none : error.m_cause;
    }

    std::string m_Folder;
};

template <typename Call>
int Thrown(Call call) {
    try {
        call();
    } catch (const CFileException& error) {
        return error.m_cause;
    }
    return CFileException::none;
}

TEST_F(FileTest, ReadsShortAtTheEndAndSeeksFromThreePlaces) {
    const std::string path = Written("a", "0123456789");
    CFile file;
    ASSERT_TRUE(file.Open(path.c_str(), kToRead));
    EXPECT_EQ(file.GetLength(), 10U);
    char bytes[16] = {};
    EXPECT_EQ(file.Seek(-3, CFile::end), 7U);
    EXPECT_EQ(file.Read(bytes, 16), 3U);
    EXPECT_STREQ(bytes, "789");
    file.SeekToBegin();
    EXPECT_EQ(file.Seek(4, CFile::current), 4U);
    EXPECT_EQ(file.Seek(std::int64_t{1} << 40, CFile::begin), std::uint64_t{1} << 40);
    EXPECT_EQ(file.GetPosition(), std::uint64_t{1} << 40);
    EXPECT_EQ(Thrown([&] { file.Seek(-1, CFile::begin); }), CFileException::badSeek);
    EXPECT_EQ(Thrown([&] { file.Seek(0, 3); }), CFileException::badSeek);
}

TEST_F(FileTest, FailedOpensNameTheirCause) {
    mkfifo(Path("pipe").c_str(), 0600);
    const std::string file = Written("file", "x");
    EXPECT_EQ(Cause(Path("missing"), kToRead), CFileException::fileNotFound);
    EXPECT_EQ(Cause(Path("no/such"), kToRead), CFileException::badPath);
    EXPECT_EQ(Cause(file + "/below", kToRead), CFileException::badPath);
    EXPECT_EQ(Cause(Path(std::string(5000, 'x')), kToRead), CFileException::badPath);
    EXPECT_EQ(Cause("", kToRead), CFileException::badPath);
    EXPECT_EQ(Cause(m_Folder, kToRead), CFileException::accessDenied);
    EXPECT_EQ(Cause(Path("pipe"), kToRead), CFileException::accessDenied);
    EXPECT_FALSE(CFile().Open(nullptr, kToRead));
}

TEST_F(FileTest, FailedOperationsThrow) {
    char byte = 0;
    CFile closed;
    EXPECT_EQ(Thrown([&] { closed.Read(&byte, 1); }), CFileException::invalidFile);
    EXPECT_EQ(Thrown([&] { closed.GetLength(); }), CFileException::invalidFile);
    EXPECT_NO_THROW(closed.Close());

    CFile reader;
    ASSERT_TRUE(reader.Open(Written("a", "x").c_str(), kToRead));
    EXPECT_FALSE(reader.Open(Path("a").c_str(), kToRead)) << "one object, one file";
    EXPECT_EQ(Thrown([&] { reader.Write(&byte, 1); }), CFileException::invalidFile);
    ::close(reader.GetDescriptor());
    EXPECT_EQ(Thrown([&] { reader.Close(); }), CFileException::invalidFile);
    EXPECT_EQ(Cause(Path("a"), kToWrite), CFileException::none) << "closed all the same";

    CFile full;
    ASSERT_TRUE(full.Open("/dev/full", kToWrite));
    EXPECT_EQ(Thrown([&] { full.Write(&byte, 1); }), CFileException::diskFull);
}

TEST_F(FileTest, RunningOutOfDescriptorsIsTooManyOpenFiles) {
#if __has_feature(address_sanitizer)
    GTEST_SKIP() << "The sanitizer's own checks need descriptors.";
#endif
    const std::string path = Written("a", "x");
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const int cause = Cause(path, kToRead);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_EQ(cause, CFileException::tooManyOpenFiles);
}

}  // namespace
