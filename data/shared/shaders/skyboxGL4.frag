#version 150
// The sky shines by itself.

uniform sampler2D TexUnit0;

in vec2 texCoord;

out vec4 FragColor;

void main() {
    FragColor = texture(TexUnit0, texCoord);
}
