// gallery_view FOLDER [{key=value} ...]: writes a picture of each thing that is made for the viewer, as JPEG.

#include "tools/gallery_view/GalleryView.h"
#include "vtl/gl/texture/ImageFile.h"

#include <SDL_image.h>
#include <iostream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

/** Writes the images of one folder to another one. */
bool convertAll(const fs::path& from, const fs::path& to) {
    constexpr int quality = 82;
    constexpr std::uint32_t longestSide = 4096;
    fs::create_directories(to);
    bool isWhole = true;
    for (const fs::directory_entry& image : fs::directory_iterator(from)) {
        const Vantrel::SDLSurface surface = Vantrel::readImageFile(image.path(), longestSide);
        const fs::path file = (to / image.path().stem()).string() + ".jpg";
        if (!surface || IMG_SaveJPG(surface.get(), file.c_str(), quality) != 0) {
            std::cerr << "gallery_view: can't write " << file << ": " << SDL_GetError() << "\n";
            isWhole = false;
        }
    }
    return isWhole;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: gallery_view FOLDER [{key=value} ...]\n";
        return 2;
    }
    std::vector<std::string> args(argv, argv + argc);
    const fs::path folder = args[1];
    args.erase(args.begin() + 1);
    const fs::path captured = fs::temp_directory_path() / ("gallery_view." + std::to_string(::getpid()));
    fs::create_directories(captured);
    {
        Vantrel::GalleryView view(args, captured);
        view.init("vantrel.conf");
        view.onCreate();
        view.run();
    }
    const bool isWhole = convertAll(captured, folder);
    fs::remove_all(captured);
    return isWhole ? 0 : 1;
}
