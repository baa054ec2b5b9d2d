// floor_check ROOT: who may include whom. Fails with every line that breaks the rule.
//
// A file includes its own floor and the floors below it. Headers never look up; a source file may where it
// stands in tools/floors.allow ("FILE reason", a line each). Whatever stands there without need fails too.

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace {

namespace fs = std::filesystem;

/** From the ground up. `client` stands beside the tower: it may use what `mayClientUse` names and nothing
 * else. */
constexpr std::array<std::string_view, 12> floors{"vtl/base",   "vtl/math",     "vtl/net",  "vtl/gl",
                                                  "vtl/text",   "vtl/geometry", "vtl/mesh", "vtl/scene",
                                                  "vtl/render", "vtl/shell",    "module",   "app"};
constexpr std::array<std::string_view, 4> mayClientUse{"client/", "vtl/base/", "vtl/net/", "module/wire/"};
/** The application object's header is for its own floor and for the application alone. */
constexpr std::string_view applicationHeader = "vtl/shell/GLView.h";

/** Index of the floor that a path, as an include line names it, stands on; -1 for none. */
int floorOf(std::string_view path) {
    for (std::size_t i = 0; i < floors.size(); ++i) {
        if (path.starts_with(std::string(floors[i]) + "/")) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

bool isAllowed(std::string_view file, std::string_view included) {
    if (file.starts_with("client/")) {
        return std::any_of(mayClientUse.begin(), mayClientUse.end(),
                           [&](std::string_view folder) { return included.starts_with(folder); });
    }
    if (included == applicationHeader && !file.starts_with("vtl/shell/") && !file.starts_with("module/")) {
        return false;
    }
    return !included.starts_with("client/") && floorOf(included) <= floorOf(file);
}

/** The file name between the quotes of an include line; empty for other lines. */
std::string includedBy(const std::string& line) {
    constexpr std::string_view directive = "#include \"";
    if (!line.starts_with(directive)) {
        return {};
    }
    return line.substr(directive.size(), line.find('"', directive.size()) - directive.size());
}

std::map<std::string, std::string> readAllowances(const fs::path& file) {
    std::map<std::string, std::string> allowances;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        const std::size_t blank = line.find(' ');
        if (!line.empty() && !line.starts_with('#')) {
            allowances[line.substr(0, blank)] = blank == std::string::npos ? "" : line.substr(blank + 1);
        }
    }
    return allowances;
}

class Check {
public:
    explicit Check(const fs::path& treeRoot)
        : root(treeRoot), allowances(readAllowances(treeRoot / "tools/floors.allow")) {}

    bool run() {
        for (const char* folder : {"engine/src/vtl", "module", "client", "app"}) {
            if (!fs::exists(root / folder)) {
                continue;
            }
            for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
                if (const auto kind = entry.path().extension(); kind == ".h" || kind == ".cpp") {
                    checkFile(entry.path());
                }
            }
        }
        checkAllowances();
        std::cout << files << " files, " << faults << " faults\n";
        return faults == 0 && files > 0;
    }

private:
    void checkFile(const fs::path& path) {
        ++files;
        const std::string shown = fs::relative(path, root).generic_string();
        constexpr std::string_view engine = "engine/src/";
        const std::string file = shown.starts_with(engine) ? shown.substr(engine.size()) : shown;
        std::ifstream in(path);
        int number = 0;
        for (std::string line; std::getline(in, line);) {
            ++number;
            const std::string included = includedBy(line);
            if (included.empty() || isAllowed(file, included)) {
                continue;
            }
            if (path.extension() == ".cpp" && allowances.contains(shown)) {
                used.insert(shown);
                continue;
            }
            fault(shown + ":" + std::to_string(number) + ": may not include " + included);
        }
    }

    void checkAllowances() {
        constexpr std::size_t tooMany = 10;
        if (allowances.size() >= tooMany) {
            fault("tools/floors.allow: " + std::to_string(allowances.size()) + " entries are too many");
        }
        for (const auto& [file, reason] : allowances) {
            if (!used.contains(file)) {
                fault("tools/floors.allow: " + file + " doesn't need to stand here");
            }
            if (reason.empty()) {
                fault("tools/floors.allow: " + file + " has no reason");
            }
        }
    }

    void fault(const std::string& text) {
        std::cout << text << "\n";
        ++faults;
    }

    fs::path root;
    std::map<std::string, std::string> allowances;
    std::set<std::string> used;
    int files = 0;
    int faults = 0;
};

} // namespace

int main(int argc, char** argv) {
    constexpr int usageError = 2;
    if (argc != 2) {
        std::cerr << "usage: floor_check ROOT\n";
        return usageError;
    }
    return Check(argv[1]).run() ? 0 : 1;
}
