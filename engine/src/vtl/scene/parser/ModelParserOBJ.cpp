#include "vtl/scene/parser/ModelParserOBJ.h"

#include "vtl/base/Report.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/parser/OBJFile.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace Vantrel {
namespace {

/** Up to and with the last separator of the file's name, which may be one of another system. */
std::string directoryOf(const std::string& fileName) {
    std::size_t separator = fileName.rfind('/');
    if (separator == std::string::npos) {
        separator = fileName.rfind('\\');
    }
    return fileName.substr(0, separator + 1); // nothing without a separator, since npos + 1 is 0
}

OBJMaterials readLibraries(const std::string& directory, const OBJFile& file) {
    OBJMaterials materials;
    std::set<std::string> read; // each file once, by whatever names the model calls it
    for (const std::string& name : file.getLibraryNames()) {
        const std::string library = directory + name;
        std::error_code error;
        if (!read.insert(std::filesystem::weakly_canonical(library, error).string()).second) {
            continue;
        }
        FileLines lines(library);
        if (!lines.isOpen()) {
            Report() << "No such material library as " << library << "\n";
            continue;
        }
        ModelFileFaults faults;
        readMaterialLibrary(lines, materials, faults);
        faults.report("ModelParserOBJ", library);
    }
    return materials;
}

vtlColor4f colorOf(const OBJMaterial::Color& color, const OBJMaterial& material) {
    return {color[0], color[1], color[2], material.Tf[0]};
}

ModelMeshSkin skinOf(const OBJMaterial& material, const std::string& directory) {
    ModelMeshSkin skin;
    skin.ambient = colorOf(material.Ka, material);
    skin.diffuse = colorOf(material.Kd, material);
    skin.specular = colorOf(material.Ks, material);
    skin.colorMaterial = false;
    if (material.textureName != nullptr) {
        skin.diffuse = colorOf({1, 1, 1}, material);
        skin.textures.resize(std::max<std::size_t>(skin.textures.size(), 1));
        skin.textures.front() = ManagerTexture::loadTexture(directory + *material.textureName);
    }
    return skin;
}

std::unique_ptr<ModelMeshRenderDataGenerator> generatorOf(OBJMesh mesh) {
    auto generator = std::make_unique<ModelMeshRenderDataGenerator>();
    generator->vertices = std::move(mesh.vertices);
    generator->indices = std::move(mesh.indices);
    if (mesh.material.textureName != nullptr) {
        generator->textureCoordSets.push_back({std::move(mesh.textureCoords), GL_TEXTURE_2D});
    }
    return generator;
}

} // namespace

std::unique_ptr<ModelDataShared> ModelParserOBJ::parse() {
    chooseShading();
    FileLines lines(fileName);
    if (!lines.isOpen()) {
        Report() << "No such .OBJ as " << fileName << " returning NULL.\n";
        return nullptr;
    }
    const std::string directory = directoryOf(fileName);
    OBJFile file(lines);
    const OBJMaterials materials = readLibraries(directory, file);
    std::vector<ModelMeshSource> sources;
    for (OBJMesh& mesh : file.makeMeshes(materials, scale)) {
        ModelMeshSource source{skinOf(mesh.material, directory), nullptr};
        source.skin.shadingType = shadingType;
        source.generator = generatorOf(std::move(mesh));
        sources.push_back(std::move(source));
    }
    file.faults.report("ModelParserOBJ", fileName);
    return std::make_unique<ModelDataShared>(std::move(sources));
}

} // namespace Vantrel
