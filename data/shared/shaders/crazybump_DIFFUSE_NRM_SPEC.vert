#version 150
// Meshes with a map of normals; GLSL 1.20 takes matrices, colour and lights from the fixed-function state.

#if __VERSION__ < 130
attribute vec3 tangent;

varying vec3 eyePosition;
varying vec3 eyeNormal;
varying vec3 eyeTangent;
varying vec2 texCoord;
varying vec4 color;

void main() {
    eyePosition = (gl_ModelViewMatrix * gl_Vertex).xyz;
    eyeNormal = gl_NormalMatrix * gl_Normal;
    eyeTangent = gl_NormalMatrix * tangent;
    texCoord = (gl_TextureMatrix[0] * gl_MultiTexCoord0).st;
    color = gl_Color;
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
}
#else
layout(std140) uniform CameraTransforms {
    mat4 ViewMat;
    mat4 ProjectionMat;
    mat4 ShadowMat;
    int PassMode;
};

uniform mat4 ModelMat;
uniform mat4 NormalMat; // model space to eye space, rotation alone
uniform mat4 TexMat0;
uniform mat4 MVPMat;

in vec3 VertexPosition;
in vec3 VertexNormal;
in vec2 VertexTexCoord;
in vec4 VertexColor;
in vec3 tangent; // where u grows; (0, 0, 0) where the mesh brings none

out vec3 eyePosition;
out vec3 eyeNormal;
out vec3 eyeTangent;
out vec2 texCoord;
out vec4 color;

void main() {
    vec4 position = vec4(VertexPosition, 1.0);
    eyePosition = (ViewMat * (ModelMat * position)).xyz;
    eyeNormal = mat3(NormalMat) * VertexNormal;
    eyeTangent = mat3(NormalMat) * tangent;
    texCoord = (TexMat0 * vec4(VertexTexCoord, 0.0, 1.0)).st;
    color = VertexColor;
    gl_Position = MVPMat * position;
}
#endif
