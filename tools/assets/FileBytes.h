#pragma once

#include <filesystem>
#include <string_view>

namespace Assets {

/** Throws `std::runtime_error` when the file can't be written. */
void writeFile(const std::filesystem::path& file, std::string_view bytes);

} // namespace Assets
