#version 150
// Text from a map of distances to the glyphs' edges.

uniform mat4 TexMat0;
uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec2 VertexTexCoord;

out vec2 texCoord;

void main() {
    texCoord = (TexMat0 * vec4(VertexTexCoord, 0.0, 1.0)).st;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
