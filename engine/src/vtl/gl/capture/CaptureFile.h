#pragma once

#include <SDL.h>
#include <cstdio>
#include <memory>
#include <string>

namespace Vantrel {

/** A file for one image, open from the start, so that it is known at once whether it can be written. */
class CaptureFile {
public:
    /** None. */
    CaptureFile() = default;
    /** Empties the file. What can't be written or is no regular file is reported, and isn't open then. */
    explicit CaptureFile(std::string fileName);

    bool isOpen() const { return file != nullptr; }
    /**
     * Writes the image, as PNG where the name ends in "png" and as BMP otherwise, and closes the file. False,
     * with a report, when not all of it could be written. Any thread, one at a time.
     */
    bool write(SDL_Surface& image);
    const std::string& getName() const { return name; }

private:
    struct Closer {
        void operator()(std::FILE* open) const { std::fclose(open); }
    };

    std::string name;
    std::unique_ptr<std::FILE, Closer> file;
};

} // namespace Vantrel
