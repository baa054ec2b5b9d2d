#include "tools/assets/FileBytes.h"

#include <fstream>
#include <stdexcept>

namespace Assets {

void writeFile(const std::filesystem::path& file, std::string_view bytes) {
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << bytes;
    out.close();
    if (!out) {
        throw std::runtime_error("can't write " + file.string());
    }
}

} // namespace Assets
