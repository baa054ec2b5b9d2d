#version 150
// Shapes that mark the stencil for widgets.

in vec4 color;

out vec4 FragColor;

void main() {
    FragColor = color;
}
