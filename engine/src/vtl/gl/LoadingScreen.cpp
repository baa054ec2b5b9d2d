#include "vtl/gl/LoadingScreen.h"

#include "vtl/base/Report.h"
#include "vtl/gl/GLEntryPoints.h"
#include "vtl/gl/ManagerOpenGLState.h"
#include "vtl/gl/ScopedMatrix.h"
#include "vtl/math/MatrixBuilders.h"

#include <cstddef>

namespace Vantrel {
namespace {

constexpr GLuint positionLocation = 0;
constexpr GLuint colorLocation = 1;

constexpr const char* vertexShaderSource = R"(#version 150
uniform mat4 MVPMatrix;
in vec3 VertexPosition;
in vec3 VertexColor;
out vec3 color;
void main() {
    color = VertexColor;
    gl_Position = MVPMatrix * vec4(VertexPosition, 1.0);
}
)";

constexpr const char* fragmentShaderSource = R"(#version 150
in vec3 color;
out vec4 FragColor;
void main() {
    FragColor = vec4(color, 1.0);
}
)";

/** Empty when the stage doesn't compile. */
GLShader compileShader(GLenum stage, const char* source) {
    GLShader shader = GLShader::create(stage);
    glShaderSource(shader.get(), 1, &source, nullptr);
    glCompileShader(shader.get());
    GLint isCompiled = GL_FALSE;
    glGetShaderiv(shader.get(), GL_COMPILE_STATUS, &isCompiled);
    return isCompiled == GL_TRUE ? std::move(shader) : GLShader();
}

/** Empty when the two stages don't make a program. */
GLProgram linkProgram(const GLShader& vertexShader, const GLShader& fragmentShader) {
    GLProgram program = GLProgram::create();
    glAttachShader(program.get(), vertexShader.get());
    glAttachShader(program.get(), fragmentShader.get());
    glBindAttribLocation(program.get(), positionLocation, "VertexPosition");
    glBindAttribLocation(program.get(), colorLocation, "VertexColor");
    glLinkProgram(program.get());
    GLint isLinked = GL_FALSE;
    glGetProgramiv(program.get(), GL_LINK_STATUS, &isLinked);
    return isLinked == GL_TRUE ? std::move(program) : GLProgram();
}

} // namespace

LoadingScreen::LoadingScreen() {
    if (!ManagerWindowing::hasContext() || !areGL21EntryPointsLoaded()) {
        return;
    }
    if (!ManagerOpenGLState::isVersion32OrGreater()) {
        drawable = ManagerOpenGLState::isCompatibilityProfile();
        return;
    }
    buildProgram();
    vertexArray = GLVertexArray::create();
    vertexBuffer = GLBuffer::create();
    drawable = program && vertexArray && vertexBuffer;
}

void LoadingScreen::buildProgram() {
    const GLShader vertexShader = compileShader(GL_VERTEX_SHADER, vertexShaderSource);
    const GLShader fragmentShader = compileShader(GL_FRAGMENT_SHADER, fragmentShaderSource);
    if (vertexShader && fragmentShader) {
        program = linkProgram(vertexShader, fragmentShader);
    }
    if (!program) {
        Report() << "WARNING: the program of the loading screen can't be built...\n";
    }
}

void LoadingScreen::drawPicture() const {
    constexpr float half = 1.95F * 0.5F;
    Picture picture{.projection = {},
                    .view = {},
                    .corners = {{
                        {{0.0F, half, half}, {0.0F, 1.0F, 0.0F}},
                        {{0.0F, -half, half}, {1.0F, 0.0F, 0.0F}},
                        {{0.0F, -half, -half}, {0.0F, 0.0F, 0.0F}},
                        {{0.0F, half, -half}, {0.0F, 0.0F, 1.0F}},
                    }}};
    buildOrthographic(-1.0F, 1.0F, -1.0F, 1.0F, 0.1F, 10.0F, picture.projection);
    buildLookAt(Vector(5.0F, 0.0F, 0.0F), Vector(), Vector(0.0F, 0.0F, 1.0F), picture.view);
    draw(picture);
}

void LoadingScreen::drawEyePicture(const Color& color) const {
    Picture picture{.projection = {},
                    .view = {},
                    .corners = {{
                        {{1.0F, 1.0F, 0.0F}, color},
                        {{-1.0F, 1.0F, 0.0F}, color},
                        {{-1.0F, -1.0F, 0.0F}, color},
                        {{1.0F, -1.0F, 0.0F}, color},
                    }}};
    buildOrthographic(0.0F, 1.0F, 0.0F, 1.0F, -1.0F, 1.0F, picture.projection);
    draw(picture);
}

void LoadingScreen::draw(const Picture& picture) const {
    if (!drawable) {
        return;
    }
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (ManagerOpenGLState::isVersion32OrGreater()) {
        drawWithShader(picture);
    } else {
        drawFixedFunction(picture);
    }
}

void LoadingScreen::drawWithShader(const Picture& picture) const {
    const Mat4 transform = picture.projection * picture.view;
    const auto* const colorOffset = reinterpret_cast<const void*>(offsetof(Corner, color));
    constexpr GLint componentCount = 3;
    constexpr GLsizei stride = sizeof(Corner);

    glUseProgram(program.get());
    glBindVertexArray(vertexArray.get());
    glBindBuffer(GL_ARRAY_BUFFER, vertexBuffer.get());

    glUniformMatrix4fv(glGetUniformLocation(program.get(), "MVPMatrix"), 1, GL_FALSE, transform.m.data());
    glBufferData(GL_ARRAY_BUFFER, sizeof(picture.corners), picture.corners.data(), GL_STREAM_DRAW);
    glEnableVertexAttribArray(positionLocation);
    glEnableVertexAttribArray(colorLocation);
    glVertexAttribPointer(positionLocation, componentCount, GL_FLOAT, GL_FALSE, stride, nullptr);
    glVertexAttribPointer(colorLocation, componentCount, GL_FLOAT, GL_FALSE, stride, colorOffset);
    glDrawArrays(GL_TRIANGLE_FAN, 0, static_cast<GLsizei>(picture.corners.size()));

    glBindBuffer(GL_ARRAY_BUFFER, 0);
    glBindVertexArray(0);
    glUseProgram(0);
}

void LoadingScreen::drawFixedFunction(const Picture& picture) {
    const ScopedMatrix projection(GL_PROJECTION);
    glLoadMatrixf(picture.projection.m.data());
    const ScopedMatrix modelView(GL_MODELVIEW);
    glLoadMatrixf(picture.view.m.data());

    glPushAttrib(GL_CURRENT_BIT);
    glBegin(GL_TRIANGLE_FAN);
    for (const Corner& corner : picture.corners) {
        glColor3fv(corner.color.data());
        glVertex3fv(corner.position.data());
    }
    glEnd();
    glPopAttrib();
}

} // namespace Vantrel
