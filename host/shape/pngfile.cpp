// SPDX-License-Identifier: Apache-2.0
// By the simplified interface of libpng.
#include "host/shape/pngfile.h"

#include "host/shape/filefailure.h"

#include <png.h>

namespace host {

void writePng(const Image& image, const std::string& path) {
    png_image png{};
    png.version = PNG_IMAGE_VERSION;
    png.width = static_cast<png_uint_32>(image.width);
    png.height = static_cast<png_uint_32>(image.height);
    png.format = PNG_FORMAT_RGB;
    if (!png_image_write_to_file(&png, path.c_str(), 0, image.rgb.data(), 0, nullptr)) {
        throw FileFailure(std::string("the picture could not be written: ") + png.message);
    }
}

} // namespace host
