#pragma once

#include "vtl/gl/ManagerWindowing.h"
#include "vtl/gl/framebuffer/FramebufferFunctions.h"

#include <GL/glew.h>
#include <cstdint>
#include <utility>

namespace Vantrel {

/**
 * Owns one GL name and deletes it. Empty where there is no context or the driver lacks the kind. A handle
 * that outlives the context of its name deletes nothing: GL has done so, and the number may by now name
 * something else.
 */
template <class Kind>
class GLHandle {
public:
    /** Empty. */
    GLHandle() = default;

    /** A new name; a shader takes its stage (GL_VERTEX_SHADER, ...) as the argument. */
    template <class... Arguments>
    static GLHandle create(Arguments... arguments) {
        GLHandle handle;
        if (ManagerWindowing::hasContext() && Kind::isSupported()) {
            handle.name = Kind::create(arguments...);
            handle.generation = ManagerWindowing::getContextGeneration();
        }
        return handle;
    }

    GLHandle(const GLHandle&) = delete;
    GLHandle& operator=(const GLHandle&) = delete;
    GLHandle(GLHandle&& other) noexcept
        : name(std::exchange(other.name, 0)), generation(std::exchange(other.generation, 0)) {}
    GLHandle& operator=(GLHandle&& other) noexcept {
        GLHandle taken(std::move(other));
        std::swap(name, taken.name);
        std::swap(generation, taken.generation);
        return *this;
    }
    ~GLHandle() { reset(); }

    /** The name; 0 when empty. */
    GLuint get() const { return name; }
    explicit operator bool() const { return name != 0; }

    /** Deletes the name and leaves the handle empty. */
    void reset() {
        if (name != 0 && generation == ManagerWindowing::getContextGeneration()) {
            Kind::destroy(name);
        }
        name = 0;
        generation = 0;
    }

private:
    GLuint name = 0;
    std::uint32_t generation = 0;
};

struct GLBufferKind {
    static bool isSupported() { return glGenBuffers != nullptr; }
    static GLuint create() {
        GLuint name = 0;
        glGenBuffers(1, &name);
        return name;
    }
    static void destroy(GLuint name) { glDeleteBuffers(1, &name); }
};

struct GLVertexArrayKind {
    static bool isSupported() { return glGenVertexArrays != nullptr; }
    static GLuint create() {
        GLuint name = 0;
        glGenVertexArrays(1, &name);
        return name;
    }
    static void destroy(GLuint name) { glDeleteVertexArrays(1, &name); }
};

struct GLTextureKind {
    static bool isSupported() { return true; }
    static GLuint create() {
        GLuint name = 0;
        glGenTextures(1, &name);
        return name;
    }
    static void destroy(GLuint name) { glDeleteTextures(1, &name); }
};

struct GLShaderKind {
    static bool isSupported() { return glCreateShader != nullptr; }
    static GLuint create(GLenum stage) { return glCreateShader(stage); }
    static void destroy(GLuint name) { glDeleteShader(name); }
};

struct GLProgramKind {
    static bool isSupported() { return glCreateProgram != nullptr; }
    static GLuint create() { return glCreateProgram(); }
    static void destroy(GLuint name) { glDeleteProgram(name); }
};

struct GLFramebufferKind {
    static bool isSupported() { return FramebufferFunctions::ofContext().genFramebuffers != nullptr; }
    static GLuint create() {
        GLuint name = 0;
        FramebufferFunctions::ofContext().genFramebuffers(1, &name);
        return name;
    }
    static void destroy(GLuint name) { FramebufferFunctions::ofContext().deleteFramebuffers(1, &name); }
};

struct GLRenderbufferKind {
    static bool isSupported() { return FramebufferFunctions::ofContext().genRenderbuffers != nullptr; }
    static GLuint create() {
        GLuint name = 0;
        FramebufferFunctions::ofContext().genRenderbuffers(1, &name);
        return name;
    }
    static void destroy(GLuint name) { FramebufferFunctions::ofContext().deleteRenderbuffers(1, &name); }
};

struct GLQueryKind {
    static bool isSupported() { return glGenQueries != nullptr; }
    static GLuint create() {
        GLuint name = 0;
        glGenQueries(1, &name);
        return name;
    }
    static void destroy(GLuint name) { glDeleteQueries(1, &name); }
};

using GLBuffer = GLHandle<GLBufferKind>;
using GLVertexArray = GLHandle<GLVertexArrayKind>;
using GLTexture = GLHandle<GLTextureKind>;
using GLShader = GLHandle<GLShaderKind>;
using GLProgram = GLHandle<GLProgramKind>;
using GLFramebuffer = GLHandle<GLFramebufferKind>;
using GLRenderbuffer = GLHandle<GLRenderbufferKind>;
using GLQuery = GLHandle<GLQueryKind>;

} // namespace Vantrel
