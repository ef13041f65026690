// Light on a surface, for vertices and for fragments alike. What includes it may define before:
//   LIGHT_NUMBER  lights in use, a constant or a uniform
//   ALL_DIRECTED  every light comes from infinitely far, and its direction is a unit vector

// The exponent 32 of the highlights, as five products.
float Highlight(float cosine) {
    float x = max(cosine, 0.0);
    x *= x;
    x *= x;
    x *= x;
    x *= x;
    return x * x;
}

vec3 LightDirection(int i, vec3 position) {
#ifdef ALL_DIRECTED
    return gl_LightSource[i].position.xyz;
#else
    vec4 place = gl_LightSource[i].position;
    return normalize(place.xyz - place.w * position);
#endif
}

// The light that reaches all sides.
vec3 AmbientLight(int lights) {
    vec3 sum = gl_LightModel.ambient.rgb;
    for (int i = 0; i < lights; ++i) sum += gl_LightSource[i].ambient.rgb;
    return sum;
}

// What the surface gives back of all lights, seen from infinitely far: the fixed-function equation.
vec3 LightSeenFromFar(vec3 position, vec3 normal, vec3 ambient, vec3 diffuse, vec3 specular, int lights) {
    vec3 colour = ambient;
    for (int i = 0; i < lights; ++i) {
        vec3 light = LightDirection(i, position);
        float facing = dot(normal, light);
#ifdef ALL_DIRECTED
        vec3 halfway = gl_LightSource[i].halfVector.xyz;
#else
        vec3 halfway = normalize(light + vec3(0.0, 0.0, 1.0));
#endif
        float shine = facing > 0.0 ? Highlight(dot(normal, halfway)) : 0.0;
        colour += max(facing, 0.0) * (diffuse * gl_LightSource[i].diffuse.rgb) +
                  shine * (specular * gl_LightSource[i].specular.rgb);
    }
    return colour;
}

// Fog: 0 none, 1 exponential, 2 squared exponential, 3 linear.
vec4 Fogged(vec4 colour, float depth, int mode) {
    if (mode == 0) return colour;
    float clear;
    if (mode == 1) {
        clear = exp(-gl_Fog.density * depth);
    } else if (mode == 2) {
        clear = exp(-gl_Fog.density * depth * gl_Fog.density * depth);
    } else {
        clear = (gl_Fog.end - depth) * gl_Fog.scale;
    }
    return vec4(mix(gl_Fog.color.rgb, min(colour.rgb, vec3(1.0)), clamp(clear, 0.0, 1.0)), colour.a);
}
