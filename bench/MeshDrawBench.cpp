#include "tests/support/GLContextFixture.h"
#include "vtl/gl/shader/GLSLShaderDataShared.h"
#include "vtl/mesh/ModelMeshDataShared.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>
#include <tuple>
#include <utility>
#include <vector>

// What submitting a frame of many small meshes costs the processor. With GALLIUM_NOOP=1, which is the default
// here, Mesa takes everything and draws nothing.

namespace Vantrel {
namespace {

constexpr std::size_t meshCount = 10000;

struct PlacedMesh {
    std::unique_ptr<ModelMeshDataShared> mesh;
    ModelMeshSkin skin;
    Mat4 modelMatrix;
    Mat4 normalMatrix;
};

std::unique_ptr<ModelMeshRenderDataGenerator> cube() {
    auto mesh = std::make_unique<ModelMeshRenderDataGenerator>();
    for (unsigned i = 0; i < 8; ++i) {
        mesh->vertices.emplace_back(i & 1U ? 1.0F : -1.0F, i & 2U ? 1.0F : -1.0F, i & 4U ? 1.0F : -1.0F);
    }
    mesh->indices = {0, 2, 3, 0, 3, 1, 4, 5, 7, 4, 7, 6, 0, 1, 5, 0, 5, 4,
                     2, 6, 7, 2, 7, 3, 0, 4, 6, 0, 6, 2, 1, 3, 7, 1, 7, 5};
    mesh->textureCoordSets.push_back({.coords = mesh->vertices, .target = GL_TEXTURE_2D});
    return mesh;
}

/** A context of that version with 10,000 cubes in it, each with a skin and a place of its own. */
class DrawBench {
public:
    explicit DrawBench(const Tests::GLContextRow& context) {
        start(context);
        for (std::size_t i = 0; i < meshCount; ++i) {
            PlacedMesh& placed = meshes.emplace_back();
            placed.mesh = std::make_unique<ModelMeshDataShared>(cube());
            placed.skin.shadingType = MESH_SHADING_TYPE::mstFLAT;
            placed.modelMatrix[12] = static_cast<float>(i);
            placed.mesh->generateRenderData(placed.skin.shadingType, placed.skin.renderType, GL_TRIANGLES);
        }
    }
    DrawBench(const DrawBench&) = delete;
    DrawBench& operator=(const DrawBench&) = delete;
    ~DrawBench() {
        meshes.clear();
        Tests::stopGL();
    }

    template <class Draw>
    void run(benchmark::State& state, Draw draw) {
        for ([[maybe_unused]] auto round : state) {
            for (PlacedMesh& placed : meshes) {
                draw(placed);
            }
            glFlush();
        }
        state.counters["per_mesh"] =
            benchmark::Counter(static_cast<double>(meshCount),
                               benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    }

    void drawOurs(PlacedMesh& placed) const {
        const ModelMeshMatrices matrices{placed.modelMatrix, placed.normalMatrix, camera};
        placed.skin.bind(&matrices);
        placed.mesh->render(placed.skin);
        placed.skin.unbind();
    }

private:
    static void start(const Tests::GLContextRow& context) {
        setenv("SDL_VIDEODRIVER", "offscreen", 0);
        setenv("GALLIUM_NOOP", "1", 0);
        Reports::open([](std::string_view) {});
        Tests::startGL(context);
        ManagerTexture::init();
    }

    ShaderCamera camera{Mat4(), Mat4()};
    std::vector<PlacedMesh> meshes;
};

/** What the shader path tells GL for a mesh, and nothing beside it. */
void drawBareWithShader(PlacedMesh& placed) {
    const GLSLShaderDataShared& program = *placed.skin.shader->getShaderData();
    const GLSLObjectUniforms& uniforms = program.getObjectUniforms();
    const ModelMeshRenderData& data = *placed.mesh->getRenderData(MESH_SHADING_TYPE::mstFLAT, GL_TRIANGLES);
    glUseProgram(program.getProgram());
    for (const GLint matrix :
         {uniforms.modelMatrix, uniforms.normalMatrix, uniforms.mvpMatrix, uniforms.textureMatrix}) {
        glUniformMatrix4fv(matrix, 1, GL_FALSE, placed.modelMatrix.m.data());
    }
    for (const GLint color : {uniforms.ambient, uniforms.diffuse, uniforms.specular}) {
        glUniform4fv(color, 1, placed.modelMatrix.m.data());
    }
    glUniform1f(uniforms.specularCoefficient, 1000);
    glBindTexture(GL_TEXTURE_2D, placed.skin.textures[0]->getGLHandle());
    glVertexAttrib4f(3, 1, 1, 1, 1);
    glBindVertexArray(data.vertexArrayObject.get());
    glDrawRangeElements(GL_TRIANGLES, 0, data.numVertices, static_cast<GLsizei>(data.numIndices),
                        data.indexType, nullptr);
    glBindVertexArray(0);
    glUseProgram(0);
}

/** The same for the fixed-function path. */
void drawBareFixedFunction(PlacedMesh& placed) {
    const ModelMeshRenderData& data = *placed.mesh->getRenderData(MESH_SHADING_TYPE::mstFLAT, GL_TRIANGLES);
    const auto stride = static_cast<GLsizei>(data.stride);
    glEnable(GL_COLOR_MATERIAL);
    glColorMaterial(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE);
    glColor4fv(&placed.skin.color.r);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, &placed.skin.specular.r);
    glMaterialf(GL_FRONT_AND_BACK, GL_SHININESS, 128);
    glBindBuffer(GL_ARRAY_BUFFER, data.VBOVtx.get());
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, data.VBOIdx.get());
    glEnableClientState(GL_VERTEX_ARRAY);
    glVertexPointer(3, GL_FLOAT, stride, nullptr);
    glEnableClientState(GL_NORMAL_ARRAY);
    glNormalPointer(GL_FLOAT, stride, reinterpret_cast<const void*>(std::uintptr_t{data.normalOffset}));
    glDrawRangeElements(GL_TRIANGLES, 0, data.numVertices, static_cast<GLsizei>(data.numIndices),
                        data.indexType, nullptr);
    glDisableClientState(GL_NORMAL_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
}

/** Takes the driver's work out of what is measured, as far as its functions are called through pointers. */
class DriverDoesNothing {
public:
    DriverDoesNothing()
        : before(glUseProgram, glUniformMatrix4fv, glUniform4fv, glUniform1f, glVertexAttrib4f,
                 glBindVertexArray, glDrawRangeElements) {
        glUseProgram = [](GLuint) {};
        glUniformMatrix4fv = [](GLint, GLsizei, GLboolean, const GLfloat*) {};
        glUniform4fv = [](GLint, GLsizei, const GLfloat*) {};
        glUniform1f = [](GLint, GLfloat) {};
        glVertexAttrib4f = [](GLuint, GLfloat, GLfloat, GLfloat, GLfloat) {};
        glBindVertexArray = [](GLuint) {};
        glDrawRangeElements = [](GLenum, GLuint, GLuint, GLsizei, GLenum, const void*) {};
    }
    DriverDoesNothing(const DriverDoesNothing&) = delete;
    DriverDoesNothing& operator=(const DriverDoesNothing&) = delete;
    ~DriverDoesNothing() {
        std::tie(glUseProgram, glUniformMatrix4fv, glUniform4fv, glUniform1f, glVertexAttrib4f,
                 glBindVertexArray, glDrawRangeElements) = before;
    }

private:
    std::tuple<PFNGLUSEPROGRAMPROC, PFNGLUNIFORMMATRIX4FVPROC, PFNGLUNIFORM4FVPROC, PFNGLUNIFORM1FPROC,
               PFNGLVERTEXATTRIB4FPROC, PFNGLBINDVERTEXARRAYPROC, PFNGLDRAWRANGEELEMENTSPROC>
        before;
};

void oursWithShader(benchmark::State& state) {
    DrawBench bench({4, 5, "core"});
    bench.run(state, [&](PlacedMesh& placed) { bench.drawOurs(placed); });
}

void oursWithShaderWithoutDriver(benchmark::State& state) {
    DrawBench bench({4, 5, "core"});
    const DriverDoesNothing idle;
    bench.run(state, [&](PlacedMesh& placed) { bench.drawOurs(placed); });
}

/** As while a person debugs: GL is asked for errors around every step of a draw. */
void oursWithShaderAskingForErrors(benchmark::State& state) {
    DrawBench bench({4, 5, "core"});
    areGLErrorsOfDrawsChecked = true;
    bench.run(state, [&](PlacedMesh& placed) { bench.drawOurs(placed); });
}

void bareWithShader(benchmark::State& state) {
    DrawBench bench({4, 5, "core"});
    bench.run(state, drawBareWithShader);
}

void oursFixedFunction(benchmark::State& state) {
    DrawBench bench(Tests::fixedFunctionContext);
    bench.run(state, [&](PlacedMesh& placed) { bench.drawOurs(placed); });
}

void bareFixedFunction(benchmark::State& state) {
    DrawBench bench(Tests::fixedFunctionContext);
    bench.run(state, drawBareFixedFunction);
}

BENCHMARK(oursWithShader)->Unit(benchmark::kMillisecond);
BENCHMARK(oursWithShaderWithoutDriver)->Unit(benchmark::kMillisecond);
BENCHMARK(oursWithShaderAskingForErrors)->Unit(benchmark::kMillisecond);
BENCHMARK(bareWithShader)->Unit(benchmark::kMillisecond);
BENCHMARK(oursFixedFunction)->Unit(benchmark::kMillisecond);
BENCHMARK(bareFixedFunction)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace Vantrel
