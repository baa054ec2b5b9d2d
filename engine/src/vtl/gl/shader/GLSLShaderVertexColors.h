#pragma once

#include "vtl/gl/shader/GLSLShader.h"
#include "vtl/gl/shader/SharedShader.h"

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

/** Lines of bounding boxes. */
class GLSLShaderDefaultBoundingBoxLinesGL32 : public GLSLShaderVertexColors {
public:
    static constexpr const char* vertexFile = "shaders/defaultBoundingBoxLinesGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultBoundingBoxLinesGL32.frag";
    static auto New() { return newSharedShader<GLSLShaderDefaultBoundingBoxLinesGL32>(); }
    explicit GLSLShaderDefaultBoundingBoxLinesGL32(const GLSLShaderDataShared* data)
        : GLSLShaderVertexColors(data, "MVPMat") {}
    std::unique_ptr<GLSLShader> clone() const override {
        return std::make_unique<GLSLShaderDefaultBoundingBoxLinesGL32>(*this);
    }
};

/** The loading screen. */
class GLSLShaderDefaultLoadingScreenGL32 : public GLSLShaderVertexColors {
public:
    static constexpr const char* vertexFile = "shaders/loadingScreenGL4.vert";
    static constexpr const char* fragmentFile = "shaders/loadingScreenGL4.frag";
    static auto New() { return newSharedShader<GLSLShaderDefaultLoadingScreenGL32>(); }
    explicit GLSLShaderDefaultLoadingScreenGL32(const GLSLShaderDataShared* data)
        : GLSLShaderVertexColors(data, "MVPMatrix") {}
    std::unique_ptr<GLSLShader> clone() const override {
        return std::make_unique<GLSLShaderDefaultLoadingScreenGL32>(*this);
    }
};

/** Axes and other computed lines. */
class GLSLShaderDefaultIndexedGeometryLinesGL32 : public GLSLShaderVertexColors {
public:
    static constexpr const char* vertexFile = "shaders/IndexedGeometryAxesGL4.vert";
    static constexpr const char* fragmentFile = "shaders/IndexedGeometryAxesGL4.frag";
    static auto New() { return newSharedShader<GLSLShaderDefaultIndexedGeometryLinesGL32>(); }
    explicit GLSLShaderDefaultIndexedGeometryLinesGL32(const GLSLShaderDataShared* data)
        : GLSLShaderVertexColors(data, "MVPMatrix") {}
    std::unique_ptr<GLSLShader> clone() const override {
        return std::make_unique<GLSLShaderDefaultIndexedGeometryLinesGL32>(*this);
    }
};

/** Shapes that mark the stencil for widgets. */
class GLSLShaderDefaultOrthoStencilGL32 : public GLSLShaderVertexColors {
public:
    static constexpr const char* vertexFile = "shaders/defaultOrthoStencilGL32.vert";
    static constexpr const char* fragmentFile = "shaders/defaultOrthoStencilGL32.frag";
    static auto New() { return newSharedShader<GLSLShaderDefaultOrthoStencilGL32>(); }
    explicit GLSLShaderDefaultOrthoStencilGL32(const GLSLShaderDataShared* data)
        : GLSLShaderVertexColors(data, "MVPMat") {}
    std::unique_ptr<GLSLShader> clone() const override {
        return std::make_unique<GLSLShaderDefaultOrthoStencilGL32>(*this);
    }
};

} // namespace Vantrel
