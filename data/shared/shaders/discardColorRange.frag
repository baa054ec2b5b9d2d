#version 150
// Pictures on a background of one colour: drops the pixels whose red, green and blue each lie within `epsilon` of
// `color`.

uniform sampler2D TexUnit0;
uniform vec3 color;
uniform float epsilon;

#if __VERSION__ < 130
varying vec2 texCoord;
varying vec4 vertexColor;
#define FragColor gl_FragColor
#define texture texture2D
#else
in vec2 texCoord;
in vec4 vertexColor;

out vec4 FragColor;
#endif

void main() {
    vec4 texel = texture(TexUnit0, texCoord);
    if (all(lessThanEqual(abs(texel.rgb - color), vec3(epsilon)))) {
        discard;
    }
    FragColor = vertexColor * texel;
}
