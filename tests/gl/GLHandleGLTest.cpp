#include "vtl/gl/GLHandle.h"

#include "tests/support/GLContextFixture.h"

#include <gtest/gtest.h>

namespace Vantrel {
namespace {

using GLHandleGLTest = Tests::GLContextFixture;

/** Binds and so makes the object behind the name. */
GLuint bindBuffer(const GLBuffer& buffer) {
    glBindBuffer(GL_ARRAY_BUFFER, buffer.get());
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    return buffer.get();
}

TEST_P(GLHandleGLTest, DeletesItsNameOnce) {
    GLuint name = 0;
    {
        GLBuffer buffer = GLBuffer::create();
        name = bindBuffer(buffer);
        GLBuffer moved = std::move(buffer);
        EXPECT_EQ(moved.get(), name);
        EXPECT_FALSE(buffer);
        moved = std::move(moved);
        EXPECT_TRUE(glIsBuffer(name));
        buffer = std::move(moved);
        EXPECT_TRUE(glIsBuffer(name));
        const GLuint other = bindBuffer(moved = GLBuffer::create());
        moved = GLBuffer();
        EXPECT_FALSE(glIsBuffer(other));
    }
    EXPECT_FALSE(glIsBuffer(name));
}

TEST_P(GLHandleGLTest, MakesEachKind) {
    GLuint shaderName = 0;
    GLuint programName = 0;
    {
        const GLShader shader = GLShader::create(static_cast<GLenum>(GL_FRAGMENT_SHADER));
        const GLProgram program = GLProgram::create();
        const GLTexture texture = GLTexture::create();
        const GLVertexArray vertexArray = GLVertexArray::create();
        shaderName = shader.get();
        programName = program.get();
        EXPECT_TRUE(glIsShader(shaderName));
        EXPECT_TRUE(glIsProgram(programName));
        EXPECT_TRUE(texture);
        EXPECT_TRUE(vertexArray);
        EXPECT_TRUE(GLQuery::create());
        EXPECT_TRUE(GLFramebuffer::create());
        EXPECT_TRUE(GLRenderbuffer::create());
    }
    EXPECT_FALSE(glIsShader(shaderName));
    EXPECT_FALSE(glIsProgram(programName));
}

TEST_P(GLHandleGLTest, LeavesTheNamesOfALaterContextAlone) {
    GLBuffer early = GLBuffer::create();
    bindBuffer(early);
    Tests::stopGL();
    Tests::startGL(GetParam());
    const GLBuffer late = GLBuffer::create();
    ASSERT_EQ(bindBuffer(late), early.get());
    early.reset();
    EXPECT_FALSE(early);
    EXPECT_TRUE(glIsBuffer(late.get()));
}

TEST_P(GLHandleGLTest, IsEmptyWhereTheDriverLacksTheKind) {
    glGenVertexArrays = nullptr;
    EXPECT_FALSE(GLVertexArray::create());
}

INSTANTIATE_TEST_SUITE_P(Contexts, GLHandleGLTest, Tests::everyGLContext(), Tests::nameOfGLContext);

} // namespace
} // namespace Vantrel
