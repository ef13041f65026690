#ifndef FOG_MODE
#define FOG_MODE 0
#endif

#ifdef RAY_CAST
vec4 Shade(vec3 position, vec3 normal, vec3 ambient, vec4 diffuse, vec3 specular) {
    return vec4(LightSeenFromFar(position, normal, ambient, diffuse.rgb, specular, LIGHT_NUMBER), diffuse.a);
}
#else
void main() { gl_FragColor = Fogged(gl_Color, gl_FogFragCoord, FOG_MODE); }
#endif
