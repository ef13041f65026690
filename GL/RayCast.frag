// Meets a sphere with the ray through a pixel. Offsets are taken from the sphere's centre, so that small
// spheres far away lose no digits.

uniform vec4 windowToEye;  // scale and offset from window pixels to the plane at distance 1
uniform vec2 depthTerms;   // depth of a fragment = first + second / distance (or * distance)

varying vec4 eyeSphere;
varying vec3 materialAmbient;
varying vec4 materialDiffuse;
varying vec3 materialSpecular;

void main() {
    vec2 ray = gl_FragCoord.xy * windowToEye.xy + windowToEye.zw;
    float radius = eyeSphere.w;
#ifdef ORTHOGRAPHIC
    vec2 offset = ray - eyeSphere.xy;
    float square = radius * radius - dot(offset, offset);
    if (square < 0.0) discard;
    float front = sqrt(square);
    float depth = depthTerms.x - depthTerms.y * (eyeSphere.z + front);
#ifdef QUADS
    if (depth < 0.0) {
        front = -front;
        depth = depthTerms.x - depthTerms.y * (eyeSphere.z + front);
    }
#endif
    vec3 fromCentre = vec3(offset, front);
    vec3 position = eyeSphere.xyz + fromCentre;
#else
    // From the point of the ray at the centre's distance, `along` its direction (ray, -1).
    vec2 offset = ray * -eyeSphere.z - eyeSphere.xy;
    float a = 1.0 + dot(ray, ray);
    float b = dot(offset, ray);
    float square = b * b - a * (dot(offset, offset) - radius * radius);
    if (square < 0.0) discard;
    float along = -(b + sqrt(square)) / a;
    float distance = along - eyeSphere.z;
    float depth = depthTerms.x + depthTerms.y / distance;
#ifdef QUADS
    // Inside the sphere, or it is cut by the near plane: its far wall.
    if (distance <= 0.0 || depth < 0.0) {
        along = (sqrt(square) - b) / a;
        distance = along - eyeSphere.z;
        depth = distance > 0.0 ? depthTerms.x + depthTerms.y / distance : -1.0;
    }
#endif
    vec3 fromCentre = vec3(offset + along * ray, -along);
    vec3 position = distance * vec3(ray, -1.0);
#endif
    if (depth < 0.0 || depth > 1.0) discard;
    gl_FragDepth = depth;
    vec4 colour =
        Shade(position, fromCentre / radius, materialAmbient, materialDiffuse, materialSpecular);
    gl_FragColor = Fogged(colour, -position.z, FOG_MODE);
}
