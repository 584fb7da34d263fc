// The ramps whose rows are windows of one line of colours.

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "base/scratch.h"
#include "effect/paint/ramp.h"

namespace kv {
namespace {

RowPieces PiecesOf(const Ramp& ramp, LONG y) {
    const std::int64_t row = y;
    return RampFormOf(ramp.type).pieces(
        {ramp.width, row - (ramp.height - 1), ramp.centreX, row - ramp.centreY});
}

// The colours of all positions that the rows touch.
class ColourLine {
  public:
    bool Make(const Ramp& ramp) {
        std::int64_t last = 0;
        const auto touch = [&](std::int64_t from, std::int64_t count) {
            if (count > 0) {
                m_First = std::min(m_First, from);
                last = std::max(last, from + count - 1);
            }
        };
        for (LONG y = 0; y < ramp.height; ++y) {
            const RowPieces row = PiecesOf(ramp, y);
            touch(row.left, row.runBegin);
            touch(row.middle, row.runEnd - row.runBegin > 0 ? 1 : 0);
            touch(row.right, ramp.width - row.runEnd);
        }
        m_Colours = Scratch<DWORD>(static_cast<std::size_t>(last - m_First + 1));
        if (m_Colours == nullptr) {
            return false;
        }
        const std::int64_t scale = -RampFormOf(ramp.type).unit;
        for (std::int64_t at = m_First; at <= last; ++at) {
            m_Colours[static_cast<std::size_t>(at - m_First)] =
                ramp.At(static_cast<double>(scale * std::abs(at)));
        }
        return true;
    }

    const DWORD* From(std::int64_t position) const {
        return m_Colours.get() + (position - m_First);
    }

  private:
    std::int64_t m_First = 0;
    std::unique_ptr<DWORD[]> m_Colours;
};

void PaintRow(const RowPieces& row, const ColourLine& line, LONG width, DWORD* pixels) {
    const auto copy = [&](std::int64_t column, std::int64_t position, std::int64_t count) {
        if (count > 0) {
            std::memcpy(pixels + column, line.From(position),
                        static_cast<std::size_t>(count) * sizeof(DWORD));
        }
    };
    copy(0, row.left, row.runBegin);
    if (row.runBegin < row.runEnd) {
        std::fill(pixels + row.runBegin, pixels + row.runEnd, *line.From(row.middle));
    }
    copy(row.runEnd, row.right, width - row.runEnd);
}

}  // namespace

bool PaintStraightRamp(const Ramp& ramp, const RampTarget& target) {
    ColourLine line;
    if (!line.Make(ramp)) {
        return false;
    }
    for (LONG y = 0; y < ramp.height; ++y) {
        PaintRow(PiecesOf(ramp, y), line, ramp.width, target.Row(y));
        target.Finish(y);
    }
    return true;
}

}  // namespace kv
