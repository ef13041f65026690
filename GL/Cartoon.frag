// Few flat tones and a dark outline.

#ifndef LIGHT_NUMBER
uniform int lightNumberCartoon;
#define LIGHT_NUMBER lightNumberCartoon
#endif
#ifndef FOG_MODE
#define FOG_MODE 0
#endif

uniform float boldnessCartoon;         // how far the outline reaches in: 0 nowhere, 1 everywhere
uniform int shadowVolumeModeCartoon;  // 0: a single light without ambient part, which leaves its far side black

vec4 Shade(vec3 position, vec3 normal, vec3 ambient, vec4 diffuse, vec3 specular) {
    vec3 eye = -normalize(position);
    if (abs(dot(normal, eye)) < boldnessCartoon) return vec4(0.0, 0.0, 0.0, diffuse.a);
    float farSide = shadowVolumeModeCartoon == 0 ? 0.0 : 0.35;
    vec3 colour = ambient;
    for (int i = 0; i < LIGHT_NUMBER; ++i) {
        vec3 light = LightDirection(i, position);
        float facing = dot(normal, light);
        float tone = facing > 0.6 ? 1.0 : (facing > 0.1 ? 0.65 : farSide);
        float shine = Highlight(dot(normal, normalize(light + eye))) > 0.5 ? 1.0 : 0.0;
        colour += tone * (diffuse.rgb * gl_LightSource[i].diffuse.rgb) +
                  shine * (specular * gl_LightSource[i].specular.rgb);
    }
    return vec4(colour, diffuse.a);
}

#ifndef RAY_CAST
varying vec3 surfacePosition;
varying vec3 surfaceNormal;
varying vec3 materialAmbient;
varying vec4 materialDiffuse;
varying vec3 materialSpecular;

void main() {
    vec4 colour = Shade(surfacePosition, normalize(surfaceNormal), materialAmbient, materialDiffuse,
                        materialSpecular);
    gl_FragColor = Fogged(colour, abs(surfacePosition.z), FOG_MODE);
}
#endif
