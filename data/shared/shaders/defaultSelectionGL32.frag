#version 150
// Picking compares bytes: the colour goes out as it came in.

uniform vec4 SelectionColor;

out vec4 FragColor;

void main() {
    FragColor = SelectionColor;
}
