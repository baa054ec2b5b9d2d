#pragma once

#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"
#include "vtl/gl/texture/ManagerTexture.h"
#include "vtl/math/MatrixBuilders.h"
#include "vtl/mesh/ModelMeshDataShared.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/PixelReading.h"

#include <GL/glew.h>
#include <array>
#include <memory>
#include <optional>

namespace Vantrel::Tests {

constexpr int pictureSide = 256;
constexpr Pixel black{0, 0, 0};

/** A context with a window of 256 x 256, the default shaders and textures, and a camera for both paths. */
class MeshGLFixture : public GLContextFixture {
protected:
    void SetUp() override {
        startMeshGL(GetParam());
        ASSERT_TRUE(ManagerWindowing::isWindowExisting()) << reports.text();
    }
    void TearDown() override {
        camera.reset();
        cameraBlock.reset();
        lightBlock.reset();
        GLContextFixture::TearDown();
    }

    /** Goes on in another context. */
    void restartGL(const GLContextRow& row) {
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
        cameraBlock.reset();
        lightBlock.reset();
        stopGL();
        startMeshGL(row);
    }

    void lookFrom(const Vector& eye, const Vector& up, float halfHeight = 1) {
        Mat4 projection;
        Mat4 view;
        buildOrthographic(-halfHeight, halfHeight, -halfHeight, halfHeight, 0.1F, 100, projection);
        buildLookAt(eye, Vector(), up, view);
        lookThrough(ShaderCamera(projection, view));
    }
    void lookThrough(const ShaderCamera& other) {
        camera.emplace(other);
        const Mat4& projection = camera->getProjectionMatrix();
        const Mat4& view = camera->getViewMatrix();
        if (isShaderPath()) {
            cameraBlock->data.view = view.m;
            cameraBlock->data.projection = projection.m;
            cameraBlock->upload();
            return;
        }
        glMatrixMode(GL_PROJECTION);
        glLoadMatrixf(projection.m.data());
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(view.m.data());
    }

    /** One white light that shines along `direction` in eye space, and `ambient` from everywhere. */
    void shine(const Vector& direction, float ambient) {
        ManagerOpenGLState::setLightCountSource([]() -> std::size_t { return 1; });
        const std::array<float, 4> ambientColor{ambient, ambient, ambient, 1};
        if (isShaderPath()) {
            lightBlock->data = {.globalAmbient = ambientColor, .numLights = 1};
            lightBlock->data.position[0] = {direction.x, direction.y, direction.z, 0};
            lightBlock->data.color[0] = {1, 1, 1, 1};
            lightBlock->upload();
            return;
        }
        const std::array<float, 4> toLight{-direction.x, -direction.y, -direction.z, 0};
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        glLightfv(GL_LIGHT0, GL_POSITION, toLight.data());
        glPopMatrix();
        glEnable(GL_LIGHT0);
        ManagerOpenGLState::setGlobalAmbient(ambientColor);
    }

    /** Beside those of the window's size: `{key=value}`. */
    virtual std::vector<std::string> settings() const { return {}; }

    /** Leaves behind what another mesh might have: a current normal and a current colour. */
    static void clearPicture() {
        if (isShaderPath()) {
            glVertexAttrib3f(1, 0, 0, 1);
            glVertexAttrib4f(3, 1, 0, 1, 1);
        }
        ManagerOpenGLState::restorePerObjectState();
        glClearColor(0, 0, 0, 1);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    static PixelPicture picture() { return readPixels(pictureSide, pictureSide); }
    static Pixel pixelAt(int x, int y) { return picture().at(x, y); }

    /** Binds the skin as a mesh at the origin does, draws, and gives everything back. */
    void draw(ModelMeshDataShared& mesh, ModelMeshSkin& skin) const {
        const Mat4 identity;
        const Mat4 normalMatrix = rotationOf(camera->getViewMatrix());
        const ModelMeshMatrices matrices{identity, normalMatrix, *camera};
        skin.bind(&matrices);
        mesh.render(skin);
        EXPECT_EQ(ManagerShader::getCurrentProgram(), skin.shader != nullptr ? skin.shader->getProgram() : 0);
        skin.unbind();
        EXPECT_EQ(checkGLError(0), 0U) << reports.text();
    }
    PixelPicture pictureOf(ModelMeshDataShared& mesh, ModelMeshSkin& skin) const {
        clearPicture();
        draw(mesh, skin);
        return picture();
    }

    /** A texture of `side` x `side` pixels of four bytes, sampled linearly. */
    static std::unique_ptr<TextureDataOwnsGLHandle> image(int side, const std::vector<std::uint8_t>& pixels) {
        return TextureDataOwnsGLHandle::fromPixels("test", static_cast<std::uint32_t>(side), pixels, false);
    }
    static std::unique_ptr<Texture> textureOn(TextureDataOwnsGLHandle& data) {
        return std::make_unique<TextureSharesTexDataOwnsGLHandle>(&data);
    }

    static bool isShaderPath() { return ManagerOpenGLState::isVersion32OrGreater(); }

    std::optional<ShaderCamera> camera;

private:
    static Mat4 rotationOf(Mat4 view) {
        view[12] = view[13] = view[14] = 0;
        return view;
    }
    void startMeshGL(const GLContextRow& row) {
        std::vector<std::string> all = settings();
        all.insert(all.end(), {"{width=256}", "{height=256}"});
        startGL(row, all);
        ManagerTexture::init();
        if (isShaderPath()) {
            cameraBlock = std::make_unique<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>>();
            lightBlock = std::make_unique<GLSLUniformBlockT<GLSLUniformBlockLightInfo>>();
        }
        lookFrom(Vector(0, 0, 10), unitY);
    }

    std::unique_ptr<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>> cameraBlock;
    std::unique_ptr<GLSLUniformBlockT<GLSLUniformBlockLightInfo>> lightBlock;
};

/** A square from -half to half in the plane z = 0, in `cells` x `cells` cells of two triangles. */
inline std::unique_ptr<ModelMeshRenderDataGenerator> squareMesh(float half, std::uint32_t cells = 1) {
    auto mesh = std::make_unique<ModelMeshRenderDataGenerator>();
    mesh->textureCoordSets.emplace_back();
    const std::uint32_t row = cells + 1;
    for (std::uint32_t i = 0; i < row * row; ++i) {
        const float u = static_cast<float>(i % row) / static_cast<float>(cells);
        const float v = static_cast<float>(i / row) / static_cast<float>(cells);
        mesh->vertices.emplace_back(half * (2 * u - 1), half * (2 * v - 1), 0.0F);
        mesh->textureCoordSets[0].coords.emplace_back(u, v, 0.0F);
        if (i % row < cells && i / row < cells) {
            mesh->indices.insert(mesh->indices.end(), {i, i + 1, i + row + 1, i, i + row + 1, i + row});
        }
    }
    return mesh;
}

} // namespace Vantrel::Tests
