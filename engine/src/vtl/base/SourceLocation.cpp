#include "vtl/base/SourceLocation.h"

#include <string_view>

namespace Vantrel {

std::string locationText(SourceLocation where) {
    std::string_view file = where.file;
    file.remove_prefix(file.find_last_of('/') + 1);
    return std::string(file) + ":" + std::to_string(where.line);
}

} // namespace Vantrel
