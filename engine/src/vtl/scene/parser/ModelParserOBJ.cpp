#include "vtl/scene/parser/ModelParserOBJ.h"

#include "vtl/base/Report.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/parser/OBJFile.h"

#include <algorithm>
#include <set>
#include <string_view>
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

OBJMaterials readLibraries(const std::string& directory, const OBJFile& file, ModelFileFaults& faults) {
    OBJMaterials materials;
    std::set<std::string_view> tried;
    for (const std::string& name : file.getLibraryNames()) {
        if (!tried.insert(name).second) {
            continue;
        }
        FileLines lines(directory + name);
        if (lines.isOpen()) {
            readMaterialLibrary(lines, materials, faults);
        } else {
            Report() << "No such material library as " << directory << name << "\n";
        }
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
    if (!material.textureName.empty()) {
        skin.diffuse = colorOf({1, 1, 1}, material);
        skin.textures.resize(std::max<std::size_t>(skin.textures.size(), 1));
        skin.textures.front() = ManagerTexture::loadTexture(directory + material.textureName);
    }
    return skin;
}

std::unique_ptr<ModelMeshRenderDataGenerator> generatorOf(OBJMesh mesh) {
    auto generator = std::make_unique<ModelMeshRenderDataGenerator>();
    generator->vertices = std::move(mesh.vertices);
    generator->indices = std::move(mesh.indices);
    if (!mesh.material.textureName.empty()) {
        generator->textureCoordSets.push_back({std::move(mesh.textureCoords), GL_TEXTURE_2D});
    }
    return generator;
}

} // namespace

std::unique_ptr<ModelDataShared> ModelParserOBJ::parse() {
    if (shadingType == MESH_SHADING_TYPE::mstAUTO) {
        shadingType = MESH_SHADING_TYPE::mstSMOOTH;
    }
    FileLines lines(fileName);
    if (!lines.isOpen()) {
        Report() << "No such .OBJ as " << fileName << " returning NULL.\n";
        return nullptr;
    }
    const std::string directory = directoryOf(fileName);
    OBJFile file(lines);
    const OBJMaterials materials = readLibraries(directory, file, file.faults);
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
