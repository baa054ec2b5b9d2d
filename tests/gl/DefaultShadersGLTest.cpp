#include "tests/support/GLContextFixture.h"
#include "tests/support/PixelReading.h"
#include "tests/support/WindowQuad.h"
#include "vtl/gl/shader/GLSLShaderDefaultOrthoWOGUI_GL32.h"
#include "vtl/gl/shader/GLSLShaderFont40.h"
#include "vtl/gl/shader/GLSLShaderFontDistanceFieldGL32.h"
#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"

#include <cmath>
#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using Tests::Pixel;
using Lights = GLSLUniformBlockLightInfo;

constexpr int width = 200;
constexpr int height = 100;
constexpr std::array<float, 4> black{0.0F, 0.0F, 0.0F, 1.0F};
constexpr std::array<float, 4> white{1.0F, 1.0F, 1.0F, 1.0F};
/** Rounding of the driver's arithmetic and of the frame buffer. */
constexpr int rounding = 2;

Pixel pixelOf(float r, float g, float b) {
    const auto byte = [](float value) {
        return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0F, 1.0F) * 255.0F));
    };
    return {byte(r), byte(g), byte(b)};
}

/** A texture of the given texels, 4 bytes each, bottom row first, on the current unit; not filtered. */
class SmallTexture {
public:
    SmallTexture(int texelsWide, int texelsHigh, const std::vector<std::uint8_t>& texels)
        : texture(GLTexture::create()) {
        glBindTexture(GL_TEXTURE_2D, texture.get());
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_NEAREST);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_NEAREST);
        glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, texelsWide, texelsHigh, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                     texels.data());
    }

private:
    GLTexture texture;
};

class DefaultShadersGLTest : public Tests::GLContextFixture {
protected:
    void SetUp() override {
        Tests::GLContextFixture::SetUp();
        whiteTexture = std::make_unique<SmallTexture>(1, 1, std::vector<std::uint8_t>(4, 255));
        if (GetParam().isShaderPath()) {
            camera = std::make_unique<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>>();
            lights = std::make_unique<GLSLUniformBlockT<Lights>>();
        } else {
            glMatrixMode(GL_PROJECTION);
            glLoadIdentity();
            glMatrixMode(GL_MODELVIEW);
            glLoadIdentity();
        }
        glDisable(GL_BLEND);
        glDisable(GL_DEPTH_TEST);
        glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
        glClearColor(0.0F, 0.0F, 0.0F, 1.0F);
        glClear(GL_COLOR_BUFFER_BIT);
    }
    void TearDown() override {
        whiteTexture.reset();
        camera.reset();
        lights.reset();
        Tests::GLContextFixture::TearDown();
    }

    /** The pixel in the middle of the window after the quad has been drawn with the shader on black. */
    Pixel drawn(GLSLShader& shader, const ShaderMaterial& material, const Tests::WindowQuad& quad) {
        glClear(GL_COLOR_BUFFER_BIT);
        shader.bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), material);
        quad.draw();
        shader.unbind();
        return middle();
    }
    /** One white light from that direction, no other light, and a white material. */
    void shineFrom(const Lights::Vec4& toLight) {
        if (GetParam().isShaderPath()) {
            lights->data.numLights = 1;
            lights->data.position[0] = {-toLight[0], -toLight[1], -toLight[2], 0.0F};
            lights->data.color[0] = white;
            lights->upload();
            return;
        }
        glLightfv(GL_LIGHT0, GL_POSITION, toLight.data());
        glLightfv(GL_LIGHT0, GL_DIFFUSE, white.data());
        glLightModelfv(GL_LIGHT_MODEL_AMBIENT, black.data());
        glMaterialfv(GL_FRONT_AND_BACK, GL_DIFFUSE, white.data());
    }
    static Pixel middle() { return Tests::readPixels(width, height).at(width / 2, height / 2); }

    static void expectPixel(const Pixel& pixel, const Pixel& expected, const char* what) {
        EXPECT_LE(Tests::worstDifference(pixel, expected), rounding)
            << what << ": " << int{pixel[0]} << " " << int{pixel[1]} << " " << int{pixel[2]} << " instead of "
            << int{expected[0]} << " " << int{expected[1]} << " " << int{expected[2]};
    }

    std::unique_ptr<GLSLUniformBlockT<GLSLUniformBlockCameraTransforms>> camera;
    std::unique_ptr<GLSLUniformBlockT<Lights>> lights;
    std::unique_ptr<SmallTexture> whiteTexture;
};

/** Of those files that also serve below 3.2, where they take the fixed-function state. */
class DualShadersGLTest : public DefaultShadersGLTest {};

TEST_P(DefaultShadersGLTest, UniformsStandAtTheirPlacesAndTheSettersReachThem) {
    const auto namesIn = [](GLSLShader& shader) {
        std::string names;
        for (const GLSLUniform& uniform : shader.getUniforms()) {
            names.append(uniform.getName()).append(" ");
        }
        return names;
    };
    const std::string material =
        "TexMat0 MVPMat TexUnit0 Material.Ka Material.Kd Material.Ks Material.SpecularCoeff ";
    const auto mesh = GLSLShaderDefaultGL32::New();
    EXPECT_EQ(namesIn(*mesh), "ModelMat NormalMat " + material + "ShadowMap ");
    EXPECT_EQ(namesIn(*GLSLShaderFontDistanceFieldGL32::New()),
              "ModelMat NormalMat " + material + "ShadowMap FontColor ");
    EXPECT_EQ(namesIn(*GLSLShaderDefaultOrthoWOGUI_GL32::New()), material);
    EXPECT_EQ(namesIn(*GLSLShaderFont40::New()), "ModelMat MVPMat TexUnit0 Color ");
    const auto valueOf = [&](const char* name) {
        std::array<float, 16> values{};
        glGetUniformfv(mesh->getProgram(), glGetUniformLocation(mesh->getProgram(), name), values.data());
        return values[0];
    };
    Mat4 matrix;
    const auto numbered = [&](float number) -> const Mat4& {
        matrix[0] = number;
        return matrix;
    };
    mesh->setModelMatrix(numbered(2.0F));
    mesh->setNormalMatrix(numbered(3.0F));
    mesh->setTextureMatrix(numbered(4.0F));
    mesh->setMVPMatrix(numbered(5.0F));
    mesh->setMaterialAmbient({6.0F, 0.0F, 0.0F, 1.0F});
    mesh->setMaterialDiffuse({7.0F, 0.0F, 0.0F, 1.0F});
    mesh->setMaterialSpecular({8.0F, 0.0F, 0.0F, 1.0F});
    mesh->setMaterialSpecularCoefficient(9.0F);
    float expected = 2.0F;
    for (const char* name : {"ModelMat", "NormalMat", "TexMat0", "MVPMat", "Material.Ka", "Material.Kd",
                             "Material.Ks", "Material.SpecularCoeff"}) {
        EXPECT_EQ(valueOf(name), expected++) << name;
    }
}

TEST_P(DefaultShadersGLTest, MeshesAreLitByEveryKindOfLight) {
    struct Row {
        const char* what;
        std::array<float, 3> normal;
        std::vector<Lights::Vec4> positions;
        Pixel expected;
    };
    const ShaderMaterial material{.ambient = {0.5F, 0.5F, 0.5F, 1.0F},
                                  .diffuse = {0.8F, 0.4F, 0.2F, 1.0F},
                                  .specular = {0.0F, 0.0F, 0.0F, 1.0F},
                                  .specularCoefficient = 10.0F,
                                  .textureMatrix = {}};
    constexpr std::array<float, 3> facing{0.0F, 0.0F, 1.0F};
    const float ambient = 0.5F * 0.2F;
    const auto lit = [&](float share) {
        return pixelOf(ambient + 0.8F * share, ambient + 0.4F * share, ambient + 0.2F * share);
    };
    const auto shader = ManagerShader::getDefaultShader();
    for (const Row& row : {Row{"no lights: as it is", facing, {}, pixelOf(1, 1, 1)},
                           Row{"no normal: as it is", {0, 0, 0}, {{0, 0, -1, 0}}, pixelOf(1, 1, 1)},
                           Row{"shining onto it", facing, {{0, 0, -1, 0}}, lit(1)},
                           Row{"shining away from it", facing, {{0, 0, 1, 0}}, lit(0)},
                           Row{"no direction", facing, {{0, 0, 0, 0}}, lit(0)},
                           Row{"a direction of another length", facing, {{0, -3, -4, 0}}, lit(0.8F)},
                           Row{"a normal of another length", {0, 0, 7}, {{0, -3, -4, 0}}, lit(0.8F)},
                           Row{"a point before it", facing, {{0, 0, 2, 1}}, lit(1)},
                           Row{"a point behind it", facing, {{0, 0, -2, 1}}, lit(0)},
                           Row{"a point aside", facing, {{3, 0, 4, 1}}, lit(0.8F)},
                           Row{"two lights", facing, {{0, -4, -3, 0}, {0, 0, -2, 1}}, lit(0.6F)}}) {
        lights->data.globalAmbient = {0.2F, 0.2F, 0.2F, 1.0F};
        lights->data.numLights = static_cast<std::int32_t>(row.positions.size());
        std::copy(row.positions.begin(), row.positions.end(), lights->data.position.begin());
        lights->data.color.fill(white);
        lights->upload();
        Tests::WindowQuad quad;
        quad.setNormal(row.normal);
        expectPixel(drawn(*shader, material, quad), row.expected, row.what);
    }
}

TEST_P(DefaultShadersGLTest, MeshesShineAndAreModulatedByVertexColorAndTexture) {
    lights->data.numLights = 1;
    lights->data.position[0] = {0.0F, -0.6F, -0.8F, 0.0F};
    lights->data.color[0] = {1.0F, 0.5F, 0.5F, 1.0F};
    lights->upload();
    ShaderMaterial material{.ambient = {0.0F, 0.0F, 0.0F, 1.0F},
                            .diffuse = {1.0F, 1.0F, 1.0F, 0.5F},
                            .specular = {0.0F, 0.0F, 0.0F, 1.0F},
                            .specularCoefficient = 3.0F,
                            .textureMatrix = {}};
    Tests::WindowQuad quad;
    const auto shader = ManagerShader::getDefaultShader();
    const SmallTexture texture(1, 1, {255, 128, 255, 255});
    quad.setColor({0.5F, 1.0F, 1.0F, 0.8F});
    glEnable(GL_BLEND);
    const float alpha = 0.5F * 0.8F;
    expectPixel(drawn(*shader, material, quad), pixelOf(0.4F * alpha, 0.4F * 0.5F * alpha, 0.4F * alpha),
                "colour, texture and alpha");
    glDisable(GL_BLEND);

    // The eye is at the origin; the quad stands before it, and the highlight where light is reflected to the
    // eye.
    camera->data.view[14] = -1.0F;
    camera->upload();
    material.diffuse = {0.0F, 0.0F, 0.0F, 1.0F};
    material.specular = {1.0F, 1.0F, 1.0F, 1.0F};
    quad.setColor(white);
    const float halfway = 0.9F / std::sqrt(0.3F * 0.3F + 0.9F * 0.9F); // between (0, 0.6, 0.8) and (0, 0, 1)
    const float shine = halfway * halfway * halfway;
    expectPixel(drawn(*shader, material, quad), pixelOf(shine, 0.5F * shine * 128.0F / 255.0F, 0.5F * shine),
                "highlight");
}

TEST_P(DefaultShadersGLTest, SelectionWritesExactBytesThroughBlending) {
    glEnable(GL_BLEND);
    for (int value = 0; value < 256; ++value) {
        const auto r = static_cast<std::uint8_t>(value);
        const auto g = static_cast<std::uint8_t>(255 - value);
        const auto b = static_cast<std::uint8_t>(value * 7);
        ManagerShader::getDefaultSelectionShader()->bind(Mat4(), r, g, b);
        Tests::WindowQuad().draw();
        ManagerShader::getDefaultSelectionShader()->unbind();
        ASSERT_EQ(middle(), (Pixel{r, g, b}));
    }
}

TEST_P(DefaultShadersGLTest, LinesAreDrawnInTheColorsOfTheirVertices) {
    Mat4 half;
    half[0] = 0.5F;
    for (GLSLShaderVertexColors* shader :
         std::initializer_list<GLSLShaderVertexColors*>{ManagerShader::getDefaultBoundingBoxLinesShader(),
                                                        ManagerShader::getDefaultLoadingScreenShader(),
                                                        ManagerShader::getDefaultIndexedGeometryLinesShader(),
                                                        ManagerShader::getDefaultOrthoStencilShader()}) {
        glClear(GL_COLOR_BUFFER_BIT);
        Tests::WindowQuad quad;
        quad.setColor({1.0F, 0.5F, 0.0F, 1.0F});
        shader->bind(half);
        quad.draw();
        shader->unbind();
        expectPixel(middle(), pixelOf(1.0F, 0.5F, 0.0F), "inside");
        expectPixel(Tests::readPixels(width, height).at(width / 5, height / 2), pixelOf(0, 0, 0), "outside");
    }
}

TEST_P(DefaultShadersGLTest, WidgetsAndTextShowTheirPictures) {
    glEnable(GL_BLEND);
    const SmallTexture texture(2, 1, {102, 255, 255, 204, 255, 255, 255, 255});
    const Tests::WindowQuad quad;
    const ShaderCamera camera2D((Mat4()), Mat4());
    Mat4 leftTexelEverywhere;
    leftTexelEverywhere[0] = 0.0F;
    const ShaderMaterial material{.ambient = {},
                                  .diffuse = {0.5F, 1.0F, 1.0F, 0.5F},
                                  .specular = {},
                                  .specularCoefficient = 1.0F,
                                  .textureMatrix = leftTexelEverywhere};

    const auto widget = GLSLShaderDefaultOrthoWOGUI_GL32::New();
    widget->bind(Mat4(), material);
    quad.draw();
    expectPixel(middle(), pixelOf(0.5F * 0.4F * 0.4F, 0.4F, 0.4F), "widget");

    const auto glyph = GLSLShaderFont40::New();
    glClear(GL_COLOR_BUFFER_BIT);
    glyph->bind(Mat4(), camera2D);
    glyph->setColor({1.0F, 0.0F, 1.0F, 1.0F});
    quad.draw();
    expectPixel(Tests::readPixels(width, height).at(1, 1), pixelOf(0.8F, 0.0F, 0.8F), "glyph");

    // Red 102 of 255 is outside of the glyph, red 255 inside.
    const auto distances = GLSLShaderFontDistanceFieldGL32::New();
    distances->setFontColor({0.0F, 1.0F, 0.0F, 1.0F});
    const auto otherString = distances->clone();
    static_cast<GLSLShaderFontDistanceFieldGL32&>(*otherString).setFontColor({1.0F, 1.0F, 1.0F, 1.0F});
    glClear(GL_COLOR_BUFFER_BIT);
    distances->bind(Mat4(), Mat4(), camera2D, ShaderMaterial{});
    quad.draw();
    expectPixel(Tests::readPixels(width, height).at(1, 1), pixelOf(0, 0, 0), "outside");
    expectPixel(Tests::readPixels(width, height).at(width - 2, 1), pixelOf(0, 1, 0), "inside");
    distances->unbind();
}

TEST_P(DualShadersGLTest, ColorRangesAreDiscardedAndGlyphsMadeBolder) {
    const std::string folder = KELDIN_SHARED_DATA "shaders/";
    const SmallTexture texture(2, 1, {230, 230, 230, 255, 0, 102, 255, 102});
    Tests::WindowQuad quad;
    quad.setColor({1.0F, 0.5F, 1.0F, 1.0F});
    const auto cutOut = GLSLShader::New(folder + "discardColorRange.vert", folder + "discardColorRange.frag");
    GLSLUniform("color", utVEC3, cutOut->getProgram()).setFloats(white.data());
    GLSLUniform epsilon("epsilon", utFLOAT, cutOut->getProgram());
    for (const auto& [range, expected] :
         {std::pair(0.15F, pixelOf(0, 0, 0)), std::pair(0.05F, pixelOf(0.9F, 0.45F, 0.9F))}) {
        epsilon.setFloat(range);
        glClear(GL_COLOR_BUFFER_BIT);
        cutOut->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
        quad.draw();
        expectPixel(Tests::readPixels(width, height).at(1, 1), expected, "background");
        expectPixel(Tests::readPixels(width, height).at(width - 2, 1), pixelOf(0, 0.2F, 1), "picture");
    }

    glEnable(GL_BLEND);
    const auto bold = GLSLShader::New(folder + "emboldenFont.vert", folder + "emboldenFont.frag");
    GLSLUniform modifier("modifier", utFLOAT, bold->getProgram());
    for (const auto& [factor, coverage] :
         {std::pair(1.0F, 0.4F), std::pair(2.0F, 0.8F), std::pair(9.0F, 1.0F)}) {
        modifier.setFloat(factor);
        glClear(GL_COLOR_BUFFER_BIT);
        bold->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
        quad.draw();
        expectPixel(Tests::readPixels(width, height).at(width - 2, 1),
                    pixelOf(coverage, 0.5F * coverage, coverage), "glyph");
    }
    bold->unbind();
    glDisable(GL_BLEND);
}

TEST_P(DualShadersGLTest, TextCanLieAtADepthOfItsChoice) {
    const std::string folder = KELDIN_SHARED_DATA "shaders/";
    const char* const name = GetParam().isShaderPath() ? "font40" : "emboldenFont";
    const auto shader = GLSLShader::New(folder + name + ".vert", folder + name + ".frag");
    GLSLUniform(GetParam().isShaderPath() ? "Color" : "modifier",
                GetParam().isShaderPath() ? utVEC4 : utFLOAT, shader->getProgram())
        .setFloats(white.data());
    glEnable(GL_DEPTH_TEST);
    glDepthFunc(GL_ALWAYS);
    for (const auto& [use, expected] : {std::pair(0, 0.5F), std::pair(1, 0.25F)}) {
        GLSLUniform("useFradeDepth", utINT, shader->getProgram()).setInts(&use);
        GLSLUniform("fragDepth", utFLOAT, shader->getProgram()).setFloat(0.25F);
        shader->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
        Tests::WindowQuad().draw();
        float depth = 0.0F;
        glReadPixels(width / 2, height / 2, 1, 1, GL_DEPTH_COMPONENT, GL_FLOAT, &depth);
        EXPECT_NEAR(depth, expected, 0.001F);
    }
    shader->unbind();
    glDepthFunc(GL_LESS);
}

TEST_P(DefaultShadersGLTest, TheSkyIsWhereTheCameraBlockPutsIt) {
    const std::string folder = KELDIN_SHARED_DATA "shaders/";
    const auto sky = GLSLShader::New(folder + "skyboxGL4.vert", folder + "skyboxGL4.frag");
    const SmallTexture texture(1, 1, {10, 20, 30, 255});
    camera->data.view[12] =
        1.0F; // the model's left edge goes to the middle, twice as far by the model matrix
    camera->upload();
    Mat4 twice;
    twice[0] = 2.0F;
    sky->bind(twice, Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
    Tests::WindowQuad().draw();
    sky->unbind();
    const auto picture = Tests::readPixels(width, height);
    EXPECT_EQ(picture.at(0, 50), (Pixel{10, 20, 30})); // from -2 + 1 on
    camera->data.view[12] = 3.0F;
    camera->upload();
    glClear(GL_COLOR_BUFFER_BIT);
    sky->bind(twice, Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
    Tests::WindowQuad().draw();
    sky->unbind();
    EXPECT_EQ(middle(), (Pixel{0, 0, 0})); // from 1 on
}

/** Light from where u or v grows, maps that lean every normal that way. */
TEST_P(DualShadersGLTest, ANormalMapLeansTheNormalAlongTheTangent) {
    const std::string folder = KELDIN_SHARED_DATA "shaders/";
    const auto shader = GLSLShader::New(folder + "crazybump_DIFFUSE_NRM_SPEC.vert",
                                        folder + "crazybump_DIFFUSE_NRM_SPEC.frag");
    ASSERT_NE(shader, nullptr) << reports.text();
    for (const auto& [name, unit] :
         {std::pair("diffuseTexture", 0), std::pair("normalTexture", 1), std::pair("specularTexture", 2)}) {
        GLSLUniform(name, utSAMPLER2D, shader->getProgram()).setInt(unit);
    }
    glActiveTexture(GL_TEXTURE2);
    const SmallTexture noShine(1, 1, {0, 0, 0, 255});
    struct Row {
        const char* what;
        std::array<float, 3> tangent;
        bool isMirrored; ///< u grows to the left
        bool leansAlongV;
        float expected;
    };
    const float across = 0.8F * 0.8F;
    for (const Row& row : {Row{"towards the light", {1, 0, 0}, false, false, 1.0F},
                           Row{"away from it", {-1, 0, 0}, false, false, across - 0.6F * 0.6F},
                           Row{"across", {0, 1, 0}, false, false, across},
                           Row{"no tangent: where u grows in the picture", {0, 0, 0}, false, false, 1.0F},
                           Row{"no tangent, mirrored", {0, 0, 0}, true, false, across - 0.6F * 0.6F},
                           Row{"along v", {1, 0, 0}, false, true, 1.0F},
                           Row{"along v, mirrored", {-1, 0, 0}, true, true, 1.0F}}) {
        glActiveTexture(GL_TEXTURE1);
        const SmallTexture map(1, 1,
                               row.leansAlongV ? std::vector<std::uint8_t>{128, 204, 230, 255}
                                               : std::vector<std::uint8_t>{204, 128, 230, 255});
        glActiveTexture(GL_TEXTURE0);
        shineFrom(row.leansAlongV ? Lights::Vec4{0.0F, 0.6F, 0.8F, 0.0F}
                                  : Lights::Vec4{0.6F, 0.0F, 0.8F, 0.0F});
        Tests::WindowQuad quad;
        for (Tests::QuadCorner& corner : quad.corners) {
            corner.tangent = row.tangent;
            corner.textureCoord[0] = row.isMirrored ? 1.0F - corner.textureCoord[0] : corner.textureCoord[0];
        }
        glClear(GL_COLOR_BUFFER_BIT);
        const ShaderMaterial material{.ambient = {0.0F, 0.0F, 0.0F, 1.0F},
                                      .diffuse = {1.0F, 1.0F, 1.0F, 1.0F},
                                      .specular = {0.0F, 0.0F, 0.0F, 1.0F},
                                      .specularCoefficient = 1.0F,
                                      .textureMatrix = {}};
        shader->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), material);
        quad.draw(GLSLAttribute("tangent", atVEC3, shader->getProgram()).getLocation());
        shader->unbind();
        expectPixel(middle(), pixelOf(row.expected, row.expected, row.expected), row.what);
    }
}

INSTANTIATE_TEST_SUITE_P(Contexts, DefaultShadersGLTest, Tests::everyShaderContext(), Tests::nameOfGLContext);
INSTANTIATE_TEST_SUITE_P(Contexts, DualShadersGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
