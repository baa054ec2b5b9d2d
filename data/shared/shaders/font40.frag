#version 150
// Text of one picture a glyph: how far a pixel is covered stands in all channels of the picture.

uniform sampler2D TexUnit0;
uniform vec4 Color;
uniform int useFradeDepth; // not 0: the text lies at the depth `fragDepth`, whatever stands before it
uniform float fragDepth;

in vec2 texCoord;

out vec4 FragColor;

void main() {
    FragColor = vec4(Color.rgb, Color.a * texture(TexUnit0, texCoord).a);
    gl_FragDepth = useFradeDepth != 0 ? fragDepth : gl_FragCoord.z;
}
