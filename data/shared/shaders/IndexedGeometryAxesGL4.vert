#version 150
// Axes and other computed lines, in the colours of their vertices.

uniform mat4 MVPMatrix;

in vec3 VertexPosition;
in vec4 VertexColor;

out vec4 color;

void main() {
    color = VertexColor;
    gl_Position = MVPMatrix * vec4(VertexPosition, 1.0);
}
