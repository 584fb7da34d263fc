// The enumeration of fonts, and the look-up of one.

#include "platform/font/font_enum.h"

#include <array>

#include "platform/font/font_catalogue.h"
#include "platform/font/font_instance.h"
#include "platform/font/font_name.h"

namespace kv::font {

namespace {

constexpr DWORD kTrueTypeFont = 4;
// Pitch values of a logical font, which are not the flags of a metrics record.
constexpr BYTE kFixedPitch = 1;
constexpr BYTE kVariablePitch = 2;
// Style flags of the metrics record.
constexpr DWORD kItalic = 1;
constexpr DWORD kBold = 0x20;
constexpr DWORD kRegular = 0x40;

// A font as it is delivered: at the default size.
struct SizedFont {
    LOGFONTA description;
    TEXTMETRICA metrics;
};

SizedFont AtDefaultSize(const std::string& faceName, const FaceRecord& face) {
    LOGFONTA description{};
    description.lfWeight = face.weight;
    description.lfItalic = face.italic ? 1 : 0;
    description.lfCharSet = face.charSet;
    FontInstance sized;
    ApplySize(description, face, sized);
    description.lfHeight = sized.metrics.tmHeight;
    description.lfWidth = sized.metrics.tmAveCharWidth;
    description.lfPitchAndFamily = face.fixedPitch ? kFixedPitch : kVariablePitch;
    StoreName(faceName, description.lfFaceName);
    return {description, sized.metrics};
}

NEWTEXTMETRICA MetricsOf(const FaceRecord& face, const TEXTMETRICA& sized) {
    NEWTEXTMETRICA metrics{};
    metrics.tmHeight = sized.tmHeight;
    metrics.tmAscent = sized.tmAscent;
    metrics.tmDescent = sized.tmDescent;
    metrics.tmInternalLeading = sized.tmInternalLeading;
    metrics.tmExternalLeading = sized.tmExternalLeading;
    metrics.tmAveCharWidth = sized.tmAveCharWidth;
    metrics.tmMaxCharWidth = sized.tmMaxCharWidth;
    metrics.tmWeight = sized.tmWeight;
    metrics.tmDigitizedAspectX = sized.tmDigitizedAspectX;
    metrics.tmDigitizedAspectY = sized.tmDigitizedAspectY;
    metrics.tmFirstChar = sized.tmFirstChar;
    metrics.tmLastChar = sized.tmLastChar;
    metrics.tmDefaultChar = sized.tmDefaultChar;
    metrics.tmBreakChar = sized.tmBreakChar;
    metrics.tmItalic = sized.tmItalic;
    metrics.tmPitchAndFamily = sized.tmPitchAndFamily;
    metrics.tmCharSet = sized.tmCharSet;
    metrics.ntmFlags = (face.italic ? kItalic : 0) | (face.weight >= kMinBoldWeight ? kBold : 0);
    metrics.ntmFlags = metrics.ntmFlags != 0 ? metrics.ntmFlags : kRegular;
    metrics.ntmSizeEM = static_cast<UINT>(face.metrics.unitsPerEm);
    metrics.ntmCellHeight = static_cast<UINT>(face.metrics.ascent + face.metrics.descent);
    metrics.ntmAvgWidth = static_cast<UINT>(face.metrics.averageWidth);
    return metrics;
}

// Hands fonts to a callback until it has enough.
class Delivery {
  public:
    Delivery(FONTENUMPROCA callback, LPARAM parameter)
        : m_Callback(callback), m_Parameter(parameter) {}

    void Deliver(const std::string& faceName, const FaceRecord& face) {
        if (m_Result == 0) {
            return;
        }
        const SizedFont sized = AtDefaultSize(faceName, face);
        ENUMLOGFONTA font{};
        font.elfLogFont = sized.description;
        StoreName(face.fullName.empty() ? faceName : face.fullName, font.elfFullName);
        StoreName(face.style, font.elfStyle);
        const NEWTEXTMETRICA metrics = MetricsOf(face, sized.metrics);
        m_Result = m_Callback(&font, &metrics, kTrueTypeFont, m_Parameter);
    }

    int Result() const { return m_Result; }

  private:
    FONTENUMPROCA m_Callback;
    LPARAM m_Parameter;
    int m_Result = 1;
};

void DeliverEachFamily(const FontCatalogue& catalogue, Delivery& delivery) {
    for (const FontFamily& family : catalogue.Families()) {
        delivery.Deliver(family.name, family.faces.front());
        if (family.CharSet() == SHIFTJIS_CHARSET) {
            delivery.Deliver("@" + family.name, family.faces.front());
        }
    }
}

}  // namespace

std::optional<LOGFONTA> FirstOf(std::string_view family) {
    const auto found = FontCatalogue::Get().Find(family);
    if (!found) {
        return std::nullopt;
    }
    return AtDefaultSize(found->faceName, found->family->faces.front()).description;
}

}  // namespace kv::font

HDC GetDC(HWND /*window*/) {
    return nullptr;
}

int ReleaseDC(HWND /*window*/, HDC /*dc*/) {
    return 1;
}

int EnumFontFamiliesA(HDC /*dc*/, const char* family, FONTENUMPROCA callback, LPARAM parameter) {
    const kv::font::FontCatalogue& catalogue = kv::font::FontCatalogue::Get();
    kv::font::Delivery delivery(callback, parameter);
    if (family == nullptr) {
        kv::font::DeliverEachFamily(catalogue, delivery);
    } else if (const auto found = catalogue.Find(family)) {
        for (const kv::font::FaceRecord& face : found->family->faces) {
            delivery.Deliver(found->faceName, face);
        }
    }
    return delivery.Result();
}
