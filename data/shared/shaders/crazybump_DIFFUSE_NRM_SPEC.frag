#version 150
// Meshes with a map of normals: lights each pixel by the normal that the map gives. GLSL 1.20 can't see which lights
// are on and takes the first.

uniform sampler2D diffuseTexture;
uniform sampler2D normalTexture; // (0.5, 0.5, 1) is the mesh's own normal; red leans to where u grows, green to v
uniform sampler2D specularTexture;

#if __VERSION__ < 130
varying vec3 eyePosition;
varying vec3 eyeNormal;
varying vec3 eyeTangent;
varying vec2 texCoord;
varying vec4 color;

#define FragColor gl_FragColor
#define texture texture2D
const int NumLights = 1;
#define LIGHT_COLOR(i) gl_LightSource[i].diffuse.rgb
#define LIGHT_SPECULAR(i) gl_LightSource[i].specular.rgb
#define AMBIENT (gl_LightModel.ambient.rgb + gl_LightSource[0].ambient.rgb)
#define MATERIAL_ALPHA 1.0
#define AMBIENT_COLOR gl_FrontMaterial.ambient.rgb
#define DIFFUSE_COLOR gl_FrontMaterial.diffuse.rgb
#define SPECULAR_COLOR gl_FrontMaterial.specular.rgb
#define SHININESS gl_FrontMaterial.shininess
#else
const int MAX_LIGHTS = 8;

struct MaterialColors {
    vec4 Ka;
    vec4 Kd;
    vec4 Ks;
    float SpecularCoeff;
};

layout(std140) uniform LightInfo {
    vec4 LightPosition[MAX_LIGHTS]; // eye space; w 1: where the light is, w 0: where it shines to
    vec4 LightColor[MAX_LIGHTS];
    vec4 GlobalAmbient;
    int NumLights;
};

uniform MaterialColors Material;

in vec3 eyePosition;
in vec3 eyeNormal;
in vec3 eyeTangent;
in vec2 texCoord;
in vec4 color;

out vec4 FragColor;

#define LIGHT_COLOR(i) LightColor[i].rgb
#define LIGHT_SPECULAR(i) LightColor[i].rgb
#define AMBIENT GlobalAmbient.rgb
#define MATERIAL_ALPHA Material.Kd.a
#define AMBIENT_COLOR (color.rgb * Material.Ka.rgb)
#define DIFFUSE_COLOR (color.rgb * Material.Kd.rgb)
#define SPECULAR_COLOR Material.Ks.rgb
#define SHININESS Material.SpecularCoeff
#endif

vec3 unit(vec3 v) {
    float length2 = dot(v, v);
    return length2 > 0.0 ? v * inversesqrt(length2) : vec3(0.0);
}

vec3 directionToLight(int i) {
#if __VERSION__ < 130
    // The fixed-function state keeps where a directional light comes from.
    vec4 light = gl_LightSource[i].position;
    return light.w > 0.5 ? unit(light.xyz - eyePosition) : unit(light.xyz);
#else
    vec4 light = LightPosition[i];
    return light.w > 0.5 ? unit(light.xyz - eyePosition) : unit(-light.xyz);
#endif
}

vec3 mappedNormal(vec3 lean) {
    // Where u and v grow, from how position and texture coordinate change from pixel to pixel.
    vec3 positionX = dFdx(eyePosition);
    vec3 positionY = dFdy(eyePosition);
    vec2 coordX = dFdx(texCoord);
    vec2 coordY = dFdy(texCoord);
    float turn = coordX.s * coordY.t - coordY.s * coordX.t < 0.0 ? -1.0 : 1.0;
    vec3 pictureU = (positionX * coordY.t - positionY * coordX.t) * turn;
    vec3 pictureV = (positionY * coordX.s - positionX * coordY.s) * turn;

    vec3 normal = unit(eyeNormal);
    vec3 along = dot(eyeTangent, eyeTangent) > 0.0 ? eyeTangent : pictureU;
    vec3 tangentU = unit(along - normal * dot(normal, along));
    vec3 tangentV = cross(normal, tangentU);
    // Where the picture is mirrored, v grows the other way.
    bool isMirrored = dot(cross(pictureU, pictureV), normal) < 0.0;
    return unit(tangentU * lean.x + tangentV * (isMirrored ? -lean.y : lean.y) + normal * lean.z);
}

void main() {
    vec4 base = texture(diffuseTexture, texCoord);
    vec3 gloss = texture(specularTexture, texCoord).rgb;
    vec3 normal = mappedNormal(texture(normalTexture, texCoord).rgb * 2.0 - 1.0);
    base.a *= color.a * MATERIAL_ALPHA;
    if (NumLights == 0) {
        FragColor = vec4(base.rgb * color.rgb, base.a);
        return;
    }
    vec3 toEye = unit(-eyePosition);
    vec3 diffuse = vec3(0.0);
    vec3 specular = vec3(0.0);
    for (int i = 0; i < NumLights; ++i) {
        vec3 toLight = directionToLight(i);
        float facing = dot(normal, toLight);
        if (facing > 0.0) {
            float shine = max(dot(normal, unit(toLight + toEye)), 0.0001); // pow(0, 0) may be NaN
            diffuse += LIGHT_COLOR(i) * facing;
            specular += LIGHT_SPECULAR(i) * pow(shine, max(SHININESS, 0.0));
        }
    }
    vec3 lit = (AMBIENT_COLOR * AMBIENT + DIFFUSE_COLOR * diffuse) * base.rgb +
               SPECULAR_COLOR * gloss * specular;
    FragColor = vec4(min(lit, 1.0), base.a);
}
