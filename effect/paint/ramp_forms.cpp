// The shapes of ramps: a row of the table for each, with its length, the distance of a pixel and
// the same distances as pieces of a row.

#include "effect/paint/ramp_forms.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "effect/paint/ramp.h"

namespace kv {
namespace {

using Room = RampRoom;
using Pixel = RampPixel;
using Row = RampRow;

double Whole(std::int64_t distance) {
    return static_cast<double>(distance);
}

// Square roots of sums beyond 64 bits are of no picture: there the nearest double does.
double Hypotenuse(std::int64_t dx, std::int64_t dy) {
    const auto x = static_cast<std::uint64_t>(std::abs(dx));
    const auto y = static_cast<std::uint64_t>(std::abs(dy));
    std::uint64_t sum = 0;
    if (__builtin_add_overflow(x * x, y * y, &sum)) {
        return std::sqrt(static_cast<double>(x * x) + static_cast<double>(y * y));
    }
    return std::sqrt(static_cast<double>(sum));
}

RowPieces Run(const Row& row, std::int64_t middle) {
    return {0, 0, middle, row.width, 0};
}

RowPieces Walk(std::int64_t start) {
    return {0, 0, 0, 0, start};
}

RowPieces SquarePieces(const Row& row) {
    const std::int64_t away = std::abs(row.dy);
    const std::int64_t begin = std::max<std::int64_t>(row.centreX - away, 0);
    const std::int64_t end = std::min(row.centreX + away + 1, row.width);
    return {-row.centreX, begin, away, end, end - row.centreX};
}

// A shift rounds down where a division would round toward 0.
std::int64_t MeanSide(const Room& room) {
    return (room.width + room.height) >> 1;
}

constexpr RampForm kForms[kRampShapes] = {
    {.shape = RampShape::kHorizontal,
     .length = [](const Room& room) { return room.width; },
     .distance = [](const Pixel& pixel) { return Whole(pixel.fromRight); },
     .pieces = [](const Row& row) { return Walk(1 - row.width); }},
    {.shape = RampShape::kVertical,
     .length = [](const Room& room) { return room.height; },
     .distance = [](const Pixel& pixel) { return Whole(pixel.fromBottom); },
     .pieces = [](const Row& row) { return Run(row, row.fromBottom); }},
    {.shape = RampShape::kTowardRight,
     .length = [](const Room& room) { return room.width + room.height; },
     .distance = [](const Pixel& pixel) { return Whole(pixel.fromRight + pixel.fromBottom); },
     .pieces = [](const Row& row) { return Walk(1 - row.width + row.fromBottom); }},
    {.shape = RampShape::kTowardLeft,
     .length = [](const Room& room) { return room.width + room.height; },
     .distance = [](const Pixel& pixel) { return Whole(pixel.fromBottom - pixel.fromLeft); },
     .pieces = [](const Row& row) { return Walk(-row.fromBottom); }},
    {.shape = RampShape::kDiamond,
     .hasCentre = true,
     .length = MeanSide,
     .distance = [](const Pixel& pixel) { return Whole(-std::abs(pixel.dx) - std::abs(pixel.dy)); },
     .pieces =
         [](const Row& row) {
             const std::int64_t away = std::abs(row.dy);
             return RowPieces{-row.centreX - away, row.centreX, 0, row.centreX, away};
         }},
    {.shape = RampShape::kSquare,
     .hasCentre = true,
     .length = MeanSide,
     .distance =
         [](const Pixel& pixel) {
             return Whole(-2 * std::max(std::abs(pixel.dx), std::abs(pixel.dy)));
         },
     .pieces = SquarePieces,
     .unit = 2},
    {.shape = RampShape::kCircle,
     .hasCentre = true,
     .length = MeanSide,
     .distance = [](const Pixel& pixel) { return -Hypotenuse(pixel.dx, pixel.dy); }},
    {.shape = RampShape::kColumnBand,
     .hasCentre = true,
     .length = [](const Room& room) { return room.halfWidth; },
     .distance = [](const Pixel& pixel) { return Whole(-std::abs(pixel.dx)); },
     .pieces = [](const Row& row) { return Walk(-row.centreX); }},
    {.shape = RampShape::kRowBand,
     .hasCentre = true,
     .length = [](const Room& room) { return room.halfHeight; },
     .distance = [](const Pixel& pixel) { return Whole(-std::abs(pixel.dy)); },
     .pieces = [](const Row& row) { return Run(row, row.dy); }},
    {.shape = RampShape::kRisingBand,
     .hasCentre = true,
     .length = [](const Room& room) { return room.halfSum; },
     .distance = [](const Pixel& pixel) { return Whole(-std::abs(pixel.dx + pixel.dy)); },
     .pieces = [](const Row& row) { return Walk(row.dy - row.centreX); }},
    {.shape = RampShape::kFallingBand,
     .hasCentre = true,
     .length = [](const Room& room) { return room.halfSum; },
     .distance = [](const Pixel& pixel) { return Whole(-std::abs(pixel.dy - pixel.dx)); },
     .pieces = [](const Row& row) { return Walk(-row.dy - row.centreX); }},
};

// A row that is missing has the number 0.
constexpr bool RowsStandByNumber() {
    for (int i = 0; i < kRampShapes; ++i) {
        if (kForms[i].shape != static_cast<RampShape>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsStandByNumber());

}  // namespace

const RampForm& RampFormOf(int type) {
    const int shape = type >= kRampWithPoint ? type - kRampWithPoint : type;
    return kForms[shape > 0 && shape < kRampShapes ? shape : 0];
}

}  // namespace kv
