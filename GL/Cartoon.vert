// Hands the surface on: tones and outline are worked out for every fragment.

#ifndef LIGHT_NUMBER
uniform int lightNumberCartoon;
#define LIGHT_NUMBER lightNumberCartoon
#endif

varying vec3 surfacePosition;
varying vec3 surfaceNormal;
varying vec3 materialAmbient;
varying vec4 materialDiffuse;
varying vec3 materialSpecular;

void main() {
    vec4 position = SurfacePosition();
    surfacePosition = position.xyz;
    surfaceNormal = SurfaceNormal();
    materialAmbient = AmbientLight(LIGHT_NUMBER) * MATERIAL_AMBIENT.rgb;
    materialDiffuse = MATERIAL_DIFFUSE;
    materialSpecular = MATERIAL_SPECULAR.rgb;
    gl_Position = gl_ProjectionMatrix * position;
}
