// The stretching of a bitmap onto another: the nearest pixel on each axis.

#include <algorithm>
#include <limits>
#include <new>
#include <vector>

#include "platform/bitmap/colour_bitmap.h"
#include "platform/bitmap/rows.h"
#include "platform/bitmap/run_length.h"
#include "platform/device/device.h"

using kv::dib::ColourBitmap;
using kv::dib::Format;
using kv::dib::StretchBox;

namespace {

// One side of a rectangle, its extent made positive.
struct Side {
    std::int64_t begin;
    std::int64_t length;
};

Side SideOf(LONG origin, LONG extent) {
    const std::int64_t from = origin;
    const std::int64_t length = extent;
    return length < 0 ? Side{from + length + 1, -length} : Side{from, length};
}

// The target pixels from `first` on that are drawn along one axis, and the source pixel of each.
struct Axis {
    std::size_t first = 0;
    std::vector<std::size_t> source;
};

// Of n source pixels spread over m target ones, target pixel i shows the one under its centre,
// (2i + 1) n / 2m.
Axis MapAxis(Side target, std::int64_t targetLimit, Side source, std::int64_t sourceLimit,
             bool mirrored) {
    Axis axis;
    const std::int64_t begin = std::max<std::int64_t>(target.begin, 0);
    const std::int64_t end = std::min(target.begin + target.length, targetLimit);
    for (std::int64_t at = begin; at < end && source.length > 0; ++at) {
        const auto twice = static_cast<std::uint64_t>(2 * (at - target.begin) + 1);
        auto step = static_cast<std::int64_t>(twice * static_cast<std::uint64_t>(source.length) /
                                              static_cast<std::uint64_t>(2 * target.length));
        step = mirrored ? source.length - 1 - step : step;
        const std::int64_t pixel = source.begin + step;
        if (pixel < 0 || pixel >= sourceLimit) {
            continue;  // at either end only
        }
        if (axis.source.empty()) {
            axis.first = static_cast<std::size_t>(at);
        }
        axis.source.push_back(static_cast<std::size_t>(pixel));
    }
    return axis;
}

Axis MapColumns(const StretchBox& target, const StretchBox& source, LONG targetWidth,
                LONG sourceWidth) {
    return MapAxis(SideOf(target.x, target.width), targetWidth, SideOf(source.x, source.width),
                   sourceWidth, (target.width < 0) != (source.width < 0));
}

// Gives stored rows, so that they can be read in the order of the data.
Axis MapRows(const StretchBox& target, const StretchBox& source, LONG targetHeight,
             const Format& format) {
    Side rows = SideOf(source.y, source.height);
    if (!format.topDown) {
        rows.begin = format.height - rows.begin - rows.length;
    }
    Axis axis = MapAxis(SideOf(target.y, target.height), targetHeight, rows, format.height,
                        (target.height < 0) != (source.height < 0));
    for (std::size_t& row : axis.source) {
        row = static_cast<std::size_t>(format.StoredRow(static_cast<LONG>(row)));
    }
    return axis;
}

// Reads stored rows of a bitmap as colours: those of plain rows in any order, run-length ones with
// never a row before the one read last.
class RowReader {
  public:
    RowReader(const Format& format, std::span<const BYTE> pixels)
        : m_Format(format), m_Pixels(pixels), m_Runs(pixels, format.bits) {
        m_Indexed = format;
        m_Indexed.bits = 8;
        if (format.IsRunLength()) {
            m_Indices.resize(static_cast<std::size_t>(format.width));
        }
    }

    void Read(std::size_t row, std::size_t first, std::span<DWORD> colours) {
        if (!m_Format.IsRunLength()) {
            kv::dib::UnpackRow(m_Format, &m_Pixels[row * m_Format.stride], first, colours.size(),
                               colours.data());
            return;
        }
        for (; m_Next <= row; ++m_Next) {
            m_Runs.ReadRow(m_Indices);
        }
        kv::dib::UnpackRow(m_Indexed, m_Indices.data(), first, colours.size(), colours.data());
    }

  private:
    const Format& m_Format;
    Format m_Indexed;
    std::span<const BYTE> m_Pixels;
    kv::dib::RunLengthReader m_Runs;
    std::vector<BYTE> m_Indices;
    std::size_t m_Next = 0;
};

void DrawRows(ColourBitmap& target, const Axis& columns, const Axis& rows, RowReader& reader) {
    const auto [low, high] = std::ranges::minmax(columns.source);
    const std::size_t count = columns.source.size();
    std::vector<DWORD> source(high - low + 1);
    std::vector<DWORD> colours(count);
    const bool straight = columns.source.front() == low && source.size() == count;
    const bool backwards = rows.source.front() > rows.source.back();
    std::size_t shown = std::numeric_limits<std::size_t>::max();
    for (std::size_t i = 0; i < rows.source.size(); ++i) {
        const std::size_t at = backwards ? rows.source.size() - 1 - i : i;
        if (rows.source[at] != shown) {
            shown = rows.source[at];
            reader.Read(shown, low, source);
            for (std::size_t x = 0; !straight && x < count; ++x) {
                colours[x] = source[columns.source[x] - low];
            }
        }
        kv::dib::PackRow(target.Rows(), target.Row(static_cast<LONG>(rows.first + at)),
                         columns.first, count, straight ? source.data() : colours.data());
    }
}

}  // namespace

int StretchDIBits(HDC context, const StretchBox& target, const StretchBox& source,
                  std::span<const BYTE> pixels, std::span<const BYTE> info, UINT usage,
                  DWORD operation) try {
    const auto format = kv::dib::ParseFormat(info);
    ColourBitmap* const bitmap =
        context != nullptr ? kv::device::ColoursOf(context->GetCurrentBitmap()) : nullptr;
    if (bitmap == nullptr || context->GetStretchBltMode() != COLORONCOLOR ||
        usage != DIB_RGB_COLORS || operation != SRCCOPY || !format ||
        !kv::dib::AllThere(*format, pixels)) {
        return 0;
    }
    const Axis columns = MapColumns(target, source, bitmap->Rows().width, format->width);
    const Axis rows = MapRows(target, source, bitmap->Rows().height, *format);
    if (!columns.source.empty() && !rows.source.empty()) {
        RowReader reader(*format, pixels);
        DrawRows(*bitmap, columns, rows, reader);
    }
    return format->height;
} catch (const std::bad_alloc&) {
    return 0;
}
