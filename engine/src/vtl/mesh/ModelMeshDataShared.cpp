#include "vtl/mesh/ModelMeshDataShared.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLError.h"
#include "vtl/gl/LineWidth.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedPlainColors.h"
#include "vtl/gl/shader/ManagerShader.h"
#include "vtl/gl/shader/VertexAttributeLocation.h"

#include <algorithm>

namespace Vantrel {
namespace {

constexpr std::int32_t drawCode = 420201;
constexpr std::int32_t selectionCode = 420202;
constexpr std::int32_t normalsCode = 420203;

void drawElements(const ModelMeshSkin& skin, const ModelMeshRenderData& data) {
    glDrawRangeElements(skin.primitiveType, 0, data.numVertices, static_cast<GLsizei>(data.numIndices),
                        data.indexType, data.VBOIdx ? nullptr : data.indices.get());
}

/** Where the fixed-function path takes vertices from while it lives: the data's buffers or client memory. */
class ScopedVertexSource {
public:
    explicit ScopedVertexSource(const ModelMeshRenderData& renderData) : data(renderData) {
        bind(data.VBOVtx.get(), data.VBOIdx.get());
        glEnableClientState(GL_VERTEX_ARRAY);
        glVertexPointer(3, GL_FLOAT, stride(), at(data.positionOffset));
    }
    ScopedVertexSource(const ScopedVertexSource&) = delete;
    ScopedVertexSource& operator=(const ScopedVertexSource&) = delete;
    ~ScopedVertexSource() {
        glDisableClientState(GL_VERTEX_ARRAY);
        bind(0, 0);
    }

    GLsizei stride() const { return static_cast<GLsizei>(data.stride); }
    /** What GL takes as the pointer to a part of the first vertex. */
    const void* at(std::uint32_t offset) const {
        return data.VBOVtx ? reinterpret_cast<const void*>(std::uintptr_t{offset})
                           : data.vertexData.get() + offset;
    }

private:
    static void bind(GLuint vertices, GLuint indices) {
        if (ManagerOpenGLState::areVertexBuffersSupported()) {
            glBindBuffer(GL_ARRAY_BUFFER, vertices);
            glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, indices);
        }
    }

    const ModelMeshRenderData& data;
};

/** How many coordinates a texture of that target takes; 0 for one that gets none. */
GLint coordinateCountOf(const Texture* texture) {
    switch (texture != nullptr && texture->getTexData() != nullptr ? texture->getTexData()->target
                                                                   : GL_NONE) {
    case GL_TEXTURE_1D:
        return 1;
    case GL_TEXTURE_2D:
    case GL_TEXTURE_BUFFER:
        return 2;
    case GL_TEXTURE_3D:
        return 3;
    default:
        return 0;
    }
}

/** The last set goes to all textures beyond it. */
void pointToTextureCoords(const ModelMeshSkin& skin, const ModelMeshRenderData& data,
                          const ScopedVertexSource& source) {
    const std::vector<std::uint32_t>& offsets = data.textureCoordOffsets;
    for (std::size_t i = 0; !offsets.empty() && i < skin.textures.size(); ++i) {
        const std::uint32_t offset = offsets[std::min(i, offsets.size() - 1)];
        glClientActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + i));
        if (const GLint count = data.floatsFrom(offset, coordinateCountOf(skin.textures[i].get()));
            count > 0) {
            glEnableClientState(GL_TEXTURE_COORD_ARRAY);
            glTexCoordPointer(count, GL_FLOAT, source.stride(), source.at(offset));
        }
    }
    glClientActiveTexture(GL_TEXTURE0);
}

void disableTextureCoords(const ModelMeshSkin& skin) {
    for (std::size_t i = 0; i < skin.textures.size(); ++i) {
        glClientActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + i));
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }
    glClientActiveTexture(GL_TEXTURE0);
}

/** Calls `act` with the location and the offset in a vertex of each attribute of the skin's shader that the
 * mesh has in a form that is drawn. */
template <class Act>
void forEachShaderAttribute(const ModelMeshSkin& skin, const ModelMeshRenderData& data, Act act) {
    if (skin.shader == nullptr) {
        return;
    }
    for (const GLSLAttribute& attribute : skin.shader->getAttributes()) {
        const auto place = data.attributeIndexByName.find(attribute.getName());
        if (place != data.attributeIndexByName.end() && attribute.getLocation() >= 0 &&
            attribute.getType() == atVEC3 && data.attributeTypes[place->second] == atVEC3) {
            act(static_cast<GLuint>(attribute.getLocation()), data.attributeOffsets[place->second]);
        }
    }
}

} // namespace

ModelMeshDataShared::ModelMeshDataShared(std::unique_ptr<ModelMeshRenderDataGenerator> meshGenerator)
    : generator(std::move(meshGenerator)) {
}

void ModelMeshDataShared::generateRenderData(MESH_SHADING_TYPE shadingType, MESH_RENDER_TYPE renderType,
                                             GLenum primitiveType) {
    if (!hasRenderData(shadingType, primitiveType)) {
        regenerateRenderData(shadingType, renderType, primitiveType);
    }
}

void ModelMeshDataShared::regenerateRenderData(MESH_SHADING_TYPE shadingType, MESH_RENDER_TYPE renderType,
                                               GLenum primitiveType) {
    ModelMeshRenderData& data = renderData[Key(shadingType, primitiveType)];
    data.releaseAll();
    data = generator->generateRenderData(shadingType, primitiveType);
    // The shader path draws from vertex arrays, which need buffers.
    if (renderType == MESH_RENDER_TYPE::VBO || ManagerOpenGLState::isVersion32OrGreater()) {
        data.createBuffers();
    }
    if (data.VBOVtx) {
        data.releaseClientData();
    }
}

bool ModelMeshDataShared::hasRenderData(MESH_SHADING_TYPE shadingType, GLenum primitiveType) const {
    return renderData.contains(Key(shadingType, primitiveType));
}

ModelMeshRenderData* ModelMeshDataShared::getRenderData(MESH_SHADING_TYPE shadingType, GLenum primitiveType) {
    const auto entry = renderData.find(Key(shadingType, primitiveType));
    return entry != renderData.end() ? &entry->second : nullptr;
}

ModelMeshRenderData& ModelMeshDataShared::renderDataOf(const ModelMeshSkin& skin) {
    ModelMeshRenderData* const data = getRenderData(skin.shadingType, skin.primitiveType);
    if (data != nullptr) {
        return *data;
    }
    Report() << "Render data for pair: " << skin.shadingType << ", " << skin.primitiveType
             << ", has not been loaded.\n"
                "Loading now...\n";
    generateRenderData(skin.shadingType, skin.renderType, skin.primitiveType);
    return *getRenderData(skin.shadingType, skin.primitiveType);
}

void ModelMeshDataShared::render(const ModelMeshSkin& skin) {
    checkGLErrorOfDraw(drawCode);
    render(skin, renderDataOf(skin));
    checkGLErrorOfDraw(drawCode);
}

void ModelMeshDataShared::render(const ModelMeshSkin& skin, ModelMeshRenderData& data) {
    ManagerOpenGLState::isVersion32OrGreater() ? renderVertexArrayObject(skin, data)
                                               : renderVertexArrays(skin, data);
    if (skin.renderNormals) {
        renderNormals(skin, data);
    }
}

void ModelMeshDataShared::renderVertexArrays(const ModelMeshSkin& skin, const ModelMeshRenderData& data) {
    if (!data.isDrawable()) {
        return;
    }
    const ScopedVertexSource source(data);
    if (data.hasColors) {
        glEnableClientState(GL_COLOR_ARRAY);
        glColorPointer(data.colorFormat == GL_RGBA ? 4 : 3, GL_UNSIGNED_BYTE, source.stride(),
                       source.at(data.colorOffset));
    }
    pointToTextureCoords(skin, data, source);
    forEachShaderAttribute(skin, data, [&](GLuint location, std::uint32_t offset) {
        glEnableVertexAttribArray(location);
        glVertexAttribPointer(location, 3, GL_FLOAT, GL_FALSE, source.stride(), source.at(offset));
    });
    if (data.hasNormals) {
        glEnableClientState(GL_NORMAL_ARRAY);
        glNormalPointer(GL_FLOAT, source.stride(), source.at(data.normalOffset));
    }
    checkGLErrorOfDraw(drawCode);
    drawElements(skin, data);
    checkGLErrorOfDraw(drawCode);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_COLOR_ARRAY);
    forEachShaderAttribute(skin, data,
                           [](GLuint location, std::uint32_t) { glDisableVertexAttribArray(location); });
    disableTextureCoords(skin);
}

void ModelMeshDataShared::renderVertexArrayObject(const ModelMeshSkin& skin,
                                                  const ModelMeshRenderData& data) {
    if (!data.hasNormals) {
        setCurrentVertexNormalToNone();
    }
    if (!data.hasColors) {
        setCurrentVertexColor(skin.getVertexColor());
    }
    renderSelectionVertexArrayObject(skin, data);
}

void ModelMeshDataShared::renderNormals(const ModelMeshSkin& skin, ModelMeshRenderData& data) {
    if (!data.prepareNormalLines(skin.normalLength)) {
        return;
    }
    const std::uint32_t program = ManagerShader::getCurrentProgram();
    setLineWidth(skin.normalLineWidth);
    ManagerOpenGLState::isVersion32OrGreater() ? renderNormalsWithShader(skin, data)
                                               : renderNormalsFixedFunction(skin, data);
    setLineWidth(1.0F);
    ManagerShader::useProgram(program);
    checkGLErrorOfDraw(normalsCode);
}

void ModelMeshDataShared::renderNormalsFixedFunction(const ModelMeshSkin& skin,
                                                     const ModelMeshRenderData& data) {
    const ScopedPlainColors plain;
    const bool wasSmooth = glIsEnabled(GL_LINE_SMOOTH) == GL_TRUE;
    glEnable(GL_LINE_SMOOTH);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    for (std::size_t i = skin.textures.size(); i-- > 0;) {
        glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + i));
        for (const GLenum target : {GLenum{GL_TEXTURE_1D}, GLenum{GL_TEXTURE_2D}, GLenum{GL_TEXTURE_3D}}) {
            glDisable(target);
        }
    }
    ManagerShader::useProgram(0);
    glColor4f(1.0F, 1.0F, 0.0F, 1.0F);
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, 0, data.normalLineVertices.data());
    glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(data.normalLineNumVertices));
    glDisableClientState(GL_VERTEX_ARRAY);
    if (!wasSmooth) {
        glDisable(GL_LINE_SMOOTH);
    }
}

/**
 * Without GL_LINE_SMOOTH: after smooth lines of width 2, a scene of three meshes on Mesa's software
 * rasterizer (22.3) had a bounding box two pixels wide, though GL's line width was 1 again.
 */
void ModelMeshDataShared::renderNormalsWithShader(const ModelMeshSkin& skin, ModelMeshRenderData& data) {
    const ModelMeshMatrices* const matrices = skin.getBoundMatrices();
    auto* const shader = ManagerShader::getDefaultBoundingBoxLinesShader();
    if (matrices == nullptr || shader == nullptr) {
        return;
    }
    shader->bind(matrices->camera.getViewProjectionMatrix() * matrices->modelMatrix);
    setCurrentVertexColor(vtlColor4f(1.0F, 1.0F, 0.0F, 1.0F));
    data.bindNormalLineArray();
    glDrawArrays(GL_LINES, 0, static_cast<GLsizei>(data.normalLineNumVertices));
    glBindVertexArray(0);
}

void ModelMeshDataShared::renderSelection(const ModelMeshSkin& skin, std::uint8_t r, std::uint8_t g,
                                          std::uint8_t b) {
    renderSelection(skin, renderDataOf(skin), r, g, b);
}

void ModelMeshDataShared::renderSelection(const ModelMeshSkin& skin, const ModelMeshRenderData& data,
                                          std::uint8_t r, std::uint8_t g, std::uint8_t b) {
    ManagerOpenGLState::isVersion32OrGreater() ? renderSelectionVertexArrayObject(skin, data)
                                               : renderSelectionVertexArrays(skin, data, r, g, b);
    checkGLErrorOfDraw(selectionCode);
}

void ModelMeshDataShared::renderSelectionVertexArrays(const ModelMeshSkin& skin,
                                                      const ModelMeshRenderData& data, std::uint8_t r,
                                                      std::uint8_t g, std::uint8_t b) {
    glEnable(GL_COLOR_MATERIAL);
    glColor4ub(r, g, b, 255);
    if (data.isDrawable()) {
        const ScopedVertexSource source(data);
        drawElements(skin, data);
    }
}

void ModelMeshDataShared::renderSelectionVertexArrayObject(const ModelMeshSkin& skin,
                                                           const ModelMeshRenderData& data) {
    if (!data.isDrawable() || !data.vertexArrayObject) {
        return;
    }
    glBindVertexArray(data.vertexArrayObject.get());
    drawElements(skin, data);
    glBindVertexArray(0);
}

} // namespace Vantrel
