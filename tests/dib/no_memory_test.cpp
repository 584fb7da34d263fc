#include "tests/support/no_memory.h"

#include <functional>

#include "tests/dib/dib_support.h"

namespace {

using DibNoMemory = dib::Folder;

// Everything that promises a result gives one wherever memory ends, and what it says holds.
TEST_F(DibNoMemory, BecomesAResult) {
    SKIP_UNDER_THREAD_SANITIZER();
    CDib source(9, 7, 8, 0);
    dib::Fill(source, 1, 2);
    const dib::Bytes stored = dib::Saved(source);
    const std::string path = Written("a.bmp", stored);
    const std::string target = Path("b.bmp");
    dib::Screen screen(20, 20);
    CDib section(CSize(4, 4), 8);
    CDC palettes;
    palettes.SelectObject(*section.CreateSection(nullptr));
    MemoryFile file(stored);
    const std::function<int(CDib&)> calls[] = {
        [&](CDib& dib) {
            return dib.Draw(&screen.m_Dc, {0, 0}, {20, 20});
        },
        [&](CDib& dib) { return dib.MakePalette(); },
        [&](CDib& dib) { return dib.Compress(&screen.m_Dc, 1); },
        [&](CDib& dib) { return dib.AttachMapFile(path.c_str(), 1); },
        [&](CDib& dib) { return dib.CopyToMapFile(target.c_str()); },
        [&](CDib& dib) { return dib.SetSystemPalette(&palettes); },
        [&](CDib& dib) {
            file.m_At = 0;
            return dib.Read(&file);
        },
        [&](CDib& dib) {
            const HBITMAP bitmap = dib.CreateBitmap(&screen.m_Dc);
            DeleteObject(bitmap);
            return bitmap != nullptr ? 1 : 0;
        },
    };
    for (std::size_t i = 0; i < std::size(calls); ++i) {
        for (int count = 0; count < 30; ++count) {
            CDib dib;
            ASSERT_EQ(dib::Load(dib, stored), 1);
            if (i == 5) {
                dib.Create(9, 7, 24, 0);
            }
            int result = -1;
            EXPECT_NO_THROW(result = WithAllocations(count, [&] { return calls[i](dib); })) << i;
            EXPECT_TRUE(result == 1 || (result == 0 && count < 29)) << i << ' ' << count;
            if (dib.m_Image != nullptr && i != 2 && i != 5) {
                EXPECT_EQ(dib::Saved(dib), stored) << i << ' ' << count;
            }
        }
    }
}

}  // namespace
