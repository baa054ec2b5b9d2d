#version 150
// Shapes that mark the stencil for widgets.

uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec4 VertexColor;

out vec4 color;

void main() {
    color = VertexColor;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
