#include "vtl/scene/parser/ModelFileFaults.h"

#include "vtl/base/Report.h"

namespace Vantrel {

void ModelFileFaults::report(std::string_view reader, std::string_view fileName) const {
    if (numbers != 0) {
        Report() << "WARNING: " << reader << ", '" << fileName << "': " << numbers
                 << " numbers are not finite or no numbers, taking them as 0...\n";
    }
    if (faces != 0) {
        Report() << "WARNING: " << reader << ", '" << fileName << "': " << faces
                 << " faces name a vertex or a texture coordinate that doesn't exist, leaving them out...\n";
    }
}

} // namespace Vantrel
