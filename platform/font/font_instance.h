#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include <platform/font.h>

#include "platform/font/font_family.h"

namespace kv::font {

/// A face as a font uses it.
struct FaceUse {
    const FaceRecord* record = nullptr;
    bool embolden = false;  ///< the family has no bold face
    bool shear = false;     ///< the family has no italic face
};

/// A font made from a logical description: plain values, so that any thread may use it.
struct FontInstance {
    static constexpr std::size_t kFaces = 3;

    /// The font's own face, then those that lend it the characters it lacks: the default Japanese
    /// and the default Latin one. Never without a record.
    std::array<FaceUse, kFaces> faces;
    LOGFONTA description{};  ///< as asked for
    TEXTMETRICA metrics{};
    double emPixels = 0.0;
    double stretch = 1.0;   ///< along the line, beyond the natural width
    bool vertical = false;  ///< double-byte characters stand in a line that is turned by -900

    /// Null when there is no font at all, or for a height or width beyond kMaxSize.
    static std::shared_ptr<const FontInstance> Create(const LOGFONTA& description);
};

/// Sizes a face. Fills in the metrics, the size of the em and the stretch.
void ApplySize(const LOGFONTA& description, const FaceRecord& face, FontInstance& font);

/// The cell height that stands for a request of 0.
inline constexpr LONG kDefaultHeight = 16;
/// Nothing larger is drawn: a mask of such a line is beyond any memory.
inline constexpr LONG kMaxSize = 1 << 20;

/// Rounds halves up.
std::int32_t RoundToPixel(double length);

}  // namespace kv::font
