// Light at every fragment, highlights where the mirrored light meets the eye.

#ifndef LIGHT_NUMBER
uniform int lightNumberPhong;
#define LIGHT_NUMBER lightNumberPhong
#endif
#ifndef FOG_MODE
uniform int fogMode;
#define FOG_MODE fogMode
#endif

vec4 Shade(vec3 position, vec3 normal, vec3 ambient, vec4 diffuse, vec3 specular) {
    vec3 colour = ambient;
    vec3 mirrored = reflect(normalize(position), normal);
    for (int i = 0; i < LIGHT_NUMBER; ++i) {
        vec3 light = LightDirection(i, position);
        float facing = dot(normal, light);
        float shine = facing > 0.0 ? Highlight(dot(mirrored, light)) : 0.0;
        colour += max(facing, 0.0) * (diffuse.rgb * gl_LightSource[i].diffuse.rgb) +
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
