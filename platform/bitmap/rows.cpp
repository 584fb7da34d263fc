// Rows of every plain format to and from colours and indices.

#include "platform/bitmap/rows.h"

#include <array>
#include <cstring>
#include <limits>

namespace kv::dib {
namespace {

BYTE IndexAt(unsigned int bits, const BYTE* row, std::size_t pixel) {
    const std::size_t at = pixel * bits;
    const unsigned int shift = 8 - bits - static_cast<unsigned int>(at % 8);
    return static_cast<BYTE>(row[at / 8] >> shift & ((1U << bits) - 1));
}

void PutIndex(unsigned int bits, BYTE* row, std::size_t pixel, unsigned int index) {
    const std::size_t at = pixel * bits;
    const unsigned int shift = 8 - bits - static_cast<unsigned int>(at % 8);
    const unsigned int mask = ((1U << bits) - 1) << shift;
    row[at / 8] = static_cast<BYTE>((row[at / 8] & ~mask) | index << shift);
}

template <typename Word>
DWORD WordAt(const BYTE* row, std::size_t pixel) {
    Word word = 0;
    std::memcpy(&word, row + pixel * sizeof(Word), sizeof(Word));
    return word;
}

// A channel's value brought to 8 bits.
class ChannelReader {
  public:
    explicit ChannelReader(const Channel& channel)
        : m_Mask(channel.mask),
          m_Shift(channel.length > 8 ? channel.shift + channel.length - 8 : channel.shift) {
        for (unsigned int value = 0; value < 256 && channel.length != 0; ++value) {
            m_To8[value] = Repeat(value, channel.length);
        }
    }

    DWORD Read(DWORD word) const { return m_To8[(word & m_Mask) >> m_Shift & 0xFF]; }

  private:
    static BYTE Repeat(unsigned int value, unsigned int length) {
        if (length >= 8) {
            return static_cast<BYTE>(value);
        }
        unsigned int bits = value << (8 - length);
        for (unsigned int have = length; have < 8; have *= 2) {
            bits |= bits >> have;
        }
        return static_cast<BYTE>(bits & 0xFF);
    }

    DWORD m_Mask;
    unsigned int m_Shift;
    std::array<BYTE, 256> m_To8{};
};

DWORD ChannelWord(const Channel& channel, DWORD value) {
    const DWORD placed = channel.length < 8 ? value >> (8 - channel.length) << channel.shift
                                            : value << (channel.shift + channel.length - 8);
    return placed & channel.mask;
}

template <typename Word>
void UnpackWords(const Format& format, const BYTE* row, std::size_t first, std::size_t count,
                 DWORD* colours) {
    const ChannelReader red(format.red);
    const ChannelReader green(format.green);
    const ChannelReader blue(format.blue);
    for (std::size_t i = 0; i < count; ++i) {
        const DWORD word = WordAt<Word>(row, first + i);
        colours[i] = red.Read(word) << 16 | green.Read(word) << 8 | blue.Read(word);
    }
}

template <typename Word>
void PackWords(const Format& format, BYTE* row, std::size_t first, std::size_t count,
               const DWORD* colours) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto word = static_cast<Word>(ChannelWord(format.red, colours[i] >> 16 & 0xFF) |
                                            ChannelWord(format.green, colours[i] >> 8 & 0xFF) |
                                            ChannelWord(format.blue, colours[i] & 0xFF));
        std::memcpy(row + (first + i) * sizeof word, &word, sizeof word);
    }
}

bool HasPlainMasks(const Format& format) {
    return format.red.mask == 0xFF0000 && format.green.mask == 0xFF00 && format.blue.mask == 0xFF;
}

unsigned int NearestIndex(const Format& format, DWORD colour) {
    unsigned int nearest = 0;
    int least = std::numeric_limits<int>::max();
    for (unsigned int i = 0; i < format.colourCount && least > 0; ++i) {
        int distance = 0;
        for (const unsigned int shift : {0U, 8U, 16U}) {
            const int off = static_cast<int>(format.colours[i] >> shift & 0xFF) -
                            static_cast<int>(colour >> shift & 0xFF);
            distance += off * off;
        }
        if (distance < least) {
            least = distance;
            nearest = i;
        }
    }
    return nearest;
}

void PackNearest(const Format& format, BYTE* row, std::size_t first, std::size_t count,
                 const DWORD* colours) {
    unsigned int index = 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (i == 0 || colours[i] != colours[i - 1]) {
            index = NearestIndex(format, colours[i]);
        }
        PutIndex(format.bits, row, first + i, index);
    }
}

}  // namespace

void UnpackRow(const Format& format, const BYTE* row, std::size_t first, std::size_t count,
               DWORD* colours) {
    switch (format.bits) {
        case 8:
            for (std::size_t i = 0; i < count; ++i) {
                colours[i] = format.colours[row[first + i]];
            }
            break;
        case 16:
            UnpackWords<WORD>(format, row, first, count, colours);
            break;
        case 24:
            for (std::size_t i = 0; i < count; ++i) {
                const BYTE* pixel = row + (first + i) * 3;
                colours[i] = DWORD{pixel[2]} << 16 | DWORD{pixel[1]} << 8 | pixel[0];
            }
            break;
        case 32:
            if (!HasPlainMasks(format)) {
                UnpackWords<DWORD>(format, row, first, count, colours);
                break;
            }
            for (std::size_t i = 0; i < count; ++i) {
                colours[i] = WordAt<DWORD>(row, first + i) & 0xFFFFFF;
            }
            break;
        default:
            for (std::size_t i = 0; i < count; ++i) {
                colours[i] = format.colours[IndexAt(format.bits, row, first + i)];
            }
    }
}

void PackRow(const Format& format, BYTE* row, std::size_t first, std::size_t count,
             const DWORD* colours) {
    switch (format.bits) {
        case 16:
            PackWords<WORD>(format, row, first, count, colours);
            break;
        case 24:
            for (std::size_t i = 0; i < count; ++i) {
                std::memcpy(row + (first + i) * 3, &colours[i], 3);
            }
            break;
        case 32:
            if (HasPlainMasks(format)) {
                std::memcpy(row + first * 4, colours, count * 4);
            } else {
                PackWords<DWORD>(format, row, first, count, colours);
            }
            break;
        default:
            PackNearest(format, row, first, count, colours);
    }
}

void UnpackIndices(unsigned int bits, const BYTE* row, std::size_t count, BYTE* indices) {
    if (bits == 8) {
        std::memcpy(indices, row, count);
        return;
    }
    std::size_t i = 0;
    for (; bits == 4 && i + 2 <= count; i += 2) {
        indices[i] = row[i / 2] >> 4;
        indices[i + 1] = row[i / 2] & 0x0F;
    }
    for (; i < count; ++i) {
        indices[i] = IndexAt(bits, row, i);
    }
}

void PackIndices(unsigned int bits, const BYTE* indices, std::size_t count, BYTE* row) {
    if (bits == 8) {
        std::memcpy(row, indices, count);
        return;
    }
    std::size_t i = 0;
    for (; bits == 4 && i + 2 <= count; i += 2) {
        row[i / 2] = static_cast<BYTE>(indices[i] << 4 | (indices[i + 1] & 0x0F));
    }
    for (; i < count; ++i) {
        PutIndex(bits, row, i, indices[i]);
    }
}

}  // namespace kv::dib
