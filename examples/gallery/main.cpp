// Draws every entry as TGA and PNG, and a page that shows them: gallery [FOLDER]

#include <cstdio>
#include <filesystem>

#include "entry.h"
#include "page.h"
#include "png_file.h"

namespace gallery {

void Sky(CKVFrameBuffer& picture, LONG width, LONG height) {
    if (picture.CreateFrameBuffer(width, height, 1) != 0) {
        return;
    }
    DWORD* pixel = picture.GetBufferDWord();
    for (LONG y = 0; y < height; ++y) {
        const auto blue = static_cast<DWORD>(170 - 90 * y / height);
        const auto red = static_cast<DWORD>(60 + 130 * y / height);
        for (LONG x = 0; x < width; ++x) {
            *pixel++ = 0xFF000000 | red << 16 | (blue / 2 + 20) << 8 | blue;
        }
    }
}

namespace {

bool Draw(const Entry& entry, const std::string& folder, Page& page) {
    CKVFrameBuffer picture;
    entry.draw(picture);
    const std::string stem = folder + "/" + entry.name;
    const bool written = picture.IsBuffer() == 0 &&
                         CKVTargaImage().SaveImage((stem + ".tga").c_str(), &picture, 1) == 0 &&
                         WritePng((stem + ".png").c_str(), picture) && !SourceOf(entry).empty();
    if (!written) {
        std::fprintf(stderr, "gallery: could not draw or write %s\n", stem.c_str());
        return false;
    }
    page.Add(entry, picture.GetWH());
    return true;
}

int DrawAll(const std::string& folder) {
    std::error_code failed;
    std::filesystem::create_directories(folder, failed);
    Page page;
    bool good = true;
    int count = 0;
    for (const auto entries : {Stages(), Captions(), Vertical(), Effects(), Gradients(), Textures(),
                               Shapes(), Images(), Pixels(), Bitmaps(), Files()}) {
        for (const Entry& entry : entries) {
            good = Draw(entry, folder, page) && good;
            ++count;
        }
    }
    good = page.Write(folder + "/index.html") && good;
    if (good) {
        std::printf("%d pictures drawn. Open %s/index.html\n", count, folder.c_str());
    }
    return good ? 0 : 1;
}

}  // namespace
}  // namespace gallery

int main(int count, char** arguments) {
    return gallery::DrawAll(count > 1 ? arguments[1] : "gallery");
}
