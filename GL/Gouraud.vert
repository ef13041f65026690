// Light at the vertices, colours in between.

#ifndef LIGHT_NUMBER
uniform int lightNumberGouraud;
#define LIGHT_NUMBER lightNumberGouraud
#endif

void main() {
    vec4 position = SurfacePosition();
    vec3 ambient = AmbientLight(LIGHT_NUMBER) * MATERIAL_AMBIENT.rgb;
    vec3 colour = LightSeenFromFar(position.xyz, SurfaceNormal(), ambient, MATERIAL_DIFFUSE.rgb,
                                   MATERIAL_SPECULAR.rgb, LIGHT_NUMBER);
    gl_FrontColor = vec4(colour, MATERIAL_DIFFUSE.a);
    gl_FogFragCoord = abs(position.z);
    gl_Position = gl_ProjectionMatrix * position;
}
