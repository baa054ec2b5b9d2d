#version 150
// Pictures on a background of one colour; GLSL 1.20 takes matrices and colour from the fixed-function state.

#if __VERSION__ < 130
varying vec2 texCoord;
varying vec4 vertexColor;

void main() {
    texCoord = (gl_TextureMatrix[0] * gl_MultiTexCoord0).st;
    vertexColor = gl_Color;
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
}
#else
uniform mat4 TexMat0;
uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec2 VertexTexCoord;
in vec4 VertexColor;

out vec2 texCoord;
out vec4 vertexColor;

void main() {
    texCoord = (TexMat0 * vec4(VertexTexCoord, 0.0, 1.0)).st;
    vertexColor = VertexColor;
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
#endif
