#version 150
// Picking: where the object is; what it looks like doesn't matter.

uniform mat4 MVPMat;

in vec3 VertexPosition;

void main() {
    gl_Position = MVPMat * vec4(VertexPosition, 1.0);
}
