#pragma once

#include <filesystem>
#include <fstream>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace Vantrel::Tests {

/** A folder of its own, deleted with its holder. */
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = std::filesystem::temp_directory_path() / "keldin_test_XXXXXX";
        folder = ::mkdtemp(name.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() { std::filesystem::remove_all(folder); }

    std::string path(std::string_view name) const { return folder / name; }
    /** Writes a file and answers its path. */
    std::string write(std::string_view name, std::string_view content) const {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }

private:
    std::filesystem::path folder;
};

} // namespace Vantrel::Tests
