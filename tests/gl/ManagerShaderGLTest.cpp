#include "vtl/gl/shader/ManagerShader.h"

#include "tests/support/GLContextFixture.h"
#include "tests/support/GLObjectCount.h"
#include "tests/support/TemporaryFolder.h"
#include "vtl/gl/shader/GLSLUniformBlockCameraTransforms.h"
#include "vtl/gl/shader/GLSLUniformBlockLightInfo.h"
#include "vtl/gl/shader/GLSLUniformBlockT.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

const std::string sharedShaders = KELDIN_SHARED_DATA "shaders/";
constexpr const char* plainVertex = "#version 150\nin vec3 VertexPosition;\n"
                                    "void main() { gl_Position = vec4(VertexPosition, 1.0); }\n";
constexpr const char* plainFragment =
    "#version 150\nout vec4 FragColor;\nvoid main() { FragColor = vec4(1.0); }\n";
constexpr const char* oldVertex = "#version 120\nvoid main() { gl_Position = gl_Vertex; }\n";
constexpr const char* oldFragment = "#version 120\nvoid main() { gl_FragColor = vec4(1.0); }\n";

class ManagerShaderGLTest : public Tests::GLContextFixture {
protected:
    std::string vertexFile() {
        return folder.write("plain.vert", GetParam().isShaderPath() ? plainVertex : oldVertex);
    }
    std::string fragmentFile() {
        return folder.write("plain.frag", GetParam().isShaderPath() ? plainFragment : oldFragment);
    }

    Tests::TemporaryFolder folder;
};

class ShaderPathGLTest : public ManagerShaderGLTest {};

TEST_P(ManagerShaderGLTest, EveryFileSetCompilesWithoutAWordFromTheDriver) {
    struct Row {
        const char* name;
        bool isFor21;
    };
    for (const Row& row : {Row{"defaultGL32", false}, Row{"defaultSelectionGL32", false},
                           Row{"defaultBoundingBoxLinesGL32", false}, Row{"loadingScreenGL4", false},
                           Row{"IndexedGeometryAxesGL4", false}, Row{"defaultOrthoStencilGL32", false},
                           Row{"defaultOrthoMGLGUI_GL32", false}, Row{"fontDistanceFieldGL32", false},
                           Row{"font40", false}, Row{"skyboxGL4", false}, Row{"discardColorRange", true},
                           Row{"emboldenFont", true}, Row{"crazybump_DIFFUSE_NRM_SPEC", true}}) {
        if (GetParam().isShaderPath() || row.isFor21) {
            reports.clear();
            EXPECT_NE(GLSLShader::New(sharedShaders + row.name + ".vert", sharedShaders + row.name + ".frag"),
                      nullptr)
                << row.name << reports.text();
            EXPECT_FALSE(reports.contains("log:")) << reports.text();
            EXPECT_EQ(reports.contains("#version 120"), !GetParam().isShaderPath());
        }
    }
    EXPECT_EQ(Tests::KeyPresses::count(), 0);
}

TEST_P(ManagerShaderGLTest, OneFileServesBothPathsWhateverItsLineEnds) {
    const std::string both =
        folder.write("both.vert", "#version 150\r\n#if __VERSION__ < 130\r\n"
                                  "void main() { gl_Position = ftransform(); }\r\n#else\r\n"
                                  "in vec3 VertexPosition;\r\n"
                                  "void main() { gl_Position = vec4(VertexPosition, 1.0); }\r\n"
                                  "#endif\r\n");
    EXPECT_NE(GLSLShader::New(both, fragmentFile()), nullptr) << reports.text();
    EXPECT_EQ(reports.contains("ftransform"), true);
    EXPECT_EQ(reports.contains("#version 120\n#if"), !GetParam().isShaderPath());
}

TEST_P(ManagerShaderGLTest, BelowThreeTwoReportsThatThereAreNoDefaultShaders) {
    reports.clear();
    ManagerShader::init();
    EXPECT_EQ(
        reports.contains("WARNING: OpenGL Context Version is < 3.2 and Cannot load DEFAULT_SHADER...\n"),
        !GetParam().isShaderPath());
    EXPECT_EQ(ManagerShader::getDefaultShader() != nullptr, GetParam().isShaderPath());
    ManagerEnvironmentConfiguration::populateFromText("createwindow=0\n");
    reports.clear();
    ManagerShader::init();
    EXPECT_FALSE(reports.contains("WARNING"));
}

TEST_P(ManagerShaderGLTest, OneProgramForOneSetOfFiles) {
    const Tests::GLObjectCount before = Tests::countGLObjects();
    const auto first = GLSLShader::New(vertexFile(), fragmentFile());
    const auto second = GLSLShader::New(vertexFile(), fragmentFile());
    ASSERT_NE(first, nullptr) << reports.text();
    const auto other = GLSLShader::New(
        folder.write("other.vert", GetParam().isShaderPath() ? plainVertex : oldVertex), fragmentFile());
    EXPECT_EQ(first->getProgram(), second->getProgram());
    EXPECT_EQ(first->getProgram(), first->clone()->getProgram());
    EXPECT_NE(first->getProgram(), other->getProgram());
    EXPECT_EQ(reports.count("plain.vert'"), 1U);
    EXPECT_EQ(Tests::countGLObjects().programs, before.programs + 2);
    ManagerShader::shutdown();
    EXPECT_EQ(Tests::countGLObjects(), Tests::GLObjectCount{});
}

TEST_P(ManagerShaderGLTest, FailuresTellWhatIsWrongCostAKeyEachAndGiveNull) {
    struct Row {
        std::string vertexFile;
        std::string fragmentFile;
        int keys;
        std::vector<std::string> texts;
    };
    const std::string nowhere = folder.path("nowhere.vert");
    const std::string brokenText = "void main() { colour = 1; }\n";
    const std::string broken = folder.write("broken.frag", brokenText);
    const std::string functionless = folder.write("functionless.vert", "#version 120\nvoid shade();\n"
                                                                       "void main() { shade(); }\n");
    const Tests::GLObjectCount before = Tests::countGLObjects();
    for (const Row& row : {Row{nowhere,
                               fragmentFile(),
                               2,
                               {"ERROR: The shader " + nowhere + " failed to open.\n", "Linking!\n"}},
                           Row{folder.path(""),
                               fragmentFile(),
                               2,
                               {"ERROR: The shader " + folder.path("") + " failed to open.\n"}},
                           Row{vertexFile(),
                               broken,
                               2,
                               {"Compiling Shader: '" + broken + "'\n" + brokenText,
                                "Vertex Shader compile log:\n", "Failed to compile shader ",
                                "\nPress ENTER to continue without this shader...\n", "Linking!\n"}},
                           Row{functionless,
                               folder.write("old.frag", oldFragment),
                               1,
                               {"Program link log:\n", "Failed to link program ", ". Status returned is 0\n",
                                "Hit ENTER to continue normally...Fix this prior to a release...\n"}}}) {
        if (row.vertexFile == functionless && ManagerOpenGLState::isCoreProfile()) {
            continue; // a core context takes no GLSL 1.20
        }
        reports.clear();
        const int keysBefore = Tests::KeyPresses::count();
        EXPECT_EQ(GLSLShader::New(row.vertexFile, row.fragmentFile), nullptr);
        for (const std::string& text : row.texts) {
            EXPECT_TRUE(reports.contains(text)) << text << "is missing in\n" << reports.text();
        }
        // A vertex stage is no must, so that without it the link may succeed.
        EXPECT_LE(Tests::KeyPresses::count() - keysBefore, row.keys) << reports.text();
        EXPECT_GE(Tests::KeyPresses::count() - keysBefore, 1);
    }
    EXPECT_EQ(Tests::countGLObjects(), before);
}

TEST_P(ManagerShaderGLTest, WithoutEntryPointsThereIsNoShader) {
    const auto linkProgram = std::exchange(glLinkProgram, nullptr);
    EXPECT_EQ(ManagerShader::loadShader(vertexFile(), fragmentFile()), nullptr);
    EXPECT_TRUE(reports.contains("WARNING: Your graphics card does not support necessary functions to\n"
                                 "   instantiate an OpenGL Shader program...\n"
                                 "   NOT creating GLSLShader...\n"));
    glLinkProgram = linkProgram;
    const auto createShader = std::exchange(glCreateShader, nullptr);
    // Not even the geometry types are looked at.
    EXPECT_EQ(ManagerShader::loadShader(vertexFile(), fragmentFile(), "", 99, 99), nullptr);
    glCreateShader = createShader;
}

TEST_P(ShaderPathGLTest, GeometryStagesNeedTheirExtensionsFunction) {
    const std::string stage = folder.write("through.geom", R"(#version 150
layout(triangles) in;
layout(triangle_strip, max_vertices = 3) out;
void main() {
    for (int i = 0; i < 3; ++i) {
        gl_Position = gl_in[i].gl_Position;
        EmitVertex();
    }
    EndPrimitive();
}
)");
    const auto setParameter = std::exchange(glProgramParameteriEXT, nullptr);
    EXPECT_EQ(GLSLShader::New(vertexFile(), fragmentFile(), stage), nullptr);
    EXPECT_TRUE(
        reports.contains("glProgramParameteriEXT is NULL, cannot create a geometry shader on this hardware. "
                         "Geometry Shader\nwill not be linked...\n"));
    const auto without = GLSLShader::New(vertexFile(), fragmentFile());
    ASSERT_NE(without, nullptr);
    glProgramParameteriEXT = setParameter != nullptr ? setParameter : [](GLuint, GLenum, GLint) {};
    const auto with = GLSLShader::New(vertexFile(), fragmentFile(), stage);
    ASSERT_NE(with, nullptr) << reports.text();
    EXPECT_NE(with->getProgram(), without->getProgram());
    glProgramParameteriEXT = setParameter;
}

TEST_P(ManagerShaderGLTest, AGeometryTypeThatGLDoesNotKnowEndsTheProcess) {
    if (GetParam().isShaderPath()) {
        GTEST_SKIP() << "the same everywhere";
    }
    struct Row {
        GLenum input;
        GLenum output;
        const char* text;
    };
    for (const Row& row :
         {Row{GL_TRIANGLES, GL_TRIANGLES,
              "'GL_TRIANGLE_STRIP'...\n   Invalid output primitive type '4'...\nPress ENTER to exit...\n"},
          Row{GL_TRIANGLE_STRIP, GL_POINTS,
              "'GL_TRIANGLES_ADJACENCY_EXT'...\n   Invalid input primitive type '5'...\nPress ENTER to "
              "exit...\n"}}) {
        EXPECT_EXIT(
            (Tests::reportToErrorOutput(), ManagerShader::loadShader("a", "b", "", row.input, row.output)),
            ::testing::ExitedWithCode(255), row.text);
    }
}

TEST_P(ManagerShaderGLTest, UniformsOfEveryTypeTakeTheirValuesWhateverIsBound) {
    struct Row {
        const char* declaration;
        const char* name;
        GLSLUniformType type;
        int components;
        bool isInteger;
    };
    const std::vector<Row> rows{{"float", "f", utFLOAT, 1, false}, {"int", "i", utINT, 1, true},
                                {"bool", "b", utBOOL, 1, true},    {"vec2", "v2", utVEC2, 2, false},
                                {"vec3", "v3", utVEC3, 3, false},  {"vec4", "v4", utVEC4, 4, false},
                                {"ivec2", "i2", utIVEC2, 2, true}, {"ivec3", "i3", utIVEC3, 3, true},
                                {"ivec4", "i4", utIVEC4, 4, true}, {"bvec2", "b2", utBVEC2, 2, true},
                                {"bvec3", "b3", utBVEC3, 3, true}, {"bvec4", "b4", utBVEC4, 4, true},
                                {"mat2", "m2", utMAT2, 4, false},  {"mat3", "m3", utMAT3, 9, false},
                                {"mat4", "m4", utMAT4, 16, false}};
    std::string declarations;
    for (const Row& row : rows) {
        declarations.append("uniform ").append(row.declaration).append(" ").append(row.name).append(";\n");
    }
    declarations += "uniform sampler2D tex;\nuniform mat3 NormalMat;\n"; // objects send one of 4 by 4
    const std::string body =
        "void main() { RESULT = vec4(f + float(i) + v2.x + v3.z + v4.w + float(i2.y + i3.z + i4.w) + "
        "float(b) + float(b2.y) + float(b3.z) + float(b4.w) + NormalMat[0].x + m2[1].y + m3[2].z + m4[3].w) "
        "+ "
        "SAMPLE(tex, vec2(0.5)); }\n";
    const bool isNew = GetParam().isShaderPath();
    const auto shader = GLSLShader::New(
        vertexFile(),
        folder.write("uniforms.frag",
                     (isNew ? "#version 150\n#define SAMPLE texture\n#define RESULT FragColor\nout vec4 "
                              "FragColor;\n"
                            : "#version 120\n#define SAMPLE texture2D\n#define RESULT gl_FragColor\n") +
                         declarations + body));
    ASSERT_NE(shader, nullptr) << reports.text();
    const auto other = GLSLShader::New(vertexFile(), fragmentFile());
    shader->bind(Mat4(), Mat4(), ShaderCamera(Mat4(), Mat4()), ShaderMaterial{});
    other->bind();

    std::array<float, 16> floats{};
    std::array<std::int32_t, 4> integers{1, 0, 1, 1};
    for (std::size_t i = 0; i < floats.size(); ++i) {
        floats[i] = static_cast<float>(i % 2) - static_cast<float>(i);
    }
    for (const Row& row : rows) {
        GLSLUniform uniform(row.name, row.type, shader->getProgram());
        ASSERT_GE(uniform.getLocation(), 0) << row.name;
        uniform.setFloats(floats.data());
        std::array<float, 16> readBack{};
        glGetUniformfv(shader->getProgram(), uniform.getLocation(), readBack.data());
        for (std::size_t i = 0; i < static_cast<std::size_t>(row.components); ++i) {
            const bool isTruth = row.name[0] == 'b';
            EXPECT_EQ(readBack[i], isTruth ? static_cast<float>(floats[i] != 0.0F) : floats[i])
                << row.name << i;
        }
        reports.clear();
        uniform.setInts(integers.data());
        EXPECT_EQ(reports.contains("Attempting to set integer values to non-integer type uniform!\n"),
                  !row.isInteger);
        if (row.isInteger) {
            std::array<GLint, 4> read{};
            glGetUniformiv(shader->getProgram(), uniform.getLocation(), read.data());
            EXPECT_TRUE(std::equal(read.begin(), read.begin() + row.components, integers.begin()))
                << row.name;
        }
        uniform.setInt(7); // for samplers alone
    }
    float f = 0.0F;
    glGetUniformfv(shader->getProgram(), GLSLUniform("f", utFLOAT, shader->getProgram()).getLocation(), &f);
    EXPECT_EQ(f, floats[0]);
    GLSLUniform sampler("tex", utSAMPLER2D, shader->getProgram());
    sampler.setInt(3);
    sampler.setFloats(floats.data());
    GLint unit = 0;
    glGetUniformiv(shader->getProgram(), sampler.getLocation(), &unit);
    EXPECT_EQ(unit, 3);

    GLint bound = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &bound);
    EXPECT_EQ(static_cast<GLuint>(bound), other->getProgram());
    other->unbind();
}

TEST_P(ManagerShaderGLTest, AUniformWithoutANameOrAProgramIsReported) {
    const auto shader = GLSLShader::New(vertexFile(), fragmentFile());
    GLSLUniform absent("absent", utFLOAT, shader->getProgram());
    absent.setFloat(1.0F);
    absent.updateUniformGLIDfromStringName();
    EXPECT_FALSE(reports.contains("ERROR: GLSLUniform"));
    GLSLUniform nameless("", utFLOAT, shader->getProgram());
    nameless.updateUniformGLIDfromStringName();
    EXPECT_TRUE(reports.contains("ERROR: GLSLUniform::updateUniformGLIDfromStringName()...\n"
                                 "Invalid ProgramShaderHandle or invalid uniform name...\n"));
}

/** Where the driver puts the members of a block. */
std::vector<GLint> offsetsInBlock(GLuint program, const std::vector<const char*>& members) {
    std::vector<GLuint> indices(members.size());
    glGetUniformIndices(program, static_cast<GLsizei>(members.size()), members.data(), indices.data());
    std::vector<GLint> offsets(members.size());
    glGetActiveUniformsiv(program, static_cast<GLsizei>(members.size()), indices.data(), GL_UNIFORM_OFFSET,
                          offsets.data());
    return offsets;
}

template <class Block>
void expectBlockIsAsDeclared(const GLSLShader& shader) {
    const GLSLUniformBlockT<Block> block;
    for (const GLSLUniformBlockBinding& binding : shader.getUniformBlocks()) {
        if (binding.name == Block::name) {
            GLint driversSize = 0;
            GLint driversPoint = -1;
            GLint bufferSize = 0;
            const auto index = static_cast<GLuint>(binding.blockIndex);
            glGetActiveUniformBlockiv(shader.getProgram(), index, GL_UNIFORM_BLOCK_DATA_SIZE, &driversSize);
            glGetActiveUniformBlockiv(shader.getProgram(), index, GL_UNIFORM_BLOCK_BINDING, &driversPoint);
            glBindBuffer(GL_UNIFORM_BUFFER, block.getBuffer());
            glGetBufferParameteriv(GL_UNIFORM_BUFFER, GL_BUFFER_SIZE, &bufferSize);
            glBindBuffer(GL_UNIFORM_BUFFER, 0);
            EXPECT_EQ(driversPoint, static_cast<GLint>(Block::bindingPoint));
            EXPECT_GE(driversSize, static_cast<GLint>(sizeof(Block)));
            EXPECT_GE(bufferSize, driversSize);
            return;
        }
    }
    ADD_FAILURE() << "no block " << Block::name;
}

TEST_P(ShaderPathGLTest, TheDriverLaysTheBlocksOutAsTheStructuresAre) {
    const auto shader = ManagerShader::getDefaultShader();
    expectBlockIsAsDeclared<GLSLUniformBlockCameraTransforms>(*shader);
    expectBlockIsAsDeclared<GLSLUniformBlockLightInfo>(*shader);
    using Camera = GLSLUniformBlockCameraTransforms;
    EXPECT_EQ(offsetsInBlock(shader->getProgram(), {"ViewMat", "ProjectionMat", "ShadowMat", "PassMode"}),
              (std::vector<GLint>{0, offsetof(Camera, projection), offsetof(Camera, shadow),
                                  offsetof(Camera, passMode)}));
    using Lights = GLSLUniformBlockLightInfo;
    EXPECT_EQ(offsetsInBlock(shader->getProgram(),
                             {"LightPosition[0]", "LightColor[0]", "GlobalAmbient", "NumLights"}),
              (std::vector<GLint>{0, offsetof(Lights, color), offsetof(Lights, globalAmbient),
                                  offsetof(Lights, numLights)}));
}

TEST_P(ManagerShaderGLTest, BlocksThatAProgramLacksAreNoted) {
    reports.clear();
    const auto shader = GLSLShader::New(vertexFile(), fragmentFile());
    for (const char* block : {"CameraTransforms", "LightInfo"}) {
        EXPECT_EQ(reports.contains("Shader does NOT contain and is NOT using \"" + std::string(block) +
                                   "\" Uniform Block...\n"),
                  GetParam().isShaderPath());
    }
    EXPECT_TRUE(shader->getUniformBlocks().empty());
}

INSTANTIATE_TEST_SUITE_P(Contexts, ManagerShaderGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);
INSTANTIATE_TEST_SUITE_P(Contexts, ShaderPathGLTest, Tests::everyShaderContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
