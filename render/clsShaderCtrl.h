#pragma once

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>

#include "render/clsShaderProgram.h"

/// The shader programs: those of GL/Gouraud, GL/Phong and GL/Cartoon for surfaces, and their variants for
/// whole batches of particles. One for the process; programs are built for each group of contexts when they
/// are first wanted there.
/// Threads: the thread of the context. Failure: a shader whose sources are missing or do not compile stays
/// off, after one message; see ShaderProgram_cls for links.
class ShaderCtrl_cls {
  public:
    /// GLAttribute_cls::ShaderType.
    static constexpr unsigned int kModels = 4;

    static ShaderCtrl_cls& Get();

    /// Builds the three programs in the current context's group, unless that was done. `verbose` shows what
    /// fails in a message box, else it goes to standard error.
    void InitializeShader(bool verbose);
    /// Switches the program for a shader type and a number of lights on, or none: for the original type, for
    /// unknown ones and where the shader is off.
    void BeginShader(unsigned int type, int lights);
    void EndShader();

    /// The setting "CartoonBoldness=".
    void SetShaderParamCartoonBoldness(float boldness) { mBoldness = boldness; }
    /// 0 or 1; BeginShader() chooses it by the lights.
    void SetShaderParamCartoonShadowMode(int mode);

    /// How a batch of particles is drawn.
    struct Batch {
        enum class Form { Mesh, RaySprites, RayQuads, Sprites, SpriteQuads };
        Form form = Form::Mesh;
        unsigned int shaderType = 0;
        int lights = 0;
        bool allDirected = true;
        bool orthographic = false;
        bool mixedBlending = false;
    };
    /// Switches the batch's program on and returns it; null, and no program, where it is off. Fog is that of
    /// the moment.
    ShaderProgram_cls* BeginBatch(const Batch& batch);

    /// Vertex inputs of batches.
    enum Input : unsigned int { kSphere = 8, kAmbient = 9, kDiffuse = 10, kSpecular = 11, kSpriteSize = 6 };

    /// 0 none, 1 exponential, 2 squared exponential, 3 linear, by OpenGL's state.
    static int GetFogMode();

  private:
    struct Programs {
        bool isInitialized = false;
        std::array<std::unique_ptr<ShaderProgram_cls>, kModels> surfaces;
        std::map<std::string, std::unique_ptr<ShaderProgram_cls>> batches;
    };
    Programs& Current();

    std::map<int, Programs> mGroups;  ///< by GLContext_cls::GetCurrentGroup()
    float mBoldness = 0.3F;
    bool mIsVerbose = true;
    std::set<std::string> mTold;  ///< fragment shaders whose faults the user knows
};
