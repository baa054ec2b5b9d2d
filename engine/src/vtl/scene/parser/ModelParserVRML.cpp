#include "vtl/scene/parser/ModelParserVRML.h"

#include "vtl/base/ManagerEnvironmentConfiguration.h"
#include "vtl/base/Pause.h"
#include "vtl/base/Report.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/scene/model/ModelDataShared.h"
#include "vtl/scene/parser/ModelParserVRMLShape.h"
#include "vtl/scene/parser/ReadingGuard.h"

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

namespace Vantrel {
namespace {

std::optional<ModelParserVRMLShape> readFirstShape(const std::string& fileName, const Vector& scale) {
    FileLines lines(fileName);
    if (!lines.isOpen()) {
        Report() << "ERROR: Can't Find File: " << fileName << "\n";
        Pause::exitAfterKey();
    }
    ModelParserVRMLShape shape;
    ModelFileFaults faults;
    if (!shape.read(lines, fileName, scale, faults)) {
        return std::nullopt;
    }
    faults.report("ModelParserVRML", fileName);
    return shape;
}

std::unique_ptr<ModelMeshRenderDataGenerator> generatorOf(ModelParserVRMLShape shape) {
    auto generator = std::make_unique<ModelMeshRenderDataGenerator>();
    generator->textureCoordSets.push_back({shape.splitAtSeams(), GL_TEXTURE_2D});
    generator->vertices = std::move(shape.vertices);
    generator->indices = std::move(shape.coordIndices);
    return generator;
}

/** Null when there is no such file. */
std::unique_ptr<Texture> loadMap(const std::string& fileName) {
    std::unique_ptr<Texture> map = ManagerTexture::loadTexture(fileName);
    const Texture* const missing = ManagerTexture::getDefaultTexture();
    const bool isThere = map != nullptr && missing != nullptr && map->getGLHandle() != missing->getGLHandle();
    return isThere ? std::move(map) : nullptr;
}

/** Adds the maps that stand beside the skin's colour map. */
void addMaps(ModelMeshSkin& skin, ModelMeshRenderDataGenerator& generator) {
    const std::string name = skin.textures.empty() ? std::string() : skin.textures.front()->getFileName();
    const std::size_t end = name.rfind("_COLOR");
    if (end == std::string::npos) {
        return;
    }
    const std::string base = name.substr(0, end);
    std::unique_ptr<Texture> normals = loadMap(base + "_NRM.png");
    std::unique_ptr<Texture> highlights = loadMap(base + "_SPEC.png");
    if (normals != nullptr) {
        Report() << "Normal Map Loaded '" << normals->getFileName() << "'\n";
        skin.textures.push_back(std::move(normals));
        generator.generateTangents = true;
        skin.setShader(ModelParserVRML::newNormalMapShader());
    }
    if (highlights != nullptr) {
        Report() << "Specularity Map Loaded '" << highlights->getFileName() << "'\n";
        skin.textures.push_back(std::move(highlights));
    }
}

} // namespace

std::unique_ptr<ModelDataShared> ModelParserVRML::parse() {
    std::optional<ModelParserVRMLShape> shape =
        readOrExit([this] { return readFirstShape(fileName, scale); });
    if (!shape) {
        Report() << "Bad VRML file: " << fileName << "\n";
        return nullptr;
    }
    ModelMeshSource source{ModelMeshSkin(ManagerTexture::loadTexture(shape->textureFileName)), nullptr};
    source.generator = generatorOf(*std::move(shape));
    chooseShading();
    const bool isSmooth = shadingType == MESH_SHADING_TYPE::mstSMOOTH;
    source.skin.shadingType = isSmooth ? MESH_SHADING_TYPE::mstSMOOTH : MESH_SHADING_TYPE::mstFLAT;
    source.skin.setColor(vtlColor4ub(255, 255, 255, 255));
    addMaps(source.skin, *source.generator);
    std::vector<ModelMeshSource> sources;
    sources.push_back(std::move(source));
    return std::make_unique<ModelDataShared>(std::move(sources));
}

std::unique_ptr<GLSLShader> ModelParserVRML::newNormalMapShader() {
    const std::string files =
        ManagerEnvironmentConfiguration::getSharedMultimediaPath() + "/shaders/crazybump_DIFFUSE_NRM_SPEC";
    std::unique_ptr<GLSLShader> shader = GLSLShader::New(files + ".vert", files + ".frag");
    if (shader == nullptr) {
        return ManagerShader::getDefaultShader();
    }
    const std::array names{"diffuseTexture", "normalTexture", "specularTexture"};
    for (std::size_t unit = 0; unit < names.size(); ++unit) {
        GLSLUniform map(names[unit], utSAMPLER2D, shader->getProgram());
        map.setInt(static_cast<std::int32_t>(unit));
        shader->addUniform(std::move(map));
    }
    shader->addAttribute(GLSLAttribute("tangent", atVEC3, shader->getProgram()));
    return shader;
}

} // namespace Vantrel
