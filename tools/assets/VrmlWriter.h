#pragma once

#include "tools/assets/TriangleModel.h"

#include <filesystem>
#include <string>

namespace Assets {

/**
 * Writes a model as VRML 1.0 with one entry a line, its texture an image of that name beside the model.
 * Throws `std::runtime_error` when the file can't be written.
 */
void writeVrml(const std::filesystem::path& file, const TriangleModel& model, const std::string& image);

} // namespace Assets
