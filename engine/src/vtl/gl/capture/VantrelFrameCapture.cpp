#include "vtl/gl/capture/VantrelFrameCapture.h"

#include "vtl/base/Report.h"
#include "vtl/gl/capture/CaptureFile.h"
#include "vtl/gl/texture/ImageFile.h"

#include <SDL.h>
#include <utility>

namespace Vantrel {

void VantrelFrameCapture::setFrameData(std::uint32_t newWidth, std::uint32_t newHeight,
                                       std::uint32_t newBytesPerPixel, std::unique_ptr<std::uint8_t[]> data) {
    frameData = std::move(data);
    width = frameData != nullptr ? newWidth : 0;
    height = frameData != nullptr ? newHeight : 0;
    bytesPerPixel = newBytesPerPixel;
}

bool VantrelFrameCapture::hasFrameData() const {
    if (frameData == nullptr) {
        Report() << "VantrelFrameCapture has no valid Frame Data, call VantrelFrameCapture::setFrameData() "
                    "first...\n";
    }
    return frameData != nullptr;
}

bool VantrelFrameCapture::saveToFile(const std::string& fileName) const {
    if (!hasFrameData()) {
        return false;
    }
    CaptureFile file(fileName);
    return file.isOpen() && saveToFile(file);
}

bool VantrelFrameCapture::saveToFile(CaptureFile& file) const {
    if (!hasFrameData()) {
        return false;
    }
    constexpr std::uint32_t bitsOfByte = 8;
    const SDLSurface image(
        SDL_CreateRGBSurfaceFrom(frameData.get(), static_cast<int>(width), static_cast<int>(height),
                                 static_cast<int>(bytesPerPixel * bitsOfByte),
                                 static_cast<int>(width * bytesPerPixel), 0xFF0000, 0xFF00, 0xFF, 0));
    if (image == nullptr) {
        Report() << "ERROR: The frame capture '" << file.getName()
                 << "' couldn't be made an image. SDL says '" << SDL_GetError() << "'...\n";
        return false;
    }
    return file.write(*image);
}

} // namespace Vantrel
