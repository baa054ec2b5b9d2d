#include "vtl/mesh/ModelMeshSkin.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/LineWidth.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/texture/ManagerTexture.h"

#include <algorithm>

namespace Vantrel {
namespace {

constexpr float shininessAtMost = 128.0F; // of GL_SHININESS

std::vector<std::unique_ptr<Texture>> whiteTexture() {
    std::vector<std::unique_ptr<Texture>> textures;
    const Texture* const white = ManagerTexture::getDefaultWhiteTexture();
    if (ManagerOpenGLState::isVersion32OrGreater() && white != nullptr) {
        textures.push_back(white->clone());
    }
    return textures;
}

/** Calls `act` on each texture with its unit selected, and selects unit 0 again. */
template <class Act>
void forEachUnit(const std::vector<std::unique_ptr<Texture>>& textures, Act act) {
    for (std::size_t unit = 0; unit < textures.size(); ++unit) {
        if (textures[unit] != nullptr) {
            glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
            act(*textures[unit]);
        }
    }
    if (!textures.empty()) {
        glActiveTexture(GL_TEXTURE0);
    }
}

} // namespace

ModelMeshSkin::ModelMeshSkin() : ModelMeshSkin(nullptr) {
    textures = whiteTexture();
}

ModelMeshSkin::ModelMeshSkin(std::unique_ptr<Texture> texture) : shader(ManagerShader::getDefaultShader()) {
    if (texture != nullptr) {
        textures.push_back(std::move(texture));
    }
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        specularCoefficient = shininessAtMost;
    }
    if (!ManagerOpenGLState::areVertexBuffersSupported()) {
        Report() << "WARNING: ModelMeshSkin, VBOs are not supported, skin renderType is forced to VA...\n";
        renderType = MESH_RENDER_TYPE::VA;
    }
}

ModelMeshSkin::ModelMeshSkin(const ModelMeshSkin& other)
    : shader(other.shader != nullptr ? other.shader->clone() : nullptr)
    , ambient(other.ambient)
    , diffuse(other.diffuse)
    , specular(other.specular)
    , specularCoefficient(other.specularCoefficient)
    , color(other.color)
    , colorMaterial(other.colorMaterial)
    , shadingType(other.shadingType)
    , primitiveType(other.primitiveType)
    , lineWidth(other.lineWidth)
    , renderType(other.renderType)
    , renderNormals(other.renderNormals)
    , normalLength(other.normalLength)
    , normalLineWidth(other.normalLineWidth)
    , visibleFlag(other.visibleFlag) {
    for (const std::unique_ptr<Texture>& texture : other.textures) {
        textures.push_back(texture != nullptr ? texture->clone() : nullptr);
    }
}

void ModelMeshSkin::setColor(int r, int g, int b, int a) {
    constexpr float full = 255.0F;
    color = {static_cast<float>(r) / full, static_cast<float>(g) / full, static_cast<float>(b) / full,
             static_cast<float>(a) / full};
}

void ModelMeshSkin::bind(const ModelMeshMatrices* matrices) {
    boundMatrices = matrices;
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        bindMaterialFixedFunction();
    }
    if (isWideLinePrimitive()) {
        setLineWidth(lineWidth);
    }
    checkGLErrorOfDraw(420101);
    if (shader != nullptr && matrices != nullptr) {
        shader->bind(matrices->modelMatrix, matrices->normalMatrix, matrices->camera, shaderMaterial());
    } else if (shader != nullptr) {
        shader->bind();
    }
    checkGLErrorOfDraw(420102);
    forEachUnit(textures, [](Texture& texture) { texture.bind(); });
}

void ModelMeshSkin::unbind() {
    checkGLErrorOfDraw(420103);
    forEachUnit(textures, [](Texture& texture) { texture.unbind(); });
    checkGLErrorOfDraw(420104);
    if (shader != nullptr) {
        shader->unbind();
    }
    if (isWideLinePrimitive()) {
        setLineWidth(1.0F);
    }
    if (!ManagerOpenGLState::isVersion32OrGreater() && shadingType == MESH_SHADING_TYPE::mstNONE &&
        ManagerOpenGLState::hasLights()) {
        glEnable(GL_LIGHTING);
    }
    boundMatrices = nullptr;
    checkGLErrorOfDraw(420105);
}

bool ModelMeshSkin::isWideLinePrimitive() const {
    switch (primitiveType) {
    case GL_LINES:
    case GL_LINE_LOOP:
    case GL_LINE_STRIP:
    case GL_LINES_ADJACENCY:
    case GL_LINE_STRIP_ADJACENCY:
        return lineWidth > 1.0F;
    default:
        return false;
    }
}

void ModelMeshSkin::bindMaterialFixedFunction() const {
    if (colorMaterial) {
        glEnable(GL_COLOR_MATERIAL);
        glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
        glColor4fv(&color.r);
    } else {
        glDisable(GL_COLOR_MATERIAL);
        glColor4f(1.0F, 1.0F, 1.0F, diffuse.a); // for what is drawn without light
        glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT, &ambient.r);
        glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, &diffuse.r);
    }
    if (shadingType == MESH_SHADING_TYPE::mstNONE) {
        glDisable(GL_LIGHTING);
    }
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, &specular.r);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, std::clamp(specularCoefficient, 0.0F, shininessAtMost));
}

ShaderMaterial ModelMeshSkin::shaderMaterial() const {
    ShaderMaterial material;
    material.ambient = ambient;
    material.diffuse = diffuse;
    material.specular = specular;
    material.specularCoefficient = specularCoefficient;
    if (!textures.empty() && textures[0] != nullptr) {
        textures[0]->getTextureMatrix(material.textureMatrix);
    }
    return material;
}

} // namespace Vantrel
