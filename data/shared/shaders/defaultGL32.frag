#version 150
// Meshes: lights each pixel, then modulates by texture and vertex colour. Without lights, and where there is no
// normal, the colour stays as it is. Where there is a shadow map it is the first light's.

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

uniform sampler2D TexUnit0;
uniform sampler2DShadow ShadowMap;
uniform MaterialColors Material;

in vec3 eyePosition;
in vec3 eyeNormal;
in vec2 texCoord;
in vec4 color;
in vec4 shadowPosition;

out vec4 FragColor;

vec3 unit(vec3 v) {
    float length2 = dot(v, v);
    return length2 > 0.0 ? v * inversesqrt(length2) : vec3(0.0);
}

vec3 directionToLight(int i) {
    vec4 light = LightPosition[i];
    return light.w > 0.5 ? unit(light.xyz - eyePosition) : unit(-light.xyz);
}

// How much of the first light gets here; beyond the map, all of it.
float firstLightShare() {
    bool isMapped = shadowPosition.w > 0.0 && shadowPosition.z < shadowPosition.w;
    return isMapped ? textureProjLod(ShadowMap, shadowPosition, 0.0) : 1.0;
}

void main() {
    vec4 texel = texture(TexUnit0, texCoord);
    vec4 base = color * texel;
    base.a *= Material.Kd.a;
    if (NumLights == 0 || dot(eyeNormal, eyeNormal) == 0.0) {
        FragColor = base;
        return;
    }
    vec3 normal = unit(eyeNormal);
    vec3 toEye = unit(-eyePosition);
    vec3 diffuse = vec3(0.0);
    vec3 specular = vec3(0.0);
    for (int i = 0; i < NumLights; ++i) {
        vec3 toLight = directionToLight(i);
        float facing = dot(normal, toLight);
        if (facing > 0.0) {
            vec3 light = LightColor[i].rgb * (i == 0 ? firstLightShare() : 1.0);
            float shine = max(dot(normal, unit(toLight + toEye)), 0.0001); // pow(0, 0) may be NaN
            diffuse += light * facing;
            specular += light * pow(shine, max(Material.SpecularCoeff, 0.0));
        }
    }
    vec3 lit = color.rgb * (Material.Ka.rgb * GlobalAmbient.rgb + Material.Kd.rgb * diffuse) + Material.Ks.rgb * specular;
    FragColor = vec4(min(lit, 1.0) * texel.rgb, base.a);
}
