#version 150
// Text of one picture a glyph; GLSL 1.20 takes matrices and colour from the fixed-function state.

#if __VERSION__ < 130
varying vec2 texCoord;
varying vec4 color;

void main() {
    texCoord = gl_MultiTexCoord0.st;
    color = gl_Color;
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
}
#else
uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec2 VertexTexCoord;
in vec4 VertexColor;

out vec2 texCoord;
out vec4 color;

void main() {
    texCoord = VertexTexCoord;
    color = VertexColor;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
#endif
