#pragma once

#include <cstdint>

namespace kv {

/// What a ramp's distance is measured from, numbered as the types from 1 on (0 for all others).
enum class RampShape {
    kHorizontal = 0,
    kVertical = 1,
    kTowardRight = 2,  // diagonal, Col2 in the bottom right corner
    kTowardLeft = 3,   // diagonal, Col2 in the bottom left corner
    kDiamond = 4,
    kSquare = 5,
    kCircle = 6,
    kColumnBand = 7,
    kRowBand = 8,
    kRisingBand = 9,
    kFallingBand = 10,
    kLast = kFallingBand
};

inline constexpr int kRampShapes = static_cast<int>(RampShape::kLast) + 1;

/// What a length is made of, in pixels.
struct RampRoom {
    std::int64_t width;
    std::int64_t height;
    std::int64_t halfWidth;  // the halves count the pixel of a given point whole
    std::int64_t halfHeight;
    std::int64_t halfSum;  // of width and height together, for the bands across
};

/// A pixel as seen from the bounds and the centre, in pixels to the right and down.
struct RampPixel {
    std::int64_t fromLeft;
    std::int64_t fromRight;
    std::int64_t fromBottom;
    std::int64_t dx;
    std::int64_t dy;
};

/// A row from column 0 on, as RampPixel has it.
struct RampRow {
    std::int64_t width;
    std::int64_t fromBottom;
    std::int64_t centreX;
    std::int64_t dy;
};

/// How a row is cut from one line of colours, whose position p has the colour at the distance
/// -unit * |p|: columns from 0 on that walk along the line from `left`, a run of the one colour at
/// `middle`, columns from runEnd on that walk from `right`.
struct RowPieces {
    std::int64_t left = 0;
    std::int64_t runBegin = 0;
    std::int64_t middle = 0;
    std::int64_t runEnd = 0;
    std::int64_t right = 0;
};

/// What the shapes differ in. Distance and pieces say the same of a pixel and of a row.
struct RampForm {
    RampShape shape = RampShape::kHorizontal;
    bool hasCentre = false;
    std::int64_t (*length)(const RampRoom& room) = nullptr;
    double (*distance)(const RampPixel& pixel) = nullptr;
    RowPieces (*pieces)(const RampRow& row) = nullptr;  ///< null: not cut from a line (the circle)
    int unit = 1;
};

/// The form of a type, whether with a given point or without.
const RampForm& RampFormOf(int type);

}  // namespace kv
