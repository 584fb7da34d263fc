// The object file of a shape: kind, pen, fill, angles, points, effect and texture names.

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include <CDrawGraph.h>

#include "object_file/effect_block.h"
#include "object_file/field_file.h"

namespace {

constexpr std::array<BYTE, 4> kMagic = {'D', 'G', 'O', '0'};
constexpr std::size_t kPointSize = 8;
constexpr std::size_t kPointsAtOnce = 512;
using Chunk = std::array<BYTE, kPointSize * kPointsAtOnce>;

template <typename Fields, typename Point>
void VisitPoint(Fields& fields, Point& point) {
    fields.Field(point.x);
    fields.Field(point.y);
}

// The list grows with the points that come, whatever the count says.
bool ReadPoints(kv::FieldReader& reader, CArray<CPoint, CPoint>& points) {
    LONG count = 0;
    if (!reader.Int32(count)) {
        return false;
    }
    Chunk chunk{};
    for (auto left = static_cast<std::size_t>(std::max(count, 0)); left > 0;) {
        const std::size_t asked = std::min(left, kPointsAtOnce);
        const std::size_t came =
            reader.Some(std::span(chunk).first(asked * kPointSize)) / kPointSize;
        kv::BlockReader fields(chunk);
        for (std::size_t i = 0; i < came; ++i) {
            CPoint point;
            VisitPoint(fields, point);
            points.Add(point);
        }
        if (came < asked) {
            return false;
        }
        left -= came;
    }
    return true;
}

void WritePoints(kv::FieldWriter& writer, const CArray<CPoint, CPoint>& points) {
    const int count = points.GetSize();
    writer.Int32(count);
    Chunk chunk{};
    for (int done = 0; done < count;) {
        const int part = std::min(count - done, static_cast<int>(kPointsAtOnce));
        kv::BlockWriter fields(chunk);
        for (int i = done; i < done + part; ++i) {
            VisitPoint(fields, points[i]);
        }
        writer.Block(std::span(chunk).first(kPointSize * static_cast<std::size_t>(part)));
        done += part;
    }
}

bool ReadFields(CFile& file, CDrawGraph& shape) {
    shape.m_Point.RemoveAll();
    kv::FieldReader reader(file);
    std::array<BYTE, kMagic.size()> magic{};  // any four bytes pass
    return reader.Block(magic) && reader.Int32(shape.m_GraphType) &&
           reader.Int32(shape.m_FillMode) && reader.Int32(shape.m_PenSize) &&
           reader.Int32(shape.m_PenType) && reader.Double(shape.m_DegStart) &&
           reader.Double(shape.m_DegEnd) && ReadPoints(reader, shape.m_Point) &&
           reader.Record<kv::kEffectBlockSize>(
               [&shape](auto& fields) { kv::VisitEffect(fields, shape.m_Info); }) &&
           reader.String(shape.m_BodyFile) && reader.String(shape.m_EdgeFile) &&
           reader.String(shape.m_ShadFile);
}

bool WriteFields(CFile& file, const CDrawGraph& shape) {
    kv::FieldWriter writer(file);
    writer.Block(kMagic);
    for (const LONG field :
         {shape.m_GraphType, shape.m_FillMode, shape.m_PenSize, shape.m_PenType}) {
        writer.Int32(field);
    }
    writer.Double(shape.m_DegStart);
    writer.Double(shape.m_DegEnd);
    WritePoints(writer, shape.m_Point);
    tagKVBWDRAWINFO effect = shape.m_Info;
    writer.Record<kv::kEffectBlockSize>(
        [&effect](auto& fields) { kv::VisitEffect(fields, effect); });
    for (const CString* name : {&shape.m_BodyFile, &shape.m_EdgeFile, &shape.m_ShadFile}) {
        writer.String(*name);
    }
    return true;
}

}  // namespace

int CDrawGraph::Read(CFile* file) {
    const int result =
        kv::ObjectFileResult(file, [this](CFile& from) { return ReadFields(from, *this); });
    ConnectAll();  // the strings may have moved, whatever became of the rest
    return result;
}

int CDrawGraph::Write(CFile* file) const {
    return kv::ObjectFileResult(file, [this](CFile& to) { return WriteFields(to, *this); });
}

void CDrawGraph::Serialize(CArchive& archive) {
    kv::SerializeThroughFile(archive, *this);
}
