#include "surface/bgr_rows.h"

#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/each_level.h"

namespace {

using Bytes = std::vector<BYTE>;

// Both ways at every length, on exactly as many bytes as the pixels have, so that a checked heap
// sees what is read or written beyond them.
TEST(BgrRows, AreThePlainLoop) {
    std::mt19937 random(4);
    AtEachLevel([&] {
        for (std::size_t pixels = 1; pixels <= 90; ++pixels) {
            Bytes three(pixels * 3);
            Bytes four(pixels * 4, 255);
            for (std::size_t i = 0; i < pixels * 3; ++i) {
                three[i] = static_cast<BYTE>(random() & 0xFF);
                four[i / 3 * 4 + i % 3] = three[i];
            }
            Bytes out(pixels * 4);
            kv::AddKeys(out.data(), three.data(), pixels);
            ASSERT_EQ(out, four) << pixels;
            for (std::size_t i = 3; i < four.size(); i += 4) {
                four[i] = static_cast<BYTE>(random() & 0xFF);
            }
            out.assign(pixels * 3, 0);
            kv::DropKeys(out.data(), four.data(), pixels);
            ASSERT_EQ(out, three) << pixels;
        }
    });
}

}  // namespace
