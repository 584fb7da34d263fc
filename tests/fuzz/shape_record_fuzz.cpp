#include <algorithm>
#include <cstdint>
#include <cstring>

#include <CDrawGraph.h>
#include <CKVFrameBuffer.h>

#include "tests/fuzz/drawing_bounds.h"

namespace {

// Reads values off the input; zeros behind its end.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : m_Data(data), m_Left(size) {}

    bool IsEmpty() const { return m_Left == 0; }

    template <typename Type>
    Type Take() {
        Type value{};
        const std::size_t count = std::min(m_Left, sizeof value);
        std::memcpy(&value, m_Data, count);
        m_Data += count;
        m_Left -= count;
        return value;
    }

  private:
    const std::uint8_t* m_Data;
    std::size_t m_Left;
};

}  // namespace

// A shape of any kind, points, pen and angles, drawn with a small edge and shadow.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input(data, size);
    CDrawGraph shape;
    // From no shape to one number beyond the kinds.
    shape.m_GraphType = input.Take<std::uint8_t>() % (CDrawGraph::kShapeKinds + 2);
    shape.SetAntiScale(input.Take<std::uint8_t>() % 17);
    shape.SetFillMode(input.Take<std::uint8_t>() & 1);
    shape.SetPenType(input.Take<std::uint8_t>() & 1);
    const bool wide = (input.Take<std::uint8_t>() & 7) == 0;
    shape.SetPenSize(wide ? input.Take<LONG>() : input.Take<std::int8_t>());
    shape.m_DegStart = input.Take<double>();
    shape.m_DegEnd = input.Take<double>();
    shape.SetEdgeType(input.Take<std::uint8_t>() & 1, input.Take<std::uint8_t>() % 8, 0);
    shape.SetShadType(input.Take<std::uint8_t>() % 4, input.Take<std::int8_t>() % 8, 3, 0);
    while (!input.IsEmpty() && shape.GetSize() < 40) {
        const LONG x = wide ? input.Take<LONG>() : input.Take<std::int8_t>();
        const LONG y = wide ? input.Take<LONG>() : input.Take<std::int8_t>();
        shape.m_Point.Add(CPoint(x, y));
    }
    if (IsTooLarge(shape)) {
        return 0;
    }
    CKVFrameBuffer fb(64, 64, 1);
    try {
        shape.DrawFrame(&fb);
    } catch (const CInvalidArgException&) {
        return 0;  // too few points for the kind
    }
    return 0;
}
