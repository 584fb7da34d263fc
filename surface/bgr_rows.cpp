// Keys added to and dropped from rows of three-byte pixels.

#include "surface/bgr_rows.h"

#include <cstring>

#include "base/vector.h"

namespace kv {
namespace {

// Four bytes at once, the fourth of which is replaced, by the key or by the next pixel; the last
// pixel has no byte behind it.
KV_FORCE_INLINE void AddKeysBody(BYTE* dst, const BYTE* src, std::size_t pixels) {
    for (std::size_t i = 0; i < pixels; ++i) {
        DWORD pixel = 0;
        std::memcpy(&pixel, src + i * 3, i + 1 < pixels ? 4 : 3);
        pixel |= 0xFF000000;
        std::memcpy(dst + i * 4, &pixel, 4);
    }
}

KV_FORCE_INLINE void DropKeysBody(BYTE* dst, const BYTE* src, std::size_t pixels) {
    for (std::size_t i = 0; i < pixels; ++i) {
        std::memcpy(dst + i * 3, src + i * 4, i + 1 < pixels ? 4 : 3);
    }
}

void AddKeysPlain(BYTE* dst, const BYTE* src, std::size_t pixels) {
    AddKeysBody(dst, src, pixels);
}

void DropKeysPlain(BYTE* dst, const BYTE* src, std::size_t pixels) {
    DropKeysBody(dst, src, pixels);
}

// Shuffles of bytes, which the baseline has not: bodies of their own before the last few pixels.
#if KV_HAS_AVX2_PATH
constexpr std::size_t kAtOnce = 8;  // 24 bytes and 32

// Each half of a register takes 16 bytes, of which 12 are used: the second half reads 4 bytes more
// than the eight pixels have.
KV_TARGET_AVX2 void AddKeysAvx2(BYTE* dst, const BYTE* src, std::size_t pixels) {
    const __m256i spread =
        _mm256_setr_epi8(0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1,  //
                         0, 1, 2, -1, 3, 4, 5, -1, 6, 7, 8, -1, 9, 10, 11, -1);
    const __m256i keys = _mm256_set1_epi32(static_cast<int>(0xFF000000));
    while (pixels >= kAtOnce + 2) {
        const __m128i low = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src));
        const __m128i high = _mm_loadu_si128(reinterpret_cast<const __m128i*>(src + 12));
        const __m256i both = _mm256_inserti128_si256(_mm256_castsi128_si256(low), high, 1);
        const __m256i colours = _mm256_shuffle_epi8(both, spread);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst), _mm256_or_si256(colours, keys));
        src += kAtOnce * 3;
        dst += kAtOnce * 4;
        pixels -= kAtOnce;
    }
    AddKeysBody(dst, src, pixels);
}

// Writes 8 bytes more than the eight pixels have, which the next ones replace.
KV_TARGET_AVX2 void DropKeysAvx2(BYTE* dst, const BYTE* src, std::size_t pixels) {
    const __m256i close =
        _mm256_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1,  //
                         0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    const __m256i join = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 3, 7);
    while (pixels >= kAtOnce + 3) {
        const __m256i eight = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(src));
        const __m256i closed = _mm256_shuffle_epi8(eight, close);
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(dst),
                            _mm256_permutevar8x32_epi32(closed, join));
        src += kAtOnce * 4;
        dst += kAtOnce * 3;
        pixels -= kAtOnce;
    }
    DropKeysBody(dst, src, pixels);
}
#else
constexpr auto* AddKeysAvx2 = AddKeysPlain;
constexpr auto* DropKeysAvx2 = DropKeysPlain;
#endif

}  // namespace

void AddKeys(BYTE* dst, const BYTE* src, std::size_t pixels) {
    ForLevel(AddKeysPlain, AddKeysAvx2)(dst, src, pixels);
}

void DropKeys(BYTE* dst, const BYTE* src, std::size_t pixels) {
    ForLevel(DropKeysPlain, DropKeysAvx2)(dst, src, pixels);
}

}  // namespace kv
