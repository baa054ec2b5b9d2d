#pragma once

#include "vtl/shell/GLView.h"

#include "tools/gallery_view/GalleryWorld.h"

#include <filesystem>
#include <optional>

namespace Vantrel {

/** Takes one picture of each thing that is made for the viewer, and ends. */
class GalleryView : public GLView {
public:
    /** Pictures go to that folder, as PNG. */
    GalleryView(std::vector<std::string> commandLine, std::filesystem::path folder);

    void loadMap() override;
    /** Stands where the next picture is taken from. */
    void updateWorld() override;

private:
    std::filesystem::path folder;
    std::optional<GalleryWorld> gallery;
    std::size_t next = 0;
};

} // namespace Vantrel
