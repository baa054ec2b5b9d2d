#version 150
// Meshes: hands position and normal in eye space on to the lighting of each pixel.

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
in vec3 VertexNormal; // (0, 0, 0) where the mesh has none
in vec2 VertexTexCoord;
in vec4 VertexColor;

out vec3 eyePosition;
out vec3 eyeNormal;
out vec2 texCoord;
out vec4 color;
out vec4 shadowPosition; // in the shadow map, times its w; where there is no map 0

void main() {
    vec4 position = vec4(VertexPosition, 1.0);
    vec4 place = ModelMat * position;
    eyePosition = (ViewMat * place).xyz;
    shadowPosition = PassMode == 2 ? ShadowMat * place : vec4(0.0);
    eyeNormal = mat3(NormalMat) * VertexNormal;
    texCoord = (TexMat0 * vec4(VertexTexCoord, 0.0, 1.0)).st;
    color = VertexColor;
    gl_Position = MVPMat * position;
}
