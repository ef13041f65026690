// The colour of a point, or of a billboard's texture. With MIXED_BLENDING defined particles of both kinds of
// blending follow one another: a negative alpha marks what is added to the picture, and a second output
// tells how much of the picture is taken away.

uniform sampler2D picture;
varying vec3 sprite;
#ifdef MIXED_BLENDING
varying vec4 spriteColour;
out vec4 colour;
out vec4 taken;
#endif

void main() {
#ifdef QUADS
    vec2 place = sprite.xy;
#else
    vec2 place = gl_PointCoord;
#endif
    vec4 texel = mix(vec4(1.0), texture2D(picture, place), sprite.z);
#ifdef MIXED_BLENDING
    vec4 own = vec4(spriteColour.rgb, abs(spriteColour.a));
    colour = Fogged(own * texel, gl_FogFragCoord, FOG_MODE);
    taken = vec4(spriteColour.a > 0.0 ? colour.a : 0.0);
#else
    gl_FragColor = Fogged(gl_Color * texel, gl_FogFragCoord, FOG_MODE);
#endif
}
