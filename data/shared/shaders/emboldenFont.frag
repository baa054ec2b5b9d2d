#version 150
// Text of one picture a glyph, made bolder by filling the half-covered pixels of its edges: `modifier` 1 leaves the
// glyph as it is.

uniform sampler2D TexUnit0;
uniform float modifier;
uniform int useFradeDepth; // not 0: the text lies at the depth `fragDepth`, whatever stands before it
uniform float fragDepth;

#if __VERSION__ < 130
varying vec2 texCoord;
varying vec4 color;
#define FragColor gl_FragColor
#define texture texture2D
#else
in vec2 texCoord;
in vec4 color;

out vec4 FragColor;
#endif

void main() {
    float coverage = min(texture(TexUnit0, texCoord).a * modifier, 1.0);
    FragColor = vec4(color.rgb, color.a * coverage);
    gl_FragDepth = useFradeDepth != 0 ? fragDepth : gl_FragCoord.z;
}
