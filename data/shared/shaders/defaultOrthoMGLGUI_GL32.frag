#version 150
// Widgets: the picture, tinted by the material's diffuse colour. No light falls on a widget, so the rest of the
// material says nothing here.

struct MaterialColors {
    vec4 Ka;
    vec4 Kd;
    vec4 Ks;
    float SpecularCoeff;
};

uniform sampler2D TexUnit0;
uniform MaterialColors Material;

in vec2 texCoord;

out vec4 FragColor;

void main() {
    FragColor = Material.Kd * texture(TexUnit0, texCoord);
}
