#include "tests/dib/dib_support.h"

namespace {

TEST(DibFile, EveryDepthSurvivesTheRoundTrip) {
    for (const int bits : dib::kDepths) {
        for (const int topDown : {0, 1}) {
            CDib dib(7, 5, bits, topDown);
            dib::Fill(dib, static_cast<unsigned int>(bits));
            const dib::Bytes file = dib::Saved(dib);
            CDib back;
            ASSERT_EQ(dib::Load(back, file), 1) << bits;
            EXPECT_EQ(dib::Rows(back), dib::Rows(dib));
            EXPECT_EQ(dib::Saved(back), file);
            EXPECT_EQ(back.m_Palette != nullptr, bits <= 8);
        }
    }
}

TEST(DibFile, IsLaidOutAsTheFormatSays) {
    CDib dib(2, 2, 24, 0);
    dib::Fill(dib, 3);
    dib::Bytes file = dib::File(2, 2, 24, {}, dib::Rows(dib));
    dib::Put(file, 2, 70);
    EXPECT_EQ(dib::Saved(dib), file);
    file[6] = 0xEE;  // reserved
    dib::Put(file, 2, 1);
    MemoryFile behind(file);
    behind.m_Bytes.insert(behind.m_Bytes.begin(), 10, 0xAA);
    behind.m_At = 10;  // read from where the file stands
    EXPECT_EQ(dib.Read(&behind), 1);
    EXPECT_EQ(behind.m_At, 80U);
}

// Each row is a field's offset, its size in bytes and a value that makes the file a lie.
TEST(DibFile, LyingFilesAreRefusedAndLeaveNothing) {
    const dib::Bytes colours(1024, 5);
    const dib::Bytes good = dib::File(5, 4, 8, colours, dib::Bytes(32, 1));
    const struct {
        std::size_t at, size;
        DWORD value;
    } lies[] = {
        {0, 2, 0x424D},
        {10, 4, 0},
        {10, 4, 53},
        {10, 4, 1077},
        {10, 4, 1079},
        {10, 4, 0xFFFFFFFF},
        {18, 4, 0},
        {18, 4, 9},
        {18, 4, 0x7FFFFFFF},
        {18, 4, 0xFFFFFFFF},
        {22, 4, 5},
        {22, 4, 0},
        {22, 4, 0x80000000},
        {22, 4, 0x7FFFFFFF},
        {28, 2, 16},
        {28, 2, 65535},
        {34, 4, 31},
        {34, 4, 33},
        {34, 4, 0xFFFFFFFF},
        {
            30,
            4,
            BI_BITFIELDS + 100,
        },
    };
    for (const auto& lie : lies) {
        dib::Bytes file = good;
        dib::Put(file, lie.at, lie.value, lie.size);
        CDib dib(3, 3, 24, 0);
        const bool refused = lie.at != 30;
        EXPECT_EQ(dib::Load(dib, file), refused ? 0 : 1) << lie.at << ' ' << lie.value;
        EXPECT_EQ(dib.m_Header == nullptr, refused) << lie.at << ' ' << lie.value;
    }
    for (std::size_t length = 0; length < good.size(); length += length < 60 ? 1 : 37) {
        CDib dib;
        EXPECT_EQ(dib::Load(dib, {good.begin(), good.begin() + static_cast<LONG>(length)}), 0);
    }
}

TEST(DibFile, AClaimOfColoursIsBelievedOnlyAsFarAsTheyAreThere) {
    dib::Bytes file = dib::File(2, 2, 24, {}, dib::Bytes(16, 8));
    for (const DWORD claim : {16777216U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
        dib::Put(file, 46, claim);
        CDib dib;
        ASSERT_EQ(dib::Load(dib, file), 1);
        EXPECT_EQ(dib.m_ColorEntries, static_cast<LONG>(claim));
        EXPECT_EQ(dib.m_Palette, nullptr);
        EXPECT_EQ(dib::Saved(dib).size(), file.size());
        EXPECT_EQ(dib::Shown(dib), std::vector<DWORD>(4, 0x080808));
    }
    dib::Bytes more = dib::File(2, 1, 8, dib::Bytes(1024, 3), {255, 0, 0, 0});
    for (const DWORD claim : {1000U, 0xFFFFFFFFU}) {
        dib::Put(more, 46, claim);
        CDib dib;
        ASSERT_EQ(dib::Load(dib, more), 1);
        ASSERT_NE(dib.m_Palette, nullptr);
        EXPECT_EQ(dib.m_Palette->GetEntryCount(), 256);
        EXPECT_EQ(dib::Shown(dib), std::vector<DWORD>(2, 0x030303));
        CDib again;
        EXPECT_EQ(dib::Load(again, dib::Saved(dib)), 1);
    }
}

// Depths without a rule have no colours, however many their bits could name.
TEST(DibFile, WhatWasReadAndWrittenIsReadAgain) {
    for (const int bits : {0, 2, 3, 7, 31}) {
        dib::Bytes file = dib::File(4, 1, bits, {}, dib::Bytes(16, 8));
        dib::Put(file, 2, static_cast<DWORD>(file.size()));
        dib::Put(file, 34, 16);
        CDib dib;
        ASSERT_EQ(dib::Load(dib, file), 1) << bits;
        EXPECT_EQ(dib::Saved(dib), file) << bits;
        EXPECT_EQ(dib::Shown(dib), std::vector<DWORD>(4)) << bits;
    }
}

// Writing shortens a longer header to 40 bytes but leaves the length that it tells.
TEST(DibFile, TheLengthThatAHeaderTellsDoesNotMatter) {
    for (const DWORD length : {0U, 12U, 124U, 0xFFFFFFFFU}) {
        dib::Bytes file = dib::File(2, 2, 24, dib::Bytes(84), dib::Bytes(16, 8));
        dib::Put(file, 14, length);
        CDib dib;
        ASSERT_EQ(dib::Load(dib, file), 1);
        CDib again;
        ASSERT_EQ(dib::Load(again, dib::Saved(dib)), 1);
        EXPECT_EQ(dib::Rows(again), dib::Bytes(16, 8));
    }
}

TEST(DibFile, ExceptionsOfTheFileBecomeResults) {
    CDib source(4, 4, 8, 0);
    dib::Fill(source, 1);
    const dib::Bytes bytes = dib::Saved(source);
    for (int calls = 0; calls < 5; ++calls) {
        MemoryFile file(bytes);
        file.m_CallsUntilThrow = calls;
        CDib dib;
        EXPECT_EQ(dib.Read(&file), 0);
        EXPECT_EQ(dib.m_Image, nullptr);
        EXPECT_EQ(dib.m_Header != nullptr, calls == 4);
        MemoryFile target;
        target.m_CallsUntilThrow = calls;
        EXPECT_EQ(source.Write(&target), calls < 3 ? 0 : 1);
    }
    EXPECT_EQ(source.Read(nullptr), 0);
    EXPECT_EQ(source.Write(nullptr), 0);
}

}  // namespace
