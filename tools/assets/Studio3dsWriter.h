#pragma once

#include "tools/assets/Color.h"
#include "tools/assets/TriangleModel.h"

#include <filesystem>
#include <span>
#include <string>

namespace Assets {

/** A mesh of one material. */
struct MaterialMesh {
    std::string material;
    Color color;
    /** An image beside the model; empty for none. */
    std::string image;
    TriangleModel model;
};

/**
 * Writes meshes as a 3DS file, in their order; each has at most 65,535 vertices and as many triangles. Throws
 * `std::runtime_error` when there are more or the file can't be written.
 */
void write3ds(const std::filesystem::path& file, std::span<const MaterialMesh> meshes);

} // namespace Assets
