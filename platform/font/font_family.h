#pragma once

#include <string>
#include <vector>

#include <platform/types.h>

namespace kv::font {

// Weights of faces and of requests.
inline constexpr int kNormalWeight = 400;
inline constexpr int kMinBoldWeight = 600;  ///< from here on a face, or a request, counts as bold
inline constexpr int kBoldWeight = 700;

/// What a face says of itself, in font units; sound whatever the file holds.
struct DesignMetrics {
    int unitsPerEm;
    int ascent;   ///< of the cell, above the baseline
    int descent;  ///< of the cell, below it; ascent + descent is above 0
    int externalLeading;
    int averageWidth;
    int greatestWidth;
};

/// One outline font in a file.
struct FaceRecord {
    std::string file;
    int index;  ///< of the face in the file
    std::string fullName;
    std::string style;
    int weight;
    bool italic;
    bool fixedPitch;
    BYTE charSet;
    DesignMetrics metrics;
};

/// Faces that share a name, the plainest first; never empty.
struct FontFamily {
    std::string name;                ///< the Japanese name where there is one
    std::vector<std::string> names;  ///< all, this one included
    std::vector<FaceRecord> faces;

    BYTE CharSet() const { return faces.front().charSet; }
    /// The face nearest to a weight and slant.
    const FaceRecord& Select(int weight, bool italic) const;
};

}  // namespace kv::font
