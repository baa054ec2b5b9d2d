#include "vtl/gl/capture/CaptureFile.h"

#include "vtl/base/Report.h"

#include <SDL_image.h>
#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace Vantrel {
namespace {

std::string errorText(int error) {
    return std::generic_category().message(error);
}

/** Null, with the reason, where there is nothing to write to. */
std::FILE* openForWriting(const std::string& name, std::string& reason) {
    if (name.find('\0') != std::string::npos) {
        reason = "there is a zero in it";
        return nullptr;
    }
    constexpr mode_t everybodysByUmask = 0666;
    // A pipe that nobody reads would hold the viewer up.
    const int descriptor =
        ::open(name.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, everybodysByUmask);
    if (descriptor < 0) {
        reason = errorText(errno);
        return nullptr;
    }
    struct stat kind {};
    const bool isRegular = ::fstat(descriptor, &kind) == 0 && S_ISREG(kind.st_mode);
    std::FILE* const file = isRegular ? ::fdopen(descriptor, "wb") : nullptr;
    if (file == nullptr) {
        reason = isRegular ? errorText(errno) : "it is no regular file";
        ::close(descriptor);
    }
    return file;
}

std::FILE* openReportingFailures(const std::string& name) {
    std::string reason;
    std::FILE* const file = openForWriting(name, reason);
    if (file == nullptr) {
        Report() << "ERROR: The frame capture '" << name << "' can't be written: " << reason << "...\n";
    }
    return file;
}

bool endsInPNG(std::string_view name) {
    constexpr std::string_view ending = "png";
    const auto isSame = [](char a, char b) { return a == b || a == b - 'a' + 'A'; };
    return name.size() >= ending.size() &&
           std::ranges::equal(name.substr(name.size() - ending.size()), ending, isSame);
}

bool encode(SDL_Surface& image, std::FILE& file, bool isPNG) {
    SDL_RWops* const stream = SDL_RWFromFP(&file, SDL_FALSE);
    if (stream == nullptr) {
        return false;
    }
    const int result = isPNG ? IMG_SavePNG_RW(&image, stream, 1) : SDL_SaveBMP_RW(&image, stream, 1);
    // The encoders don't ask of every byte whether it went anywhere.
    return result == 0 && std::ferror(&file) == 0;
}

} // namespace

CaptureFile::CaptureFile(std::string fileName)
    : name(std::move(fileName)), file(openReportingFailures(name)) {
}

bool CaptureFile::write(SDL_Surface& image) {
    const bool isPNG = endsInPNG(name);
    if (isPNG) {
        Report() << "Writing out a png...\n";
    }
    SDL_ClearError();
    errno = 0;
    // Another capture of that name, opened before this one, may have been written to it since.
    const bool isEmpty = ::ftruncate(::fileno(file.get()), 0) == 0;
    const bool isEncoded = isEmpty && encode(image, *file, isPNG);
    const bool isClosed = std::fclose(file.release()) == 0;
    if (!isEncoded || !isClosed) {
        const int error = errno;
        Report() << "ERROR: The frame capture '" << name
                 << "' couldn't be written to its end: " << (error != 0 ? errorText(error) : SDL_GetError())
                 << "...\n";
        return false;
    }
    return true;
}

} // namespace Vantrel
