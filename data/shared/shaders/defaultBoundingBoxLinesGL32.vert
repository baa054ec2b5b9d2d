#version 150
// Lines of bounding boxes and normals, in the colours of their vertices.

uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec4 VertexColor;

out vec4 color;

void main() {
    color = VertexColor;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
