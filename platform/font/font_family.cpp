// The choice of a face within its family.

#include "platform/font/font_family.h"

#include <algorithm>
#include <cstdlib>

namespace kv::font {

namespace {

// A wrong slant weighs more than any difference of weights.
constexpr int kSlantPenalty = 10000;

}  // namespace

const FaceRecord& FontFamily::Select(int weight, bool italic) const {
    const auto distance = [=](const FaceRecord& face) {
        return std::abs(face.weight - weight) + (face.italic == italic ? 0 : kSlantPenalty);
    };
    return *std::min_element(
        faces.begin(), faces.end(),
        [&](const FaceRecord& a, const FaceRecord& b) { return distance(a) < distance(b); });
}

}  // namespace kv::font
