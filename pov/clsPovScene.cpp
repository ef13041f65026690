#include "pov/clsPovScene.h"

#include <wx/image.h>
#include <wx/mstream.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>
#include <utility>

#include "data/clsPDataSeqCtrl.h"
#include "data/clsSplitPath.h"
#include "pov/clsPovParticles.h"
#include "pov/clsPovRayCtrl.h"
#include "render/clsBillboardFile.h"
#include "render/clsDrawOption.h"
#include "render/clsPanelShared.h"
#include "scene/clsCameraPath.h"
#include "scene/clsLightSRCCtrl.h"
#include "seam/clsResourcePath.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr const char* kTemplate = "Resource/cameratemplate.pov";
constexpr const char* kDefaultSprite = "Texture/ParticleA.png";
/// What OpenGL's textures usually have at most.
constexpr int kLargestSide = 16384;
/// What reaches all sides without any light, as OpenGL has it.
constexpr double kAmbientOfAll = 0.2;
/// How far away a light from a direction stands, in scene lengths: beyond all that is drawn.
constexpr double kFarLight = 1e6;
/// Layers that a ray may pass. The renderer calls itself for each, and its stack ends at some 280.
constexpr int kMostLayers = 200;

/// Why the renderer sees layers: without a refraction, however small, it does not count them, and would go
/// on until its stack overflows.
constexpr const char* kDeclarations =
    "#declare Glow = finish { ambient 0 diffuse 0 emission 1 }\n"
    "#declare Layer = interior { ior 1.00001 }\n";

/// The colour of what can be seen of an image.
std::array<float, 3> MeanColor(const wxImage& image) {
    const auto pixels = static_cast<size_t>(image.GetWidth()) * static_cast<size_t>(image.GetHeight());
    std::array<double, 3> sum{};
    double weight = 0.0;
    for (size_t i = 0; i < pixels; ++i) {
        const double alpha = image.GetAlpha()[i];
        for (size_t c = 0; c < 3; ++c) sum[c] += alpha * image.GetData()[3 * i + c] / 255.0;
        weight += alpha;
    }
    std::array<float, 3> mean{1.0F, 1.0F, 1.0F};
    for (size_t c = 0; c < 3 && weight > 0.0; ++c) mean[c] = static_cast<float>(sum[c] / weight);
    return mean;
}

/// A value that moves in steps has no expression.
bool HasSteps(const Parameters_cls& parameter) {
    const auto& keys = parameter.GetKeys();
    return parameter.IsTimeDependent() && keys.size() > 1 &&
           std::any_of(keys.begin(), keys.end() - 1,
                       [](const KeyFrame_cls& key) { return key.mType >= KeyFrame_cls::kStep; });
}

}  // namespace

wxString PovScene_cls::GetExpressions(bool inSteps, double time) const {
    wxString text;
    const auto add = [&](const ParamGroup_cls& group) {
        for (int i = 0; i < group.GetDimension(); ++i) {
            const Parameters_cls& parameter = group.GetParameter(i);
            if (HasSteps(parameter) != inSteps) continue;
            const double value = parameter.Evaluate(time, Parameters_cls::msResolution);
            text += inSteps ? "#declare " + parameter.GetName() + " = " + wxString::FromCDouble(value) + ";\n"
                            : parameter.GetStrExpression(parameter.GetName());
        }
    };
    for (size_t i = 0; i < CameraPath_cls::kGroupCount; ++i)
        add(mLinks.camera.GetGroup(static_cast<CameraPath_cls::Group>(i)));
    for (int light = 0; light < LightSRCCtrl_cls::kLights; ++light) {
        const LightSRC_cls& source = mLinks.view.lights.GetLight(light);
        if (!source.mVisible.mValue) continue;
        for (size_t i = 0; i < LightSRC_cls::kGroupCount; ++i)
            add(source.GetGroup(static_cast<LightSRC_cls::Group>(i)));
    }
    return text;
}

wxString PovScene_cls::GetCommonText(std::string* text) const {
    const wxString file = ResourcePath_cls::Find(kTemplate);
    std::ifstream stream(ToBytes(file), std::ios::binary);
    std::ostringstream cameras;
    cameras << stream.rdbuf();
    if (!stream) return file + ": the camera template is missing";

    const PovRayCtrl_cls& control = mLinks.control;
    const auto& background = mLinks.view.shared.mBackground.mValue;
    const auto channel = [&](size_t c) { return wxString(ConfFloat_cls::Format(background[c])); };
    wxString head = "#version 3.7;\n\nglobal_settings {\n  assumed_gamma 1\n";
    head += wxString::Format("  max_trace_level %d\n",
                             std::clamp(control.GetAdvanced().mMaxTraceLevel.mValue, 1, kMostLayers));
    head += control.GetRadiosity().GetStrScene() + control.GetPhotons().GetStrScene() + "}\n";
    head += "background { rgb <" + channel(0) + "," + channel(1) + "," + channel(2) + "> }\n\n";
    head += "#ifndef (t0)\n  #declare t0 = clock;\n#end\n#version 3.0;\n" + GetExpressions(false, 0.0) +
            "#version 3.7;\n\n";
    *text = ToBytes(head) + kDeclarations + "\n" + cameras.str() + "\n";
    return {};
}

void PovScene_cls::WriteLights(PovText_cls& text, const SceneView_cls& view,
                               const PovSpace_cls& space) const {
    const double time = view.mTime;
    const bool hasShadows = mLinks.view.option.mShadow.mValue == DrawOption_cls::kShadowVolume;
    for (int i = 0; i < LightSRCCtrl_cls::kLights; ++i) {
        const LightSRC_cls& light = mLinks.view.lights.GetLight(i);
        if (!light.mVisible.mValue) continue;
        const bool placed = light.mType.mValue == LightSRC_cls::kFromPosition;
        Vector3 from = light.GetVector(placed ? LightSRC_cls::kPosition : LightSRC_cls::kDirection, time);
        if (placed) {
            from = space.Of(from);
        } else {
            double length = std::hypot(from[0], from[1], from[2]);
            if (!(length > 0.0)) {
                // A light from nowhere comes from the camera.
                from = view.mCamera.mPose.mDirection;
                length = -std::hypot(from[0], from[1], from[2]);
            }
            for (double& c : from) c *= kFarLight / length;
        }
        text << "light_source { " << from << " color rgb " << light.GetVector(LightSRC_cls::kDiffuse, time);
        if (!placed) text << " parallel point_at <0,0,0>";
        if (!hasShadows) text << " shadowless";
        text << " }\n";
    }
}

PovTexture_cls::Lighting PovScene_cls::GetLighting(double time) const {
    PovTexture_cls::Lighting lighting;
    lighting.ambient.fill(kAmbientOfAll);
    lighting.hasPhotons = mLinks.control.GetPhotons().IsOn();
    Vector3 diffuse{};
    Vector3 specular{};
    for (int i = 0; i < LightSRCCtrl_cls::kLights; ++i) {
        const LightSRC_cls& light = mLinks.view.lights.GetLight(i);
        if (!light.mVisible.mValue) continue;
        for (size_t c = 0; c < 3; ++c) {
            diffuse[c] += light.GetVector(LightSRC_cls::kDiffuse, time)[c];
            specular[c] += light.GetVector(LightSRC_cls::kSpecular, time)[c];
            lighting.ambient[c] += light.GetVector(LightSRC_cls::kAmbient, time)[c];
        }
    }
    for (size_t c = 0; c < 3; ++c) {
        if (diffuse[c] > 0.0) lighting.specularPerDiffuse[c] = specular[c] / diffuse[c];
    }
    const PovRadiosity_cls& radiosity = mLinks.control.GetRadiosity();
    if (radiosity.IsOn() && radiosity.mZeroAmbient.mValue) lighting.ambient = {};
    return lighting;
}

PovTexture_cls::Sprite PovScene_cls::MakeSprite(int attribute, const wxString& folder,
                                                wxString* error) const {
    const auto& owner = mLinks.view.data.GetActive().GetAttributes()[static_cast<size_t>(attribute)];
    PovTexture_cls::Sprite sprite;
    sprite.file = wxString::Format("Billboard%d.png", attribute);
    wxString fault;
    wxImage image = ReadBillboard(owner->mTexFileBillboard.GetValueText(), kLargestSide, &fault);
    // No box, as the view has it: while one is open the window's timer would begin the frame once more.
    if (!fault.empty() && mLinks.toldFaults.insert(fault).second)
        StderrMessage_cls().Show("Warning", fault, UserMessage_cls::Buttons::Ok);
    // The view stands in with a sprite like the one that comes with the program.
    if (!image.IsOk()) image = ReadBillboard(kDefaultSprite, kLargestSide, error);
    if (!image.IsOk()) return sprite;
    sprite.tint = MeanColor(image);
    wxMemoryOutputStream stream;
    image.SaveFile(stream, wxBITMAP_TYPE_PNG);
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    *error = OutputFile_cls::WriteWhole(folder + sprite.file, bytes, OutputFile_cls::Sync::No);
    return sprite;
}

PovParticleText_cls::Sprites PovScene_cls::MakeSprites(const PovCloud_cls& cloud, const wxString& folder,
                                                       wxString* error) const {
    std::array<bool, 4> isUsed{};
    for (const PovLook_cls& look : cloud.looks) {
        if (look.kind == PovLook_cls::Kind::Billboard) isUsed.at(look.attribute) = true;
    }
    PovParticleText_cls::Sprites sprites;
    for (size_t i = 0; i < sprites.size(); ++i) {
        if (isUsed[i] && error->empty()) sprites[i] = MakeSprite(static_cast<int>(i), folder, error);
    }
    return sprites;
}

PovCloud_cls PovScene_cls::Gather(const SceneView_cls& view, const PovCamera_cls& camera,
                                  const PovSpace_cls& space) const {
    if (!view.mState || !view.mPanel.mShowData.mValue) return {};
    DrawAttributes_cls attributes{};
    for (size_t i = 0; i < attributes.size(); ++i)
        attributes[i] = mLinks.view.data.GetActive().GetAttributes()[i].get();
    const bool fine = !mLinks.control.GetFormat().mFastColoring.mValue;
    return PovParticles_cls(*view.mState, attributes, mLinks.view.option, fine).Gather(camera, space);
}

std::unique_ptr<PovSceneFile_cls> PovScene_cls::Begin(const SceneView_cls& view, int frame,
                                                      const wxString& name, bool first,
                                                      wxString* error) const {
    std::string common;
    *error = GetCommonText(&common);
    if (!error->empty()) return nullptr;
    const PovRayCtrl_cls& control = mLinks.control;
    const bool isShared = control.mUseCommonSceneFile.mValue;
    if (isShared && first) {
        *error = OutputFile_cls::WriteWhole(control.GetWorkFolder() + "/" + kCommonName, common,
                                            OutputFile_cls::Sync::No);
        if (!error->empty()) return nullptr;
    }

    const PovSpace_cls space = PovSpace_cls::Of(view.mCamera.mPose);
    const PovCamera_cls camera(view, space);
    const PovTexture_cls::Lighting lighting = GetLighting(view.mTime);
    PovSceneFile_cls::Content content;
    content.cloud = Gather(view, camera, space);
    content.texture = PovTexture_cls(lighting);
    content.sprites = MakeSprites(content.cloud, SplitPath_cls(name).mDirectory, error);
    if (!error->empty()) return nullptr;
    if (control.mTweaks.mValue)
        content.tail = "#if (file_exists(\"Tweaks.inc\"))\n#include \"Tweaks.inc\"\n#end\n";

    PovText_cls head;
    head << "// frame " << frame << ", " << content.cloud.GetCount() << " particles\n"
         << "#version 3.7;\n#declare t0 = " << view.mTime << ";\n"
         << ToBytes(GetExpressions(true, view.mTime));
    if (isShared) {
        head << "#include \"" << kCommonName << "\"\n";
    } else {
        head << common;
    }
    if (!space.IsPlain()) {
        head << "// lengths are the data's, less this point, times this factor\n#declare DataOrigin = "
             << space.origin << ";\n#declare DataScale = " << space.scale << ";\n";
    }
    head << "global_settings { ambient_light rgb " << lighting.ambient;
    if (content.cloud.IsAnyTransparent()) head << " max_trace_level " << kMostLayers;
    head << " }\n";
    camera.Write(head);
    WriteLights(head, view, space);
    content.head = head.Get();
    return std::make_unique<PovSceneFile_cls>(name + ".pov", std::move(content));
}
