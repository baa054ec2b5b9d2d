// An image file: it takes no more memory than its bytes can stand for, and what comes out is whole.
//
// Input: which extension the file has, then the file.

#include "fuzz/FuzzInput.h"
#include "vtl/gl/texture/ImageFile.h"

#include <SDL.h>
#include <array>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace Vantrel;
    static const Fuzzing::SilentReports silent;
    constexpr std::array<const char*, 2> extensions{"", ".tga"};
    constexpr std::uint32_t longestSide = 1024;
    Fuzzing::FuzzInput input(data, size);
    const char* const extension = extensions[input.option() % extensions.size()];
    SDLSurface image = decodeImage(input.rest(), extension, longestSide);
    if (image == nullptr) {
        return 0;
    }
    const int width = image->w;
    const int height = image->h;
    image = convertToGLCoordinates(std::move(image));
    Fuzzing::require(image != nullptr && image->w == width && image->h == height &&
                     image->pitch == 4 * width);
    const SDLSurface resized = resizeImage(*image, 7, 5);
    Fuzzing::require(resized != nullptr && resized->w == 7 && resized->h == 5);
    return 0;
}
