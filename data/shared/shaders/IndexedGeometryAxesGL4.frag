#version 150
// Axes and other computed lines, in the colours of their vertices.

in vec4 color;

out vec4 FragColor;

void main() {
    FragColor = color;
}
