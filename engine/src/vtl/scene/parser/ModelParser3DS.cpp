#include "vtl/scene/parser/ModelParser3DS.h"

#include "vtl/base/Report.h"
#include "vtl/base/WholeFile.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/parser/MaterialMesh3DS.h"
#include "vtl/scene/parser/ModelParserVRML.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>

namespace Vantrel {
namespace {

/** The skin that the material's maps ask for; those of a "_COLOR" map stand beside it. */
ModelMeshSkin skinWithMaps(const Material3DS& material, const std::string& directory) {
    constexpr std::size_t extensionLength = 4;
    const std::string& name = material.textureName;
    if (name.empty()) {
        return material.bumpName.empty()
                   ? ModelMeshSkin()
                   : ModelMeshSkin(ManagerTexture::loadTexture(directory + material.bumpName));
    }
    const std::string stem = directory + name.substr(0, name.size() - std::min(name.size(), extensionLength));
    std::error_code error;
    if (!std::filesystem::exists(stem + "_COLOR.png", error)) {
        return ModelMeshSkin(ManagerTexture::loadTexture(directory + name));
    }
    ModelMeshSkin skin(ManagerTexture::loadTexture(stem + "_COLOR.png"));
    skin.textures.push_back(ManagerTexture::loadTexture(stem + "_NRM.png"));
    skin.textures.push_back(ManagerTexture::loadTexture(stem + "_SPEC.png"));
    skin.setShader(ModelParserVRML::newNormalMapShader());
    return skin;
}

vtlColor4f opaque(const Material3DS::Color& color) {
    return {color[0], color[1], color[2], 1.0F};
}

ModelMeshSkin skinOf(const Material3DS& material, const std::string& directory,
                     MESH_SHADING_TYPE shadingType) {
    ModelMeshSkin skin = skinWithMaps(material, directory);
    skin.ambient = opaque(material.ambient);
    skin.diffuse = opaque(material.diffuse);
    skin.colorMaterial = false;
    skin.shadingType = shadingType;
    return skin;
}

/** With the same texture coordinates for each of so many textures. */
std::unique_ptr<ModelMeshRenderDataGenerator> generatorOf(MaterialMesh3DS mesh, std::size_t textureCount) {
    auto generator = std::make_unique<ModelMeshRenderDataGenerator>();
    generator->vertices = std::move(mesh.vertices);
    generator->indices = std::move(mesh.indices);
    generator->textureCoordSets.resize(textureCount, {std::move(mesh.textureCoords), GL_TEXTURE_2D});
    if (textureCount > 1) {
        generator->generateTangents = true;
        Report() << "Using tangents!\n";
    }
    return generator;
}

} // namespace

std::unique_ptr<ModelDataShared> ModelParser3DS::parse() {
    chooseShading();
    constexpr std::size_t longest = std::numeric_limits<std::uint32_t>::max(); // as long as a chunk can be
    const std::optional<WholeFile> bytes = WholeFile::read(fileName, longest);
    const std::optional<File3DS> file = bytes ? File3DS::read(bytes->bytes()) : std::nullopt;
    if (!file) {
        Report() << "File " << fileName << " not found. Returning NULL\n";
        return nullptr;
    }
    ModelFileFaults faults = file->getFaults();
    std::vector<MaterialMesh3DS> meshes = MaterialMesh3DS::meshesOf(*file, scale, faults);
    faults.report("ModelParser3DS", fileName);

    const std::string directory = fileName.substr(0, fileName.rfind('/') + 1); // nothing without a "/"
    std::vector<ModelMeshSource> sources;
    auto mesh = meshes.begin(); // the next in the order of the materials, of which some have none
    for (std::size_t i = 0; i < file->getMaterials().size(); ++i) {
        ModelMeshSkin skin = skinOf(file->getMaterials()[i], directory, shadingType);
        if (mesh != meshes.end() && mesh->material == i) {
            const std::size_t textureCount = skin.textures.size();
            sources.push_back({std::move(skin), generatorOf(*std::move(mesh++), textureCount)});
        }
    }
    return std::make_unique<ModelDataShared>(std::move(sources));
}

} // namespace Vantrel
