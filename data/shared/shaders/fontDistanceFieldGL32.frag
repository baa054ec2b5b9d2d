#version 150
// Text from a map of distances to the glyphs' edges: 0.5 in the red channel is the edge, more is inside. The edge is
// one pixel soft at every size.

uniform sampler2D TexUnit0;
uniform vec4 FontColor;

in vec2 texCoord;

out vec4 FragColor;

void main() {
    const float edge = 0.5;
    float distance = texture(TexUnit0, texCoord).r;
    float halfPixel = max(0.5 * fwidth(distance), 0.0001);
    float coverage = smoothstep(edge - halfPixel, edge + halfPixel, distance);
    FragColor = vec4(FontColor.rgb, FontColor.a * coverage);
}
