// A picture kept as the areas drawn onto it, and the coverage that they give.

#include "raster/drawing.h"

#include <utility>

#include "raster/block_counter.h"
#include "raster/run_set.h"
#include "raster/scan_converter.h"

namespace kv::raster {

namespace {

// An area under conversion, one row ahead.
struct Cursor {
    ScanConverter converter;
    bool value = false;
    bool more = false;
    std::int32_t row = 0;
    std::span<const Run> runs;

    void Step() { more = converter.Next(row, runs); }
};

}  // namespace

void Drawing::Paint(Area area) {
    if (m_Areas.empty() && !area.value) {
        return;  // the ground is clear
    }
    // Contours that all wind the same way are one area.
    if (!m_Areas.empty() && area.rule == FillRule::kWinding &&
        m_Areas.back().rule == FillRule::kWinding && m_Areas.back().value == area.value) {
        Contours& into = m_Areas.back().contours;
        const std::size_t shift = into.points.size();
        into.points.insert(into.points.end(), area.contours.points.begin(),
                           area.contours.points.end());
        for (const std::size_t end : area.contours.ends) {
            into.ends.push_back(shift + end);
        }
        return;
    }
    m_Areas.push_back(std::move(area));
}

void Drawing::ClearRect(std::int64_t left, std::int64_t top, std::int64_t right,
                        std::int64_t bottom) {
    Area area{{}, FillRule::kWinding, false};
    for (const auto& [x, y] : {std::pair(left, top), std::pair(right, top),
                               std::pair(right, bottom), std::pair(left, bottom)}) {
        area.contours.points.push_back({x * kSubpixels, y * kSubpixels});
    }
    area.contours.ends.push_back(area.contours.points.size());
    Paint(std::move(area));
}

void Drawing::ReadCoverage(std::int32_t scale, std::int32_t columns, std::uint8_t* coverage,
                           std::size_t stride) const {
    const std::int32_t blocks = m_Height / scale;
    std::vector<Cursor> cursors;
    cursors.reserve(m_Areas.size());
    const Area* last = nullptr;
    for (const Area& area : m_Areas) {
        // A stroke over the fill of its shape goes with it.
        if (last == nullptr || last->value != area.value || area.rule != FillRule::kWinding) {
            cursors.emplace_back().converter.Start({0, 0, m_Width, blocks * scale});
            cursors.back().value = area.value;
        }
        cursors.back().converter.Add(area.contours, area.rule);
        last = &area;
    }
    for (Cursor& cursor : cursors) {
        cursor.Step();
    }
    BlockCounter counter(scale, columns);
    RunSet set;
    for (std::int32_t row = 0; row < blocks * scale; ++row) {
        set.Clear();
        for (const Cursor& cursor : cursors) {
            if (cursor.more && cursor.row == row) {
                cursor.value ? set.Add(cursor.runs) : set.Remove(cursor.runs);
            }
        }
        counter.Add(set.Runs());
        for (Cursor& cursor : cursors) {
            if (cursor.more && cursor.row == row) {
                cursor.Step();
            }
        }
        if ((row + 1) % scale == 0) {
            counter.Write(coverage);
            coverage += stride;
        }
    }
}

}  // namespace kv::raster
