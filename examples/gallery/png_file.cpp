#include "png_file.h"

#include <png.h>

namespace gallery {

bool WritePng(const char* name, const CKVFrameBuffer& picture) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = picture.GetWidth();
    image.height = picture.GetHeight();
    image.format = PNG_FORMAT_BGRA;
    return png_image_write_to_file(&image, name, 0, picture.GetBufferByte(),
                                   static_cast<png_int_32>(picture.GetLineByte()), nullptr) != 0;
}

}  // namespace gallery
