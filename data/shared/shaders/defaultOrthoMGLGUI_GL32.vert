#version 150
// Widgets: flat pictures in window space.

uniform mat4 TexMat0;
uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec2 VertexTexCoord;

out vec2 texCoord;

void main() {
    texCoord = (TexMat0 * vec4(VertexTexCoord, 0.0, 1.0)).st;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
