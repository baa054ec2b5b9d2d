#include "vtl/mesh/ModelMeshDataShared.h"

#include "tests/gl/mesh/MeshGLFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::black;
using Tests::Pixel;
using Tests::PixelPicture;
using Tests::squareMesh;

constexpr auto smooth = MESH_SHADING_TYPE::mstSMOOTH;
constexpr auto flat = MESH_SHADING_TYPE::mstFLAT;
constexpr auto none = MESH_SHADING_TYPE::mstNONE;
constexpr auto inBuffers = MESH_RENDER_TYPE::VBO;
constexpr auto inClientMemory = MESH_RENDER_TYPE::VA;

class ModelMeshDataSharedGLTest : public Tests::MeshGLFixture {
protected:
    static ModelMeshSkin skinWith(MESH_SHADING_TYPE shading) {
        ModelMeshSkin skin;
        skin.shadingType = shading;
        skin.specular = vtlColor4f(0.0F, 0.0F, 0.0F, 1.0F);
        return skin;
    }
};

/** One way to draw a square that fills the picture. */
struct Look {
    const char* name;
    MESH_SHADING_TYPE shading;
    MESH_RENDER_TYPE renderType;
    /** 0 for no colours. */
    GLenum colorFormat;
    bool isTextured;
    bool colorMaterial;
    bool isLit;
    /** Of a channel. Light is computed for each vertex on one path and for each pixel on the other. */
    int tolerance;
};

constexpr std::array<Look, 8> looks{{
    {"coloured", none, inBuffers, GL_RGB, false, true, false, 2},
    {"coloured with alpha, textured, in client memory", none, inClientMemory, GL_RGBA, true, true, false, 2},
    {"textured", smooth, inBuffers, 0, true, true, false, 2},
    {"material, unlit", flat, inBuffers, 0, true, false, false, 2},
    {"no normals under light", none, inBuffers, GL_RGBA, true, true, true, 2},
    {"lit smooth in colours", smooth, inBuffers, GL_RGB, true, true, true, 5},
    {"lit flat in client memory", flat, inClientMemory, 0, true, true, true, 3},
    {"lit material", flat, inBuffers, 0, false, false, true, 3},
}};

std::vector<std::uint8_t> gradient(int side) {
    std::vector<std::uint8_t> pixels;
    for (int i = 0; i < side * side; ++i) {
        const auto x = static_cast<std::uint8_t>(i % side * 255 / (side - 1));
        const auto y = static_cast<std::uint8_t>(i / side * 255 / (side - 1));
        pixels.insert(pixels.end(), {x, y, static_cast<std::uint8_t>(255 - x), 255});
    }
    return pixels;
}

std::unique_ptr<ModelMeshRenderDataGenerator> meshFor(const Look& look) {
    auto mesh = squareMesh(2, 8);
    mesh->colorFormat = look.colorFormat == GL_RGBA ? GL_RGBA : GL_RGB;
    for (std::size_t i = 0; i < mesh->vertices.size(); ++i) {
        mesh->vertices[i].z = 0.1F * static_cast<float>(i % 3);
        if (look.colorFormat != 0) {
            mesh->colors.emplace_back(255 - 2 * i, 3 * i, 100, 255 - i);
        }
    }
    return mesh;
}

TEST_P(ModelMeshDataSharedGLTest, DrawsAsTheFixedFunctionPathDoes) {
    const auto drawAll = [&] {
        constexpr int side = 32;
        const auto picture = image(side, gradient(side));
        std::vector<PixelPicture> pictures;
        for (const Look& look : looks) {
            lookFrom(Vector(1, 2, 10), unitY);
            ManagerOpenGLState::setLightCountSource(nullptr);
            if (look.isLit) {
                shine(Vector(0.3F, 0.2F, -1).normalizeMe(), 0.25F);
            }
            ModelMeshSkin skin(look.isTextured || !isShaderPath()
                                   ? nullptr
                                   : ManagerTexture::getDefaultWhiteTexture()->clone());
            if (look.isTextured) {
                skin.textures.push_back(textureOn(*picture));
            }
            skin.shadingType = look.shading;
            skin.renderType = look.renderType;
            skin.colorMaterial = look.colorMaterial;
            skin.specular = vtlColor4f(0.0F, 0.0F, 0.0F, 1.0F);
            // The fixed functions put the colour in the place of the material; the shader multiplies by it.
            if (!look.colorMaterial || !isShaderPath()) {
                skin.ambient = vtlColor4f(0.9F, 0.1F, 0.5F, 1);
                skin.diffuse = vtlColor4f(0.2F, 0.8F, 0.4F, 0.75F);
            } else {
                skin.ambient = skin.diffuse = vtlColor4f();
            }
            skin.color = vtlColor4f(0.6F, 0.7F, 0.8F, 0.9F);
            ModelMeshDataShared mesh(meshFor(look));
            pictures.push_back(pictureOf(mesh, skin));
        }
        return pictures;
    };
    const std::vector<PixelPicture> pictures = drawAll();
    restartGL(Tests::fixedFunctionContext);
    const std::vector<PixelPicture> expected = drawAll();
    for (std::size_t i = 0; i < looks.size(); ++i) {
        int worst = 0;
        for (std::size_t p = 0; p < expected[i].pixels.size(); ++p) {
            worst = std::max(worst, Tests::worstDifference(pictures[i].pixels[p], expected[i].pixels[p]));
        }
        EXPECT_LE(worst, looks[i].tolerance) << looks[i].name;
        Tests::leavePictures(pictures[i], expected[i],
                             Tests::nameOfGLContext({GetParam(), 0}) + " " + looks[i].name,
                             worst > looks[i].tolerance);
        EXPECT_NE(expected[i].at(128, 128), black) << looks[i].name;
        EXPECT_NE(expected[i].at(128, 128), expected[i].at(30, 200)) << looks[i].name;
    }
}

TEST_P(ModelMeshDataSharedGLTest, MakesEachPairOnceAndOnDemand) {
    const Tests::GLObjectCount before = Tests::countGLObjects();
    Tests::GLObjectCount withMesh = before;
    withMesh.buffers += 2;
    withMesh.vertexArrays += isShaderPath() ? 1 : 0;
    {
        ModelMeshDataShared mesh(squareMesh(0.5F));
        mesh.generateRenderData(flat, inBuffers, GL_TRIANGLES);
        const ModelMeshRenderData* const data = mesh.getRenderData(flat, GL_TRIANGLES);
        ASSERT_NE(data, nullptr);
        EXPECT_EQ(data->vertexData, nullptr);
        EXPECT_EQ(data->indices, nullptr);
        const GLuint buffer = data->VBOVtx.get();
        mesh.generateRenderData(flat, inBuffers, GL_TRIANGLES);
        EXPECT_EQ(data->VBOVtx.get(), buffer);
        EXPECT_EQ(Tests::countGLObjects(), withMesh);
        mesh.regenerateRenderData(flat, inBuffers, GL_TRIANGLES);
        EXPECT_EQ(mesh.getRenderData(flat, GL_TRIANGLES), data);
        EXPECT_EQ(Tests::countGLObjects(), withMesh);

        ModelMeshSkin skin = skinWith(none);
        reports.clear();
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{255, 255, 255}));
        }
        EXPECT_EQ(reports.text(),
                  "Render data for pair: MESH_SHADING_TYPE::mstNONE, 4, has not been loaded.\n"
                  "Loading now...\n");
        skin.shadingType = flat;
        skin.renderNormals = true;
        pictureOf(mesh, skin);
        EXPECT_EQ(reports.count("Loading now"), 1U);
        EXPECT_EQ(mesh.getRenderData(smooth, GL_TRIANGLES), nullptr);
    }
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(ModelMeshDataSharedGLTest, VerticesAreWhereTheRenderTypeSays) {
    ModelMeshDataShared mesh(squareMesh(0.5F));
    mesh.generateRenderData(none, inClientMemory, GL_TRIANGLES);
    const ModelMeshRenderData& data = *mesh.getRenderData(none, GL_TRIANGLES);
    EXPECT_EQ(data.VBOVtx.get() != 0, isShaderPath()) << "vertex arrays need buffers";
    EXPECT_EQ(data.vertexData == nullptr, isShaderPath());
    ModelMeshSkin skin = skinWith(none);
    EXPECT_EQ(pictureOf(mesh, skin).at(70, 180), (Pixel{255, 255, 255}));
    EXPECT_EQ(pictureOf(mesh, skin).at(50, 180), black);
}

TEST_P(ModelMeshDataSharedGLTest, DrawsNothingWithoutVerticesOrIndices) {
    for (const bool hasVertices : {false, true}) {
        auto empty = std::make_unique<ModelMeshRenderDataGenerator>();
        empty->vertices.resize(hasVertices ? 3 : 0);
        empty->colors.resize(empty->vertices.size());
        ModelMeshDataShared mesh(std::move(empty));
        for (const MESH_SHADING_TYPE shading : {none, smooth}) {
            ModelMeshSkin skin = skinWith(shading);
            skin.renderNormals = true;
            EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), black);
        }
    }
}

TEST_P(ModelMeshDataSharedGLTest, SkinColorsWhatHasNoColors) {
    ModelMeshDataShared mesh(squareMesh(0.5F));
    ModelMeshSkin skin = skinWith(none);
    skin.setColor(10, 20, 30, 255);
    EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{10, 20, 30}));
    skin.colorMaterial = false;
    skin.diffuse.a = 1;
    EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{255, 255, 255}));

    auto coloredSquare = squareMesh(0.5F);
    coloredSquare->colors.assign(4, vtlColor4ub(200, 100, 50, 0));
    ModelMeshDataShared colored(std::move(coloredSquare));
    EXPECT_EQ(pictureOf(colored, skin).at(128, 128), (Pixel{200, 100, 50})) << "three bytes: opaque";
    skin.colorMaterial = true;
    EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{10, 20, 30})) << "colours of another mesh stay away";
}

TEST_P(ModelMeshDataSharedGLTest, SelectionIsDrawnInExactlyItsColor) {
    auto square = squareMesh(0.5F);
    square->colors.assign(4, vtlColor4ub(200, 100, 50, 10));
    square->colorFormat = GL_RGBA;
    ModelMeshDataShared mesh(std::move(square));
    ModelMeshSkin skin = skinWith(smooth);
    clearPicture();
    if (isShaderPath()) {
        ManagerShader::getDefaultSelectionShader()->bind(camera->getViewProjectionMatrix(), 1, 2, 253);
    }
    mesh.renderSelection(skin, 1, 2, 253);
    ManagerShader::useProgram(0);
    EXPECT_EQ(pixelAt(128, 128), (Pixel{1, 2, 253}));
    EXPECT_EQ(pixelAt(70, 180), (Pixel{1, 2, 253}));
    EXPECT_EQ(pixelAt(50, 180), black);
}

/** How many pixels of the row `y` are yellow, from `fromX` up to and without `toX`. */
int countYellow(const PixelPicture& picture, int y, int fromX, int toX) {
    int count = 0;
    for (int x = fromX; x < toX; ++x) {
        const Pixel& pixel = picture.at(x, y);
        count += pixel[0] > 100 && pixel[0] == pixel[1] && pixel[2] == 0 ? 1 : 0;
    }
    return count;
}

TEST_P(ModelMeshDataSharedGLTest, NormalLinesStandOnTheVerticesInYellow) {
    // Seen along +Y with Z up: the square is a line at the height 128, its corners at 64 and 192.
    const auto white = image(1, {255, 255, 255, 255});
    const auto red = image(1, {255, 0, 0, 255});
    lookFrom(Vector(0, -10, 0), unitZ);
    shine(Vector(0, 0, -1), 0.5F);
    for (const MESH_RENDER_TYPE renderType : {inBuffers, inClientMemory}) {
        ModelMeshDataShared mesh(squareMesh(0.5F));
        ModelMeshSkin skin(textureOn(*red));
        skin.textures.push_back(textureOn(*white));
        skin.shadingType = smooth;
        skin.renderType = renderType;
        EXPECT_EQ(countYellow(pictureOf(mesh, skin), 150, 0, 256), 0);
        skin.renderNormals = true;
        skin.normalLength = 0.5F;
        for (int round = 0; round < 2; ++round) {
            const PixelPicture shown = pictureOf(mesh, skin);
            EXPECT_GE(countYellow(shown, 188, 60, 69), 1);
            EXPECT_GE(countYellow(shown, 188, 188, 197), 1);
            EXPECT_EQ(countYellow(shown, 160, 70, 187), 0);
            EXPECT_EQ(countYellow(shown, 197, 0, 256), 0);
        }
        skin.normalLength = 0;
        pictureOf(mesh, skin);
        skin.normalLength = 0.75F;
        skin.normalLineWidth = 5;
        const PixelPicture shown = pictureOf(mesh, skin);
        const bool isWide = ManagerOpenGLState::getCapabilities().maxLineWidth >= 5;
        EXPECT_GE(countYellow(shown, 215, 184, 201), isWide ? 4 : 1);
        EXPECT_EQ(countYellow(shown, 230, 0, 256), 0);
        EXPECT_FALSE(glIsEnabled(GL_LINE_SMOOTH));
        float widthAfter = 0;
        glGetFloatv(GL_LINE_WIDTH, &widthAfter);
        EXPECT_EQ(widthAfter, 1.0F);
        skin.shadingType = none;
        EXPECT_EQ(countYellow(pictureOf(mesh, skin), 150, 0, 256), 0) << "no normals, no lines";
    }
}

TEST_P(ModelMeshDataSharedGLTest, TwoSkinsOfOneMeshKeepTheirLengthsOfNormals) {
    lookFrom(Vector(0, -10, 0), unitZ, 2);
    ModelMeshDataShared mesh(squareMesh(0.5F));
    for (const float length : {0.25F, 1.0F, 0.5F}) {
        ModelMeshSkin skin = skinWith(flat);
        skin.renderNormals = true;
        skin.normalLength = length;
        const int top = 128 + static_cast<int>(64 * length);
        const PixelPicture shown = pictureOf(mesh, skin);
        EXPECT_GE(countYellow(shown, top - 4, 0, 256), 1);
        EXPECT_EQ(countYellow(shown, top + 4, 0, 256), 0);
    }
}

TEST_P(ModelMeshDataSharedGLTest, WideLinesAreDrawnWhereTheContextHasThem) {
    auto line = std::make_unique<ModelMeshRenderDataGenerator>();
    line->sourcePrimitive = GL_LINES;
    line->vertices = {{-0.5F, 0, 0}, {0.5F, 0, 0}};
    line->indices = {0, 1};
    ModelMeshDataShared mesh(std::move(line));
    for (const float width : {1.0F, 7.0F, 1e9F, -3.0F}) {
        ModelMeshSkin skin = skinWith(none);
        skin.primitiveType = GL_LINES;
        skin.lineWidth = width;
        const PixelPicture shown = pictureOf(mesh, skin);
        int thickness = 0;
        for (int y = 100; y < 156; ++y) {
            thickness += shown.at(100, y) != black ? 1 : 0;
        }
        const float widest = ManagerOpenGLState::getCapabilities().maxLineWidth;
        EXPECT_GE(thickness, width > 1 ? static_cast<int>(std::min({width, widest, 50.0F})) : 1);
        EXPECT_LE(thickness, width == 7 ? 8 : width > 7 ? 56 : 1);
        float after = 0;
        glGetFloatv(GL_LINE_WIDTH, &after);
        EXPECT_EQ(after, 1.0F);
    }
}

TEST_P(ModelMeshDataSharedGLTest, FixedFunctionPathFeedsEveryTextureUnitAndShaderAttribute) {
    if (isShaderPath()) {
        GTEST_SKIP() << "fixed-function path only";
    }
    const auto half = image(1, {128, 255, 255, 255});
    const auto white = image(1, {255, 255, 255, 255});
    const auto sides = image(2, {255, 0, 0, 255, 255, 255, 255, 255, 255, 0, 0, 255, 255, 255, 255, 255});
    auto square = squareMesh(1);
    square->textureCoordSets.insert(square->textureCoordSets.begin(), {.coords = {4, Vector()}});
    ModelMeshDataShared mesh(std::move(square));
    ModelMeshSkin skin(textureOn(*half));
    skin.textures.push_back(textureOn(*white));
    skin.textures.push_back(textureOn(*sides));
    skin.textures[2]->setMagFilter(GL_NEAREST);
    skin.shadingType = none;
    const PixelPicture shown = pictureOf(mesh, skin);
    EXPECT_LE(Tests::worstDifference(shown.at(20, 128), {128, 0, 0}), 1) << "the last set goes to unit 2 too";
    EXPECT_LE(Tests::worstDifference(shown.at(236, 128), {128, 255, 255}), 1);
    EXPECT_FALSE(glIsEnabled(GL_TEXTURE_COORD_ARRAY));

    const Tests::TemporaryFolder folder;
    skin.setShader(GLSLShader::New(
        folder.write("tangent.vert", "#version 120\nattribute vec3 tangent; varying vec3 shown;\n"
                                     "void main() { shown = tangent; gl_Position = ftransform(); }\n"),
        folder.write("tangent.frag", "#version 120\nvarying vec3 shown;\n"
                                     "void main() { gl_FragColor = vec4(shown, 1.0); }\n")));
    ASSERT_NE(skin.shader, nullptr) << reports.text();
    for (const char* name : {"tangent", "absent"}) {
        skin.shader->addAttribute(GLSLAttribute(name, atVEC3, skin.shader->getProgram()));
    }
    mesh.getGenerator().generateTangents = true;
    mesh.getGenerator().textureCoordSets.erase(mesh.getGenerator().textureCoordSets.begin());
    for (const MESH_RENDER_TYPE renderType : {inBuffers, inClientMemory}) {
        mesh.regenerateRenderData(smooth, renderType, GL_TRIANGLES);
        skin.shadingType = smooth;
        EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{255, 0, 0})) << "u grows along +X";
    }
}

TEST_P(ModelMeshDataSharedGLTest, DrawsFromClientMemoryWhereThereAreNoBuffers) {
    if (isShaderPath()) {
        GTEST_SKIP() << "a part of GL from 1.5 on";
    }
    const auto genBuffers = glGenBuffers;
    glGenBuffers = nullptr;
    ManagerOpenGLState::shutdown();
    ManagerOpenGLState::init();
    lookFrom(Vector(0, 0, 10), unitY);
    {
        reports.clear();
        ModelMeshSkin skin = skinWith(none);
        EXPECT_EQ(reports.text(),
                  "WARNING: ModelMeshSkin, VBOs are not supported, skin renderType is forced to VA...\n");
        EXPECT_EQ(skin.renderType, inClientMemory);
        skin.renderType = inBuffers;
        ModelMeshDataShared mesh(squareMesh(0.5F));
        EXPECT_EQ(pictureOf(mesh, skin).at(128, 128), (Pixel{255, 255, 255}));
        EXPECT_NE(mesh.getRenderData(none, GL_TRIANGLES)->vertexData, nullptr);
    }
    glGenBuffers = genBuffers;
}

INSTANTIATE_TEST_SUITE_P(Contexts, ModelMeshDataSharedGLTest, Tests::everyGLContext(),
                         Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
