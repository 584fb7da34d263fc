#include <climits>
#include <memory>

#include "tests/dib/dib_support.h"

namespace {

TEST(DibStore, CreateLaysOutEveryDepth) {
    for (const int bits : dib::kDepths) {
        for (const int topDown : {0, 1, 2}) {
            CDib dib(13, 3, bits, topDown);
            const int entries = bits <= 8 ? 1 << bits : 0;
            const auto row = static_cast<DWORD>((13 * bits + 31) / 32 * 4);
            const tagBITMAPINFOHEADER& header = *dib.GetBitmapInfoHeader();
            EXPECT_EQ(dib.GetLineByte(), row);
            EXPECT_EQ(dib.m_SizeImage, row * 3);
            EXPECT_EQ(dib.GetSizeHeader(), 40 + 4 * entries);
            EXPECT_EQ(dib.GetInvert(), topDown == 1 ? 1 : 0);
            EXPECT_EQ(dib.GetDimensions(), CSize(13, 3));
            EXPECT_EQ(static_cast<LONG>(header.biHeight), topDown == 1 ? -3 : 3);
            EXPECT_EQ(static_cast<int>(header.biClrUsed), entries);
            EXPECT_EQ(static_cast<int>(header.biClrImportant), entries);
            EXPECT_EQ(static_cast<DWORD>(header.biSizeImage), 0U);
            EXPECT_EQ(static_cast<void*>(dib.m_ColorTable), dib.m_Header + 1);
            dib::Fill(dib, 1);  // all of it is there
        }
    }
}

TEST(DibStore, BadRequestsLeaveThePicture) {
    CDib dib(3, 2, 24, 0);
    const void* image = dib.GetImageBuffer();
    EXPECT_EQ(dib.Create(10, 10, 2, 0), 0);
    EXPECT_EQ(dib.Create(0, 10, 8, 0), 0);
    EXPECT_EQ(dib.Create(10, -10, 8, 0), 0);
    EXPECT_EQ(dib.Create(65536, 65536, 32, 0), 0);
    EXPECT_EQ(dib.Create(INT_MAX, INT_MAX, 32, 0), 0);
    EXPECT_EQ(dib.AttachImage(nullptr, {3, 2}, 8, 0), 0);
    EXPECT_EQ(dib.AttachMemory(nullptr, 0, nullptr), 0);
    EXPECT_EQ(dib.GetDimensions(), CSize(0, 0));
    ASSERT_NE(image, nullptr);
    BYTE pixels[24] = {};
    EXPECT_EQ(CDib(pixels, CSize(3, 2), 8, 0).GetDimensions(), CSize(0, 0));
}

TEST(DibStore, HeadersAloneAreHarmless) {
    const TempFolder folder;
    const std::string path = folder / "a.bmp";
    for (const CSize size : {CSize(5, 4), CSize(-5, 4), CSize(INT_MAX, INT_MIN), CSize(0, 0)}) {
        for (const int bits : {0, 7, 8, 32, 65535}) {
            CDib dib(size, bits);
            MemoryFile file;
            dib::Screen screen(4, 4);
            EXPECT_EQ(dib.m_Image, nullptr);
            EXPECT_EQ(dib.Write(&file), 0);
            EXPECT_EQ(dib.CopyToMapFile(path.c_str()), 0);
            EXPECT_EQ(dib.CreateBitmap(&screen.m_Dc), nullptr);
            EXPECT_EQ(dib.Compress(&screen.m_Dc, 1), 0);
            EXPECT_EQ(dib.Draw(&screen.m_Dc, {0, 0}, {4, 4}), 1);
            EXPECT_GE(dib.GetHeight(), 0);
        }
    }
    CDib dib(CSize(5, 4), 8);
    EXPECT_EQ(dib.m_ColorTable[255].rgbRed, 0);
}

TEST(DibStore, AttachedPixelsStayTheCallers) {
    std::vector<BYTE> pixels(24, 7);
    {
        CDib dib(pixels.data(), CSize(3, 2), 24, 1);
        EXPECT_EQ(dib.GetImageBuffer(), pixels.data());
        EXPECT_EQ(dib.GetInvert(), 1);
        dib.Empty();
        EXPECT_EQ(dib.GetDimensions(), CSize(0, 0));
        EXPECT_EQ(dib.AttachImage(pixels.data(), {2, 3}, 16, 0), 1);
    }
    EXPECT_EQ(pixels, std::vector<BYTE>(24, 7));
}

// The leak checker sees whether the owner releases the block.
TEST(DibStore, AttachedBlocksBelongToWhoWasNamed) {
    const dib::Bytes file = dib::File(3, 2, 8, dib::Bytes(20, 9), dib::Bytes(8, 1));
    dib::Bytes block(file.begin() + 14, file.end());
    dib::Put(block, 32, 5);
    const HGLOBAL global = GlobalAlloc(GMEM_MOVEABLE, block.size());
    void* locked = GlobalLock(global);
    std::memcpy(locked, block.data(), block.size());
    BYTE* owned = new BYTE[block.size()];
    std::memcpy(owned, block.data(), block.size());
    CDib dib;
    for (const auto& [header, isOwned, handle, alloc] :
         {std::tuple<void*, int, HGLOBAL, LONG>{block.data(), 0, nullptr, 0},
          {owned, 1, nullptr, 1},
          {locked, 1, global, 2}}) {
        EXPECT_EQ(dib.AttachMemory(header, isOwned, handle), 1);
        EXPECT_EQ(dib.m_HeaderAlloc, alloc);
        EXPECT_EQ(dib.m_ColorEntries, 5);
        EXPECT_EQ(dib.GetImageBuffer(), static_cast<BYTE*>(header) + 60);
        EXPECT_EQ(dib.m_SizeImage, 8U);
        ASSERT_NE(dib.m_Palette, nullptr);
        EXPECT_EQ(dib.m_Palette->GetEntryCount(), 5);
    }
    // Rows that the global block does not hold are not there.
    static_cast<tagBITMAPINFOHEADER*>(locked)->biHeight = 100;
    CDib liar;
    liar.AttachMemory(locked, 0, global);
    EXPECT_EQ(liar.m_SizeImage, 8U);
    dib.Empty();
    EXPECT_EQ(GlobalSize(global), 0U);
}

// A block too short for its header is not taken; one too short for its table gives what is there.
TEST(DibStore, ShortBlocksAreNotReadBeyond) {
    for (const std::size_t size : {1U, 39U, 40U, 47U, 60U}) {
        const HGLOBAL global = GlobalAlloc(GHND, size);
        void* block = GlobalLock(global);
        const WORD bits = 8;
        if (size > 16) {
            std::memcpy(static_cast<BYTE*>(block) + 14, &bits, sizeof bits);
        }
        CDib dib(3, 2, 24, 0);
        ASSERT_EQ(dib.AttachMemory(block, 1, global), size < 40 ? 0 : 1);
        EXPECT_EQ(dib.m_Header, size < 40 ? nullptr : block);
        const int colours = dib.m_Palette != nullptr ? dib.m_Palette->GetEntryCount() : 0;
        EXPECT_EQ(colours, size < 40 ? 0 : static_cast<int>(size - 40) / 4);
        dib.Empty();
        EXPECT_EQ(GlobalSize(global), size < 40 ? size : 0);
        if (size < 40) {
            GlobalFree(global);
        }
    }
}

TEST(DibStore, IsMadeByName) {
    const std::unique_ptr<CObject> made(CRuntimeClass::CreateObject("CDib"));
    ASSERT_NE(dynamic_cast<CDib*>(made.get()), nullptr);
    EXPECT_EQ(made->GetRuntimeClass()->m_wSchema, 0U);
    MemoryFile file(dib::File(1, 1, 24, {}, {1, 2, 3, 0}));
    CArchive load(&file, CArchive::load);
    made->Serialize(load);
    MemoryFile copy;
    CArchive store(&copy, CArchive::store);
    made->Serialize(store);
    dib::Put(file.m_Bytes, 2, 58);  // what reading does not look at
    EXPECT_EQ(copy.m_Bytes, file.m_Bytes);
}

}  // namespace
