// What a vertex shader takes its surface from. With PARTICLES defined that is one of many spheres, whose
// centre, radius and material come with it; otherwise the vertex, normal and material in use.

#ifdef PARTICLES
attribute vec4 particleSphere;  // centre, radius
attribute vec4 particleAmbient;
attribute vec4 particleDiffuse;
attribute vec4 particleSpecular;

vec4 SurfacePosition() {
    return gl_ModelViewMatrix * vec4(particleSphere.xyz + particleSphere.w * gl_Vertex.xyz, 1.0);
}
vec3 SurfaceNormal() { return normalize(mat3(gl_ModelViewMatrix) * gl_Vertex.xyz); }
#define MATERIAL_AMBIENT particleAmbient
#define MATERIAL_DIFFUSE particleDiffuse
#define MATERIAL_SPECULAR particleSpecular

#else
vec4 SurfacePosition() { return gl_ModelViewMatrix * gl_Vertex; }
vec3 SurfaceNormal() { return normalize(gl_NormalMatrix * gl_Normal); }
#define MATERIAL_AMBIENT gl_FrontMaterial.ambient
#define MATERIAL_DIFFUSE gl_FrontMaterial.diffuse
#define MATERIAL_SPECULAR gl_FrontMaterial.specular
#endif
