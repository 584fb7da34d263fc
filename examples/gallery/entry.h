#pragma once

#include <span>

#include <KVDraw.h>

namespace gallery {

/// One picture of the gallery. The function draws it into an empty frame buffer; its source stands
/// on the page.
struct Entry {
    const char* name;      ///< file name without extension, and the function's name
    const char* headline;  ///< what to see
    void (*draw)(CKVFrameBuffer& picture);
};

#define GALLERY_ENTRY(function, headline) \
    Entry {                               \
#function, headline, function     \
    }

std::span<const Entry> Stages();
std::span<const Entry> Captions();
std::span<const Entry> Vertical();
std::span<const Entry> Effects();
std::span<const Entry> Gradients();
std::span<const Entry> Textures();
std::span<const Entry> Shapes();
std::span<const Entry> Images();
std::span<const Entry> Pixels();
std::span<const Entry> Bitmaps();
std::span<const Entry> Files();

/// Makes the picture and fills it with an evening sky, opaque, for light titles.
void Sky(CKVFrameBuffer& picture, LONG width, LONG height);

}  // namespace gallery
