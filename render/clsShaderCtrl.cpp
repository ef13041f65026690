#include "render/clsShaderCtrl.h"

#include "render/clsGLAttribute.h"
#include "render/clsGLContext.h"
#include "render/clsOpenGL.h"

namespace {

struct Model_cls {
    const char* vertex;
    const char* fragment;
    const char* lights;
};

/// By GLAttribute_cls::ShaderType. The original look in a batch is Gouraud's program: both are the
/// fixed-function equation at the vertices.
constexpr std::array<Model_cls, ShaderCtrl_cls::kModels> kModel = {{
    {"Gouraud.vert", "Gouraud.frag", "lightNumberGouraud"},
    {"Gouraud.vert", "Gouraud.frag", "lightNumberGouraud"},
    {"Phong.vert", "Phong.frag", "lightNumberPhong"},
    {"Cartoon.vert", "Cartoon.frag", "lightNumberCartoon"},
}};

constexpr const char* kVersion = "#version 120\n";

bool HasShaders() {
    const char* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    return version && version[0] >= '2' && version[0] <= '9';
}

/// 0 when the only light leaves its far side black, which is the look of shadow volumes; else 1.
int CartoonShadowMode(int lights) {
    std::array<float, 4> ambient{};
    glGetLightfv(GL_LIGHT0, GL_AMBIENT, ambient.data());
    return lights == 1 && ambient[0] == 0.0F ? 0 : 1;
}

}  // namespace

ShaderCtrl_cls& ShaderCtrl_cls::Get() {
    static ShaderCtrl_cls controller;
    return controller;
}

ShaderCtrl_cls::Programs& ShaderCtrl_cls::Current() {
    return mGroups[GLContext_cls::GetCurrentGroup()];
}

void ShaderCtrl_cls::InitializeShader(bool verbose) {
    Programs& programs = Current();
    if (programs.isInitialized) return;
    programs.isInitialized = true;
    mIsVerbose = verbose;
    if (!HasShaders()) return;
    for (unsigned int type = GLAttribute_cls::kGouraud; type < kModels; ++type) {
        programs.surfaces[type] =
            ShaderProgram_cls::Build({.preamble = kVersion,
                                      .vertex = {{"Lighting.glsl", "Surface.glsl", kModel[type].vertex}},
                                      .fragment = {{"Lighting.glsl", kModel[type].fragment}},
                                      .inputs = {}},
                                     verbose);
    }
}

void ShaderCtrl_cls::BeginShader(unsigned int type, int lights) {
    EndShader();
    ShaderProgram_cls* program = type < kModels ? Current().surfaces[type].get() : nullptr;
    if (!program) return;
    program->Use();
    glUniform1i(program->GetUniform(kModel[type].lights), lights);
    if (type == GLAttribute_cls::kPhong) glUniform1i(program->GetUniform("fogMode"), GetFogMode());
    if (type != GLAttribute_cls::kToon) return;
    glUniform1f(program->GetUniform("boldnessCartoon"), mBoldness);
    SetShaderParamCartoonShadowMode(CartoonShadowMode(lights));
}

void ShaderCtrl_cls::EndShader() {
    if (HasShaders()) glUseProgram(0);
}

void ShaderCtrl_cls::SetShaderParamCartoonShadowMode(int mode) {
    ShaderProgram_cls* program = Current().surfaces[GLAttribute_cls::kToon].get();
    if (program) glUniform1i(program->GetUniform("shadowVolumeModeCartoon"), mode);
}

int ShaderCtrl_cls::GetFogMode() {
    if (!glIsEnabled(GL_FOG)) return 0;
    GLint mode = GL_EXP;
    glGetIntegerv(GL_FOG_MODE, &mode);
    return mode == GL_EXP ? 1 : mode == GL_EXP2 ? 2 : 3;
}

ShaderProgram_cls* ShaderCtrl_cls::BeginBatch(const Batch& batch) {
    using Form = Batch::Form;
    if (!HasShaders()) return nullptr;
    const unsigned int type = batch.shaderType < kModels ? batch.shaderType : 0;
    const bool isRay = batch.form == Form::RaySprites || batch.form == Form::RayQuads;
    const bool isSprite = batch.form == Form::Sprites || batch.form == Form::SpriteQuads;

    // Everything that can be a constant is one: loops are unrolled and branches gone.
    std::string preamble = batch.mixedBlending ? "#version 130\n#define MIXED_BLENDING\n" : kVersion;
    preamble += "#define FOG_MODE " + std::to_string(GetFogMode()) + "\n";
    if (!isSprite) {
        preamble += "#define PARTICLES\n#define LIGHT_NUMBER " + std::to_string(batch.lights) + "\n";
        if (batch.allDirected) preamble += "#define ALL_DIRECTED\n";
    }
    if (isRay) preamble += "#define RAY_CAST\n";
    if (isRay && batch.orthographic) preamble += "#define ORTHOGRAPHIC\n";
    if (batch.form == Form::RayQuads || batch.form == Form::SpriteQuads) preamble += "#define QUADS\n";

    const char* fragment = isSprite ? "Sprite.frag" : kModel[type].fragment;
    auto& batches = Current().batches;
    auto found = batches.find(preamble + fragment);
    if (found == batches.end()) {
        ShaderProgram_cls::Recipe recipe{.preamble = preamble,
                                         .vertex = {{"Lighting.glsl"}},
                                         .fragment = {{"Lighting.glsl", fragment}},
                                         .inputs = {{kSphere, "particleSphere"},
                                                    {kAmbient, "particleAmbient"},
                                                    {kDiffuse, "particleDiffuse"},
                                                    {kSpecular, "particleSpecular"}}};
        if (isSprite) {
            recipe.vertex.files = {"Sprite.vert"};
            recipe.inputs = {{kSpriteSize, "spriteSize"}};
        } else if (isRay) {
            recipe.vertex.files.push_back("RayCast.vert");
            recipe.fragment.files.push_back("RayCast.frag");
        } else {
            recipe.vertex.files.insert(recipe.vertex.files.end(), {"Surface.glsl", kModel[type].vertex});
        }
        if (batch.mixedBlending) {
            recipe.firstOutput = "colour";
            recipe.secondOutput = "taken";
        }
        auto program = ShaderProgram_cls::Build(recipe, mIsVerbose && !mTold.count(fragment));
        if (!program) mTold.insert(fragment);
        found = batches.emplace(preamble + fragment, std::move(program)).first;
    }
    ShaderProgram_cls* program = found->second.get();
    if (!program) {
        EndShader();
        return nullptr;
    }
    program->Use();
    if (type == GLAttribute_cls::kToon && !isSprite) {
        glUniform1f(program->GetUniform("boldnessCartoon"), mBoldness);
        glUniform1i(program->GetUniform("shadowVolumeModeCartoon"), CartoonShadowMode(batch.lights));
    }
    return program;
}
