#pragma once

#include <memory>
#include <string>

#include <ft2build.h>

#include FT_FREETYPE_H

// Owning handles of FreeType's objects. A library and all that comes from it serve one thread.
namespace kv::font {

struct CloseFreeType {
    void operator()(FT_Library library) const { FT_Done_FreeType(library); }
};

struct CloseFace {
    void operator()(FT_Face face) const { FT_Done_Face(face); }
};

using FreeTypeLibrary = std::unique_ptr<FT_LibraryRec_, CloseFreeType>;
using FreeTypeFace = std::unique_ptr<FT_FaceRec_, CloseFace>;

/// Null when there is no memory.
inline FreeTypeLibrary OpenFreeType() {
    FT_Library library = nullptr;
    return FreeTypeLibrary(FT_Init_FreeType(&library) == 0 ? library : nullptr);
}

/// Null when the file does not open as a font.
inline FreeTypeFace OpenFace(FT_Library library, const std::string& file, int index) {
    FT_Face face = nullptr;
    return FreeTypeFace(FT_New_Face(library, file.c_str(), index, &face) == 0 ? face : nullptr);
}

}  // namespace kv::font
