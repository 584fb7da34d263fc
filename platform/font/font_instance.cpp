// The making of a font: its faces and its size.

#include "platform/font/font_instance.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "base/narrow.h"
#include "platform/font/font_catalogue.h"

namespace kv::font {

namespace {

constexpr BYTE kBreakCharacter = 0x20;
// Pitch flags of a metrics record, which are not the pitch values of a logical font.
constexpr BYTE kVariablePitch = 1;
constexpr BYTE kVector = 2;
constexpr BYTE kTrueType = 4;

LONG RequestedWeight(const LOGFONTA& description) {
    return description.lfWeight > 0 ? std::min<LONG>(description.lfWeight, 1000) : kNormalWeight;
}

bool IsDrawable(LONG size) {
    return size >= -kMaxSize && size <= kMaxSize;
}

// A name field need not end in a zero.
std::string_view FaceName(const LOGFONTA& description) {
    const auto* const begin = std::begin(description.lfFaceName);
    const auto* const end = std::end(description.lfFaceName);
    return {begin, static_cast<std::size_t>(std::find(begin, end, '\0') - begin)};
}

FaceUse UseOf(const FontFamily& family, const LOGFONTA& description) {
    const LONG weight = RequestedWeight(description);
    const bool italic = description.lfItalic != 0;
    const FaceRecord& face = family.Select(weight, italic);
    return {&face, weight >= kMinBoldWeight && face.weight < kMinBoldWeight,
            italic && !face.italic};
}

// Cell and em. A positive request is the cell's height and is met exactly, a negative one the
// em's.
void ApplyHeight(LONG request, const DesignMetrics& design, FontInstance& font) {
    TEXTMETRICA& metrics = font.metrics;
    const double cellUnits = design.ascent + design.descent;
    if (request < 0) {
        font.emPixels = std::abs(request);
        const double unit = font.emPixels / design.unitsPerEm;
        metrics.tmAscent = RoundToPixel(design.ascent * unit);
        metrics.tmDescent = RoundToPixel(design.descent * unit);
        metrics.tmHeight = metrics.tmAscent + metrics.tmDescent;
    } else {
        metrics.tmHeight = request == 0 ? kDefaultHeight : request;
        font.emPixels = metrics.tmHeight * (design.unitsPerEm / cellUnits);
        metrics.tmAscent = RoundToPixel(metrics.tmHeight * (design.ascent / cellUnits));
        metrics.tmDescent = metrics.tmHeight - metrics.tmAscent;
    }
    metrics.tmInternalLeading = metrics.tmHeight - RoundToPixel(font.emPixels);
    metrics.tmExternalLeading =
        RoundToPixel(design.externalLeading * font.emPixels / design.unitsPerEm);
}

void ApplyWidth(LONG request, const DesignMetrics& design, FontInstance& font) {
    TEXTMETRICA& metrics = font.metrics;
    const double unit = font.emPixels / design.unitsPerEm;
    const LONG natural = std::max(1, RoundToPixel(design.averageWidth * unit));
    metrics.tmAveCharWidth = request == 0 ? natural : std::abs(request);
    font.stretch = static_cast<double>(metrics.tmAveCharWidth) / natural;
    metrics.tmMaxCharWidth = RoundToPixel(design.greatestWidth * unit * font.stretch);
}

}  // namespace

std::int32_t RoundToPixel(double length) {
    return TruncateToInt32(std::floor(length + 0.5));
}

void ApplySize(const LOGFONTA& description, const FaceRecord& face, FontInstance& font) {
    ApplyHeight(description.lfHeight, face.metrics, font);
    ApplyWidth(description.lfWidth, face.metrics, font);
    TEXTMETRICA& metrics = font.metrics;
    metrics.tmWeight = RequestedWeight(description);
    metrics.tmItalic = description.lfItalic;
    metrics.tmDigitizedAspectX = 96;
    metrics.tmDigitizedAspectY = 96;
    metrics.tmFirstChar = kBreakCharacter;
    metrics.tmLastChar = 0xFF;
    metrics.tmDefaultChar = kBreakCharacter;
    metrics.tmBreakChar = kBreakCharacter;
    metrics.tmPitchAndFamily =
        static_cast<BYTE>(kVector | kTrueType | (face.fixedPitch ? 0 : kVariablePitch));
    metrics.tmCharSet = face.charSet;
}

std::shared_ptr<const FontInstance> FontInstance::Create(const LOGFONTA& description) {
    if (!IsDrawable(description.lfHeight) || !IsDrawable(description.lfWidth)) {
        return nullptr;
    }
    const FontCatalogue& catalogue = FontCatalogue::Get();
    const auto found = catalogue.Find(FaceName(description));
    const FontFamily* const family =
        found ? found->family : catalogue.Default(description.lfCharSet);
    const FontFamily* const japanese = catalogue.Default(SHIFTJIS_CHARSET);
    const FontFamily* const latin = catalogue.Default(0);
    if (family == nullptr || japanese == nullptr || latin == nullptr) {
        return nullptr;
    }
    auto font = std::make_shared<FontInstance>();
    font->description = description;
    font->vertical =
        found ? found->vertical
              : description.lfFaceName[0] == '@' && family->CharSet() == SHIFTJIS_CHARSET;
    font->faces = {UseOf(*family, description), UseOf(*japanese, description),
                   UseOf(*latin, description)};
    ApplySize(description, *font->faces[0].record, *font);
    return font;
}

}  // namespace kv::font
