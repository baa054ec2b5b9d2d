#version 150
// Text of one picture a glyph.

uniform mat4 MVPMat;

in vec2 VertexPosition;
in vec2 VertexTexCoord;

out vec2 texCoord;

void main() {
    texCoord = VertexTexCoord;
    gl_Position = MVPMat * vec4(VertexPosition, 0.0, 1.0);
}
