#version 150
// Lines of bounding boxes and normals, in the colours of their vertices.

in vec4 color;

out vec4 FragColor;

void main() {
    FragColor = color;
}
