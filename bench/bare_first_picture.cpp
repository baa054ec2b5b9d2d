// The least that shows a picture with SDL: a window, a context of 3.2, one program and one triangle. Tells
// when it has shown it.

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <SDL.h>
#include <cstdio>
#include <initializer_list>
#include <utility>

int main() {
    if (SDL_Init(SDL_INIT_VIDEO) != 0) {
        return 1;
    }
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MAJOR_VERSION, 3);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_MINOR_VERSION, 2);
    SDL_GL_SetAttribute(SDL_GL_CONTEXT_PROFILE_MASK, SDL_GL_CONTEXT_PROFILE_CORE);
    SDL_GL_SetAttribute(SDL_GL_DEPTH_SIZE, 24);
    SDL_Window* const window = SDL_CreateWindow("", 0, 0, 800, 600, SDL_WINDOW_OPENGL);
    SDL_GLContext context = SDL_GL_CreateContext(window);
    if (context == nullptr) {
        return 1;
    }
    const GLuint program = glCreateProgram();
    const char* const vertex =
        "#version 150\nvoid main() { gl_Position = vec4(gl_VertexID & 1, gl_VertexID >> 1, 0, 1); }";
    const char* const fragment = "#version 150\nout vec4 c;\nvoid main() { c = vec4(1); }";
    for (const auto& [stage, text] :
         {std::pair(GL_VERTEX_SHADER, vertex), std::pair(GL_FRAGMENT_SHADER, fragment)}) {
        const GLuint shader = glCreateShader(static_cast<GLenum>(stage));
        glShaderSource(shader, 1, &text, nullptr);
        glCompileShader(shader);
        glAttachShader(program, shader);
    }
    glLinkProgram(program);
    glUseProgram(program);
    GLuint array = 0;
    glGenVertexArrays(1, &array);
    glBindVertexArray(array);
    glClear(GL_COLOR_BUFFER_BIT);
    glDrawArrays(GL_TRIANGLES, 0, 3);
    SDL_GL_SwapWindow(window);
    glFinish();
    std::puts("picture");
    std::fflush(stdout);
    SDL_GL_DeleteContext(context);
    SDL_DestroyWindow(window);
    SDL_Quit();
    return 0;
}
