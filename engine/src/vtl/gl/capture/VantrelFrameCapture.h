#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace Vantrel {

class CaptureFile;

/** One captured frame in memory: blue, green and red of each pixel, the top row first, without gaps. */
class VantrelFrameCapture {
public:
    /** Takes `data` of width x height x bytesPerPixel bytes; what was there before is gone. */
    void setFrameData(std::uint32_t width, std::uint32_t height, std::uint32_t bytesPerPixel,
                      std::unique_ptr<std::uint8_t[]> data);
    /**
     * Writes a PNG where the name ends in "png", in whatever case, and a BMP otherwise. False, with a report,
     * without data and when the file can't be written.
     */
    bool saveToFile(const std::string& fileName) const;
    /** The same to a file that is open. Any thread. */
    bool saveToFile(CaptureFile& file) const;

    /** Empty without data. */
    std::span<const std::uint8_t> getFrameData() const { return {frameData.get(), sizeInBytes()}; }
    std::uint32_t getWidth() const { return width; }
    std::uint32_t getHeight() const { return height; }
    std::uint32_t getBytesPerPixel() const { return bytesPerPixel; }

private:
    bool hasFrameData() const;
    std::size_t sizeInBytes() const { return std::size_t{width} * height * bytesPerPixel; }

    std::unique_ptr<std::uint8_t[]> frameData;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint32_t bytesPerPixel = 3;
};

} // namespace Vantrel
