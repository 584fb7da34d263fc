// Run-length rows, encoded: runs where they are worth a packet, else literal pixels.

#include <algorithm>
#include <cstring>

#include "platform/bitmap/run_length.h"

namespace kv::dib {
namespace {

constexpr std::size_t kMaxOfPacket = 255;
constexpr std::size_t kMinLiterals = 3;  // smaller counts have other meanings

typedef BYTE Lanes __attribute__((vector_size(16)));
typedef std::uint64_t Halves __attribute__((vector_size(16)));

Lanes Load(const BYTE* bytes) {
    Lanes lanes;
    std::memcpy(&lanes, bytes, sizeof lanes);
    return lanes;
}

bool AllSet(Lanes lanes) {
    const auto halves = reinterpret_cast<Halves>(lanes);
    return (halves[0] & halves[1]) == ~std::uint64_t{0};
}

// A run is worth a packet of its own inside literal pixels from this length on; its pixels equal
// those kPeriod before them.
struct EightBits {
    static constexpr std::size_t kPeriod = 1;
    static constexpr std::size_t kWorth = 3;

    static BYTE Pair(const BYTE* pixels, std::size_t) { return pixels[0]; }
    static void Literals(const BYTE* pixels, std::size_t count, std::vector<BYTE>& out) {
        out.insert(out.end(), pixels, pixels + count);
        if (count % 2 != 0) {
            out.push_back(0);
        }
    }
};

struct FourBits {
    static constexpr std::size_t kPeriod = 2;
    static constexpr std::size_t kWorth = 6;

    static BYTE Pair(const BYTE* pixels, std::size_t count) {
        return static_cast<BYTE>(pixels[0] << 4 | (count > 1 ? pixels[1] : 0));
    }
    static void Literals(const BYTE* pixels, std::size_t count, std::vector<BYTE>& out) {
        for (std::size_t i = 0; i < count; i += 2) {
            out.push_back(Pair(pixels + i, count - i));
        }
        if ((count + 1) / 2 % 2 != 0) {
            out.push_back(0);
        }
    }
};

template <typename Coding>
bool StartsRun(const BYTE* pixels) {
    bool equal = true;
    for (std::size_t k = 0; k + Coding::kPeriod < Coding::kWorth; ++k) {
        equal = equal && pixels[k] == pixels[k + Coding::kPeriod];
    }
    return equal;
}

// True if a run worth its packet starts at any of the 16 pixels; reads kWorth - 1 more.
template <typename Coding>
bool AnyStartsRun(const BYTE* pixels) {
    Lanes equal = Load(pixels) == Load(pixels + Coding::kPeriod);
    for (std::size_t k = 1; k + Coding::kPeriod < Coding::kWorth; ++k) {
        equal &= Load(pixels + k) == Load(pixels + k + Coding::kPeriod);
    }
    const auto halves = reinterpret_cast<Halves>(equal);
    return (halves[0] | halves[1]) != 0;
}

// The pixels before the first run worth a packet.
template <typename Coding>
std::size_t LiteralLength(std::span<const BYTE> pixels) {
    std::size_t i = 0;
    while (i + sizeof(Lanes) + Coding::kWorth <= pixels.size() &&
           !AnyStartsRun<Coding>(pixels.data() + i)) {
        i += sizeof(Lanes);
    }
    while (i + Coding::kWorth <= pixels.size() && !StartsRun<Coding>(pixels.data() + i)) {
        ++i;
    }
    return i + Coding::kWorth <= pixels.size() ? i : pixels.size();
}

// The pixels from the first one on that make one run; no more than a packet holds.
template <typename Coding>
std::size_t RunLength(std::span<const BYTE> pixels) {
    const std::size_t most = std::min(pixels.size(), kMaxOfPacket);
    std::size_t length = std::min(most, Coding::kPeriod);
    while (length + sizeof(Lanes) <= most &&
           AllSet(Load(&pixels[length]) == Load(&pixels[length - Coding::kPeriod]))) {
        length += sizeof(Lanes);
    }
    while (length < most && pixels[length] == pixels[length - Coding::kPeriod]) {
        ++length;
    }
    return length;
}

template <typename Coding>
void PutRun(std::span<const BYTE> pixels, std::vector<BYTE>& out) {
    out.push_back(static_cast<BYTE>(pixels.size()));
    out.push_back(Coding::Pair(pixels.data(), pixels.size()));
}

template <typename Coding>
void PutLiterals(std::span<const BYTE> pixels, std::vector<BYTE>& out) {
    while (!pixels.empty()) {
        if (pixels.size() < kMinLiterals) {
            const auto run = pixels.first(RunLength<Coding>(pixels));
            PutRun<Coding>(run, out);
            pixels = pixels.subspan(run.size());
            continue;
        }
        const auto part = pixels.first(std::min(pixels.size(), kMaxOfPacket));
        out.push_back(0);
        out.push_back(static_cast<BYTE>(part.size()));
        Coding::Literals(part.data(), part.size(), out);
        pixels = pixels.subspan(part.size());
    }
}

template <typename Coding>
void EncodeRow(std::span<const BYTE> pixels, std::vector<BYTE>& out) {
    while (!pixels.empty()) {
        const std::size_t literals = LiteralLength<Coding>(pixels);
        PutLiterals<Coding>(pixels.first(literals), out);
        pixels = pixels.subspan(literals);
        if (!pixels.empty()) {
            const auto run = pixels.first(RunLength<Coding>(pixels));
            PutRun<Coding>(run, out);
            pixels = pixels.subspan(run.size());
        }
    }
}

}  // namespace

void RunLengthWriter::WriteRow(std::span<const BYTE> row, bool last) {
    m_Encoded.clear();
    if (m_Bits == 8) {
        EncodeRow<EightBits>(row, m_Encoded);
    } else {
        EncodeRow<FourBits>(row, m_Encoded);
    }
    m_Encoded.push_back(0);
    m_Encoded.push_back(last ? 1 : 0);
    const std::size_t room = m_Room.size() - std::min<std::uint64_t>(m_Size, m_Room.size());
    const std::size_t written = std::min(room, m_Encoded.size());
    std::copy_n(m_Encoded.data(), written, m_Room.data() + (m_Room.size() - room));
    m_Size += m_Encoded.size();
}

}  // namespace kv::dib
