#version 150
// The sky: a cube around the camera.

layout(std140) uniform CameraTransforms {
    mat4 ViewMat;
    mat4 ProjectionMat;
    mat4 ShadowMat;
    int PassMode;
};

uniform mat4 ModelMat;

in vec3 VertexPosition;
in vec2 VertexTexCoord;

out vec2 texCoord;

void main() {
    texCoord = VertexTexCoord;
    gl_Position = ProjectionMat * (ViewMat * (ModelMat * vec4(VertexPosition, 1.0)));
}
