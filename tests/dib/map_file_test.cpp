#include "tests/dib/dib_support.h"

namespace {

using DibMapFile = dib::Folder;

TEST_F(DibMapFile, AttachesWhatTheFileHolds) {
    CDib source(5, 3, 8, 0);
    dib::Fill(source, 2);
    const std::string path = Written("a.bmp", dib::Saved(source));
    CDib shared;
    ASSERT_EQ(shared.AttachMapFile(path.c_str(), 1), 1);
    EXPECT_EQ(dib::Saved(shared), Read(path));
    EXPECT_EQ(static_cast<BYTE*>(shared.m_View) + 14, reinterpret_cast<BYTE*>(shared.m_Header));
    ASSERT_NE(shared.m_Palette, nullptr);
    EXPECT_EQ(shared.m_Palette->GetEntryCount(), 256);
}

TEST_F(DibMapFile, RefusedFilesLeaveTheObject) {
    CDib dib(2, 2, 24, 0);
    dib::Fill(dib, 4);
    const dib::Bytes good = dib::Saved(dib);
    const auto refuse = [&](const dib::Bytes& bytes) {
        EXPECT_EQ(dib.AttachMapFile(Written("bad.bmp", bytes).c_str(), 1), 0);
        EXPECT_EQ(dib::Saved(dib), good);
    };
    refuse({});
    refuse({good.begin(), good.begin() + 53});
    refuse({good.begin(), good.end() - 1});
    for (const auto& [at, value] : {std::pair<std::size_t, DWORD>{0, 0},
                                    {18, 0x7FFFFFFF},
                                    {18, 0xFFFFFFFF},
                                    {22, 0x80000000},
                                    {22, 3},
                                    {34, 17},
                                    {34, 15},
                                    {46, 1},
                                    {46, 16777216},
                                    {46, 0xFFFFFFFF}}) {
        dib::Bytes bytes = good;
        dib::Put(bytes, at, value);
        refuse(bytes);
    }
    EXPECT_EQ(dib.AttachMapFile(Path("").c_str(), 1), 0);
    EXPECT_EQ(dib.AttachMapFile(Path("missing").c_str(), 1), 0);
    EXPECT_EQ(dib.AttachMapFile(nullptr, 1), 0);
}

// Longer than 40 bytes, and more colours than indices need: both come back.
TEST_F(DibMapFile, AttachesAgainWhatItCopied) {
    dib::Bytes file = dib::File(2, 2, 24, dib::Bytes(84), dib::Bytes(16, 8));
    dib::Put(file, 14, 124);
    CDib dib;
    ASSERT_EQ(dib::Load(dib, file), 1);
    ASSERT_EQ(dib.CopyToMapFile(Path("a.bmp").c_str()), 1);
    dib.Empty();
    ASSERT_EQ(dib.AttachMapFile(Path("a.bmp").c_str(), 1), 1);
    EXPECT_EQ(dib::Saved(dib), Read(Path("a.bmp")));
    file = dib::File(2, 2, 24, dib::Bytes(1200, 3), dib::Bytes(16, 8));
    dib::Put(file, 2, static_cast<DWORD>(file.size()));
    dib::Put(file, 46, 300);
    ASSERT_EQ(dib.AttachMapFile(Written("b.bmp", file).c_str(), 1), 1);
    EXPECT_EQ(dib.m_Palette->GetEntryCount(), 300);
    EXPECT_EQ(dib::Saved(dib), file);
    // Of rows that were not all there no more are there in the file.
    const HGLOBAL global = GlobalAlloc(GHND, 56);
    file = dib::File(100, 100, 24, {}, dib::Bytes(16));
    std::copy_n(file.data() + 14, 56, static_cast<BYTE*>(GlobalLock(global)));
    ASSERT_EQ(dib.AttachMemory(GlobalLock(global), 1, global), 1);
    ASSERT_EQ(dib.CopyToMapFile(Path("short.bmp").c_str()), 1);
    EXPECT_EQ(dib.m_SizeImage, 16U);
    EXPECT_EQ(dib::Shown(dib), std::vector<DWORD>(10000));
    // Rows of more bytes than 32 bits count, all there in a file with holes.
    file = dib::File(46000, 46000, 24, {}, {});
    std::filesystem::resize_file(Written("c.bmp", file), std::uintmax_t{46000} * 138000 + 54);
    EXPECT_EQ(dib.AttachMapFile(Path("c.bmp").c_str(), 1), 0);
}

TEST_F(DibMapFile, CopiesIntoAFileAndWritesThrough) {
    const std::string path = Written("new.bmp", dib::Bytes(5000, 1));
    CDib dib(9, 4, 4, 1);
    dib::Fill(dib, 6);
    const dib::Bytes before = dib::Saved(dib);
    ASSERT_EQ(dib.CopyToMapFile(path.c_str()), 1);
    EXPECT_EQ(Read(path), before);
    EXPECT_EQ(dib::Saved(dib), before);
    EXPECT_EQ(dib.m_HeaderAlloc + dib.m_ImageAlloc, 0);
    ASSERT_NE(dib.m_Palette, nullptr);

    static_cast<BYTE*>(dib.m_Image)[0] ^= 0xFF;
    const dib::Bytes after = dib::Saved(dib);
    dib.Empty();
    EXPECT_EQ(Read(path), after);
    CDib other;
    ASSERT_EQ(other.AttachMapFile(path.c_str(), 0), 1);
    EXPECT_EQ(dib::Saved(other), after);
    ASSERT_EQ(other.CopyToMapFile(Path("second.bmp").c_str()), 1);
    EXPECT_EQ(Read(Path("second.bmp")), after);
    EXPECT_EQ(other.CopyToMapFile(Path("no/such.bmp").c_str()), 0);
    EXPECT_EQ(dib::Saved(other), after);
}

}  // namespace
