// Points and billboards as point sprites. The size is half a billboard's side in data lengths, or minus a
// point's size in pixels. With QUADS defined the corners come as they are.

#ifndef QUADS
attribute float spriteSize;
uniform float pixelsPerUnit;  // window pixels of a data length at clip distance 1
uniform vec2 pointShift;      // 1/256 pixel: plain points, unlike sprites, take the right and upper pixel of two
#endif
varying vec3 sprite;  // texture coordinates; 1 where the texture counts
#ifdef MIXED_BLENDING
varying vec4 spriteColour;
#endif

void main() {
    gl_Position = gl_ModelViewProjectionMatrix * gl_Vertex;
#ifdef MIXED_BLENDING
    spriteColour = gl_Color;
#else
    gl_FrontColor = gl_Color;
#endif
#ifdef QUADS
    sprite = gl_MultiTexCoord0.xyz;
#else
    sprite = vec3(0.0, 0.0, spriteSize > 0.0 ? 1.0 : 0.0);
    gl_PointSize = spriteSize > 0.0 ? 2.0 * spriteSize * pixelsPerUnit / gl_Position.w : -spriteSize;
    if (spriteSize < 0.0) gl_Position.xy += pointShift * gl_Position.w;
#endif
    gl_FogFragCoord = abs((gl_ModelViewMatrix * gl_Vertex).z);
}
