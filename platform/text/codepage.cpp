// Code page 932 and Unicode: one table each way, filled from the system once.

#include "platform/text/codepage.h"

#include <array>
#include <bit>
#include <memory>

#include <iconv.h>

#include "platform/text/mbcs.h"

namespace kv {
namespace {

constexpr const char* kUtf16 = "UTF-16LE";  // the order in memory, as on every supported processor

// One direction of the system's converter, a character at a time.
class Converter {
  public:
    Converter(const char* to, const char* from) : m_Handle(iconv_open(to, from)) {}
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() {
        if (IsOpen()) {
            iconv_close(m_Handle);
        }
    }

    bool IsOpen() const { return m_Handle != reinterpret_cast<iconv_t>(-1); }

    // The bytes written for the whole of input; 0 when it is not exactly one mapped character.
    std::size_t Convert(char* input, std::size_t inputSize, char* output, std::size_t outputSize) {
        const std::size_t room = outputSize;
        iconv(m_Handle, nullptr, nullptr, nullptr, nullptr);
        const std::size_t result = iconv(m_Handle, &input, &inputSize, &output, &outputSize);
        return result == 0 && inputSize == 0 ? room - outputSize : 0;
    }

  private:
    iconv_t m_Handle;
};

struct Alias {
    char16_t spelling;
    char16_t known;
};

// What the code page knows under another code point: common text holds either.
constexpr std::array<Alias, 8> kAliases{{{0x00A2, 0xFFE0},
                                         {0x00A3, 0xFFE1},
                                         {0x00A5, 0xFFE5},
                                         {0x00AC, 0xFFE2},
                                         {0x2014, 0x2015},
                                         {0x2016, 0x2225},
                                         {0x2212, 0xFF0D},
                                         {0x301C, 0xFF5E}}};

struct Tables {
    std::array<char16_t, 65536> toUnicode{};
    std::array<char16_t, 65536> fromUnicode{};

    Tables() {
        FillComputed();
        FillFromSystem();
        for (const Alias& alias : kAliases) {
            fromUnicode[alias.spelling] = fromUnicode[alias.known];
        }
    }

  private:
    void FillComputed() {
        for (char16_t code = 1; code < 0x80; ++code) {
            Pair(code, code);
        }
        for (char16_t code = 0xA1; code <= 0xDF; ++code) {
            Pair(code, static_cast<char16_t>(0xFF61 + (code - 0xA1)));
        }
    }

    void Pair(char16_t code, char16_t scalar) {
        toUnicode[code] = scalar;
        fromUnicode[scalar] = code;
    }

    void FillFromSystem() {
        Converter decoder(kUtf16, "CP932");
        Converter encoder("CP932", kUtf16);
        if (!decoder.IsOpen() || !encoder.IsOpen()) {
            return;
        }
        for (unsigned int lead = 0x81; lead <= 0xFC; ++lead) {
            for (unsigned int trail = 0x40; _ismbblead(lead) && trail <= 0xFC; ++trail) {
                FillDoubleByte(decoder, encoder, lead * 256 + trail);
            }
        }
    }

    // Some characters have two or three codes; the encoder names the one to write.
    void FillDoubleByte(Converter& decoder, Converter& encoder, unsigned int code) {
        std::array<char, 2> bytes{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
        std::array<char, 2> unit{};
        if (decoder.Convert(bytes.data(), 2, unit.data(), unit.size()) != 2) {
            return;
        }
        const auto scalar = std::bit_cast<char16_t>(unit);
        toUnicode[code] = scalar;
        if (encoder.Convert(unit.data(), 2, bytes.data(), bytes.size()) == 2) {
            fromUnicode[scalar] = static_cast<char16_t>(static_cast<unsigned char>(bytes[0]) * 256 +
                                                        static_cast<unsigned char>(bytes[1]));
        }
    }
};

const Tables& TheTables() {
    static const auto tables = std::make_unique<const Tables>();
    return *tables;
}

}  // namespace

std::uint32_t ToUnicode(unsigned int code) {
    return code < 65536 ? TheTables().toUnicode[code] : 0;
}

unsigned int FromUnicode(std::uint32_t scalar) {
    return scalar < 65536 ? TheTables().fromUnicode[scalar] : 0;
}

}  // namespace kv
