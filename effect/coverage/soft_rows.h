#pragma once

#include <cmath>
#include <memory>

#include <platform/types.h>

namespace kv {

/// Height of the soft edge at the square of a distance below radius * radius, 0 to 255.
inline BYTE SoftValue(std::int64_t squaredDistance, int radius) {
    const double r = radius;
    const double weight = (r - std::sqrt(static_cast<double>(squaredDistance))) / r;
    return static_cast<BYTE>(255 * weight);
}

// NearSoftRows and FarSoftRows turn rows of vertical distances into target rows. A row holds for
// each of `width` source columns the distance to its nearest source pixel above or below, at most
// the radius; the target row has 2 * radius more columns and keeps what is greater. The square of
// the true distance is the least of vertical * vertical + horizontal * horizontal over the columns.

/// For radii up to kMaxRadius: squares fit 16 bits, a table holds the values.
class NearSoftRows {
  public:
    using Distance = BYTE;
    static constexpr int kMaxRadius = 124;

    /// False when there is no memory.
    bool Prepare(int radius, std::size_t width);
    void Add(const Distance* vertical, BYTE* target);

  private:
    int m_Radius = 0;
    std::size_t m_Width = 0;
    std::unique_ptr<BYTE[]> m_Values;           // by squared distance, 0 to radius * radius
    std::unique_ptr<std::int16_t[]> m_Squares;  // of one row, padded by the radius's square
};

/// For any radius: the lower envelope of the columns' parabolas, linear in the columns.
class FarSoftRows {
  public:
    using Distance = WORD;
    static constexpr int kMaxRadius = 32767;  // a target for more exceeds 32 bits of bytes

    bool Prepare(int radius, std::size_t width);
    void Add(const Distance* vertical, BYTE* target);

  private:
    struct Parabola {
        std::int64_t centre;  // target column
        std::int64_t height;  // squared vertical distance
        std::int64_t from;    // first target column where it is the lowest
    };

    std::size_t BuildEnvelope(const Distance* vertical);

    int m_Radius = 0;
    std::size_t m_Width = 0;
    std::unique_ptr<Parabola[]> m_Envelope;
};

}  // namespace kv
