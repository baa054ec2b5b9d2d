#version 150
// The picture that is shown while data is loading.

uniform mat4 MVPMatrix;

in vec3 VertexPosition;
in vec4 VertexColor;

out vec4 color;

void main() {
    color = VertexColor;
    gl_Position = MVPMatrix * vec4(VertexPosition, 1.0);
}
