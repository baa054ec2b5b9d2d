#include "vtl/scene/parser/OBJMaterial.h"

#include "vtl/scene/parser/NumberText.h"

#include <string_view>

namespace Vantrel {
namespace {

OBJMaterial::Color takeColor(std::string_view& text, ModelFileFaults& faults) {
    OBJMaterial::Color color{};
    for (float& channel : color) {
        channel = takeFloat(text, faults);
    }
    return color;
}

/** The name of a material: all behind the blank that ends the keyword, which may hold blanks itself. */
std::string materialName(std::string_view behindKeyword) {
    behindKeyword.remove_prefix(behindKeyword.empty() ? 0 : 1);
    return std::string(trimmedAtEnd(behindKeyword));
}

/** The materials of one library, in the order of its lines. */
class LibraryReading {
public:
    LibraryReading(OBJMaterials& into, ModelFileFaults& counted) : materials(into), faults(counted) {}

    void readLine(std::string_view keyword, std::string_view text) {
        if (keyword == "newmtl") {
            insert();
            name = materialName(text);
        } else if (keyword == "Kd") {
            material.Kd = takeColor(text, faults);
        } else if (keyword == "Ka") {
            material.Ka = takeColor(text, faults);
        } else if (keyword == "Ks") {
            material.Ks = takeColor(text, faults);
        } else if (keyword == "Tf") {
            material.Tf = takeColor(text, faults);
        } else if (keyword == "d") {
            material.Tf.fill(takeFloat(text, faults));
        } else if (keyword == "map_Kd") {
            if (const std::string_view image = takeWord(text); !image.empty()) {
                material.textureName = std::make_shared<const std::string>(image);
            }
        }
    }

    void insert() {
        if (!name.empty()) {
            materials.try_emplace(name, material);
        }
    }

private:
    OBJMaterials& materials;
    ModelFileFaults& faults;
    std::string name;
    OBJMaterial material;
};

} // namespace

void readMaterialLibrary(FileLines& lines, OBJMaterials& materials, ModelFileFaults& faults) {
    LibraryReading reading(materials, faults);
    for (std::string_view line; lines.next(line);) {
        if (!line.empty() && !isWhiteSpace(line.front())) {
            const std::string_view keyword = takeWord(line);
            reading.readLine(keyword, line);
        }
    }
    reading.insert();
}

} // namespace Vantrel
