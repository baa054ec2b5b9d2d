#include "vtl/scene/parser/ModelFileFaults.h"

#include "vtl/base/Report.h"

namespace Vantrel {

void ModelFileFaults::report(std::string_view reader, std::string_view fileName) const {
    const auto tell = [&](std::size_t count, std::string_view what) {
        if (count != 0) {
            Report() << "WARNING: " << reader << ", '" << fileName << "': " << count << what;
        }
    };
    tell(numbers, " numbers are not finite or no numbers, taking them as 0...\n");
    tell(faces, " faces lack a vertex, a texture coordinate or a normal, leaving them out...\n");
    tell(facesOfMaterials, " faces that materials name don't exist...\n");
}

} // namespace Vantrel
