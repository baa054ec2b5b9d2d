#pragma once

#include "vtl/gl/shader/GLSLShaderOfFiles.h"

namespace Vantrel {

/** Draws with the colours of the vertices and nothing else: attributes "VertexPosition" and "VertexColor". */
class GLSLShaderVertexColors : public GLSLShader {
public:
    using GLSLShader::bind;
    /** Model space to clip space. */
    void bind(const Mat4& mvp) {
        bind();
        setMVPMatrix(mvp);
    }
    /** Without binding. */
    void setMVPMatrix(const Mat4& mvp) { uniforms[mvpMatrix].setFloats(mvp.m.data()); }

protected:
    /** `matrixName`: what the files call the matrix. */
    GLSLShaderVertexColors(const GLSLShaderDataShared* data, const char* matrixName) : GLSLShader(data) {
        addAttribute("VertexPosition", atVEC3);
        addAttribute("VertexColor", atVEC4);
        addUniform(matrixName, utMAT4);
    }

private:
    enum UniformPosition : std::size_t { mvpMatrix };
};

/** The same on the files that `Files` names, together with what they call the matrix. */
template <class Files>
class GLSLShaderVertexColorsOf
    : public GLSLShaderOfFiles<GLSLShaderVertexColorsOf<Files>, GLSLShaderVertexColors>,
      public Files {
public:
    explicit GLSLShaderVertexColorsOf(const GLSLShaderDataShared* data)
        : GLSLShaderOfFiles<GLSLShaderVertexColorsOf<Files>, GLSLShaderVertexColors>(data,
                                                                                     Files::matrixName) {}
};

struct BoundingBoxLinesFiles {
    static constexpr const char* vertexFile = "shaders/defaultBoundingBoxLinesGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultBoundingBoxLinesGL32.frag";
    static constexpr const char* matrixName = "MVPMat";
};

struct LoadingScreenFiles {
    static constexpr const char* vertexFile = "shaders/loadingScreenGL4.vert";
    static constexpr const char* fragmentFile = "shaders/loadingScreenGL4.frag";
    static constexpr const char* matrixName = "MVPMatrix";
};

struct IndexedGeometryLinesFiles {
    static constexpr const char* vertexFile = "shaders/IndexedGeometryAxesGL4.vert";
    static constexpr const char* fragmentFile = "shaders/IndexedGeometryAxesGL4.frag";
    static constexpr const char* matrixName = "MVPMatrix";
};

struct OrthoStencilFiles {
    static constexpr const char* vertexFile = "shaders/defaultOrthoStencilGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultOrthoStencilGL32.frag";
    static constexpr const char* matrixName = "MVPMat";
};

/** Lines of bounding boxes and normals. */
using GLSLShaderDefaultBoundingBoxLinesGL32 = GLSLShaderVertexColorsOf<BoundingBoxLinesFiles>;
/** The loading screen. */
using GLSLShaderDefaultLoadingScreenGL32 = GLSLShaderVertexColorsOf<LoadingScreenFiles>;
/** Axes and other computed lines. */
using GLSLShaderDefaultIndexedGeometryLinesGL32 = GLSLShaderVertexColorsOf<IndexedGeometryLinesFiles>;
/** Shapes that mark the stencil for widgets. */
using GLSLShaderDefaultOrthoStencilGL32 = GLSLShaderVertexColorsOf<OrthoStencilFiles>;

} // namespace Vantrel
