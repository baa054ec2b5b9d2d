#version 150
// The picture that is shown while data is loading.

in vec4 color;

out vec4 FragColor;

void main() {
    FragColor = color;
}
