#pragma once

#include "vtl/gl/shader/GLSLShaderDataShared.h"
#include "vtl/gl/shader/GLSLShaderDefaultGL32.h"
#include "vtl/gl/shader/GLSLShaderDefaultSelectionGL32.h"
#include "vtl/gl/shader/GLSLShaderVertexColors.h"

#include <GL/glew.h>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace Vantrel {

/**
 * Keeps every program of the process, one for each set of files, and the engine's own shaders, with which it
 * draws from 3.2 on. A program isn't read again while the process runs. Main thread.
 */
class ManagerShader {
public:
    /**
     * From 3.2 on loads the default shaders; one that fails ends the process after a key, because nothing
     * could be drawn. Below 3.2 there are none, which is reported unless the window-less mode is on.
     */
    static void init();
    /** Deletes all programs; the context must still be there. */
    static void shutdown();

    /**
     * The program of these files, compiled and linked unless it has been before; null when that fails, which
     * is reported and costs a pause for each failure. A geometry type that GL doesn't know ends the process
     * after a key, whether there is a geometry stage or not.
     */
    static const GLSLShaderDataShared*
    loadShader(const std::string& vertexFile, const std::string& fragmentFile,
               const std::string& geometryFile = {}, GLenum geometryInputType = GL_TRIANGLES,
               GLenum geometryOutputType = GL_TRIANGLE_STRIP, std::uint32_t geometryMaxVerticesOut = 3,
               const std::string& computeFile = {});

    /** Binds a program unless it is bound already. Everybody binds programs by this and nothing else. */
    static void useProgram(std::uint32_t program);
    /** The program last bound. */
    static std::uint32_t getCurrentProgram() { return state.currentProgram; }

    /** A copy of the default shader of meshes; null below 3.2. */
    static std::unique_ptr<GLSLShader> getDefaultShader();
    /** The others are shared by all who draw with them; null below 3.2. */
    static GLSLShaderDefaultSelectionGL32* getDefaultSelectionShader() {
        return state.defaultSelectionShader.get();
    }
    static GLSLShaderDefaultLoadingScreenGL32* getDefaultLoadingScreenShader() {
        return state.defaultLoadingScreenShader.get();
    }
    static GLSLShaderDefaultIndexedGeometryLinesGL32* getDefaultIndexedGeometryLinesShader() {
        return state.defaultIndexedGeometryLinesShader.get();
    }
    static GLSLShaderDefaultBoundingBoxLinesGL32* getDefaultBoundingBoxLinesShader() {
        return state.defaultBoundingBoxLinesShader.get();
    }
    static GLSLShaderDefaultOrthoStencilGL32* getDefaultOrthoStencilShader() {
        return state.defaultOrthoStencilShader.get();
    }

private:
    struct State {
        std::uint32_t currentProgram = 0;
        std::map<GLSLShaderFiles, std::unique_ptr<GLSLShaderDataShared>> shaderData;
        std::unique_ptr<GLSLShaderDefaultGL32> defaultShader;
        std::unique_ptr<GLSLShaderDefaultSelectionGL32> defaultSelectionShader;
        std::unique_ptr<GLSLShaderDefaultLoadingScreenGL32> defaultLoadingScreenShader;
        std::unique_ptr<GLSLShaderDefaultIndexedGeometryLinesGL32> defaultIndexedGeometryLinesShader;
        std::unique_ptr<GLSLShaderDefaultBoundingBoxLinesGL32> defaultBoundingBoxLinesShader;
        std::unique_ptr<GLSLShaderDefaultOrthoStencilGL32> defaultOrthoStencilShader;
    };

    static void loadDefaultShaders();

    static State state;
};

} // namespace Vantrel
