// Spans the part of the window that a sphere covers, exactly: as a point sprite, or with QUADS defined as a
// rectangle with the corners gl_Vertex.xy, for spheres that are larger than sprites may be or near the eye.

attribute vec4 particleSphere;  // centre, radius
attribute vec4 particleAmbient;
attribute vec4 particleDiffuse;
attribute vec4 particleSpecular;

uniform float pixelsPerUnit;   // window pixels of one unit at distance 1, or anywhere in a parallel projection
uniform float eyeScale;        // eye lengths of a data length

varying vec4 eyeSphere;  // centre, radius
varying vec3 materialAmbient;
varying vec4 materialDiffuse;
varying vec3 materialSpecular;

void main() {
    vec3 centre = (gl_ModelViewMatrix * vec4(particleSphere.xyz, 1.0)).xyz;
    float radius = particleSphere.w * eyeScale;
    eyeSphere = vec4(centre, radius);
    materialAmbient = AmbientLight(LIGHT_NUMBER) * particleAmbient.rgb;
    materialDiffuse = particleDiffuse;
    materialSpecular = particleSpecular.rgb;

#ifdef ORTHOGRAPHIC
    vec2 middle = centre.xy;
    vec2 reach = vec2(radius);
    float depth = 1.0;
#else
    // The tangents from the eye to the sphere, in units of the distance.
    float depth = -centre.z;
    float denominator = max(depth * depth - radius * radius, 1e-30);
    vec2 middle = centre.xy * depth / denominator;
    vec2 reach = radius * sqrt(centre.xy * centre.xy + denominator) / denominator;
#endif
#ifdef QUADS
    middle += gl_Vertex.xy * reach;
#ifndef ORTHOGRAPHIC
    // The eye is so near that there may be no tangents: the whole window.
    if (depth <= radius) {
        gl_Position = vec4(gl_Vertex.xy, 0.0, 1.0);
        return;
    }
#endif
#else
    // One pixel more, for centres that do not lie in the middle of a pixel.
    gl_PointSize = 2.0 * max(reach.x, reach.y) * pixelsPerUnit + 1.0;
#endif
    // The depth is the fragment's own matter: here it is one that is never clipped.
#ifdef ORTHOGRAPHIC
    vec4 place = gl_ProjectionMatrix * vec4(middle, 0.0, 1.0);
#else
    vec4 place = gl_ProjectionMatrix * vec4(middle, -1.0, 1.0);
#endif
    gl_Position = vec4(place.xy, 0.0, place.w);
}
