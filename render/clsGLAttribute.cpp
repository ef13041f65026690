#include "render/clsGLAttribute.h"

#include <algorithm>

#include "render/clsShaderCtrl.h"

GLAttribute_cls::GLAttribute_cls(unsigned int sequence, int index,
                                 const std::shared_ptr<const ParamHost_cls>& host)
    : mIndex(index), mPrefix(wxString::Format("SEQ%uTYPE%d", sequence, index)) {
    // In the order in which they are written.
    const std::array names = {"Col", "Ambient", "Diffuse", "Specular"};
    const std::array titles = {"Color", "Ambient", "Diffuse", "Specular"};
    for (size_t i = 0; i < mCurves.size(); ++i) {
        const bool ambient = i == SnapAttribute_cls::kAmbient;
        mCurves[i] = std::make_unique<ColorCurve_cls>(
            mPrefix + names[i], wxString::Format("Attrib %d : %s", index, titles[i]),
            ambient ? "0.2 0.16 0.04 1" : "1 0.8 0.2 1", std::span<const ColorCurve_cls::Key>(), host);
    }
    SetToDefault();
}

void GLAttribute_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mDrawType, mPrefix + "DrawType=", "0");
    mItems.Add(&mDrawQuality, mPrefix + "DrawQuality=", "0");
    mItems.Add(&mBlendType, mPrefix + "BlendType=", "0");
    mItems.Add(&mRadiusType, mPrefix + "RadiusType=", "0");
    mItems.Add(&mRadiusFactor, mPrefix + "RadiusFactor=", "1");
    mItems.Add(&mRadiusFactorForConst, mPrefix + "RadiusFactorForConst=", "0.001");
    mItems.Add(&mPointSize, mPrefix + "PointSize=", "10");
    mItems.Add(&mAlphaType, mPrefix + "AlphaType=", "0");
    mItems.Add(&mShaderType, mPrefix + "ShaderType=", "0");
    // Project files carry this spelling.
    mItems.Add(&mAlphaFactor, mPrefix + "AlphaFactro=", "1");
    mItems.Add(&mAlphaDependBase, mPrefix + "AlphaDependBase=", "1");
    mItems.Add(&mAlphaMax, mPrefix + "AlphaMax=", "1");
    mItems.Add(&mTexFileBillboard, mPrefix + "TexFileBillboard=", "Texture/ParticleA.png");
    for (const auto& curve : mCurves) curve->SetToDefault();
}

bool GLAttribute_cls::DrawsPoints() const {
    return mDrawType.mValue == SnapAttribute_cls::kPoint || mDrawType.mValue == SnapAttribute_cls::kBoth;
}

bool GLAttribute_cls::DrawsBillboards() const {
    return mDrawType.mValue == SnapAttribute_cls::kBillboard;
}

bool GLAttribute_cls::DrawsSpheres() const {
    return mDrawType.mValue == SnapAttribute_cls::kSphere || mDrawType.mValue == SnapAttribute_cls::kBoth;
}

ColorCurve_cls& GLAttribute_cls::GetMainCurve() {
    return GetCurve(DrawsSpheres() ? SnapAttribute_cls::kDiffuse : SnapAttribute_cls::kColor);
}

SnapAttribute_cls GLAttribute_cls::GetSnapAttribute() const {
    SnapAttribute_cls attribute{.drawType = mDrawType.mValue,
                                .alphaType = mAlphaType.mValue,
                                .alphaDependBase = mAlphaDependBase.mValue,
                                .alphaFactor = mAlphaFactor.mValue};
    for (size_t i = 0; i < mCurves.size(); ++i) attribute.curves[i] = mCurves[i].get();
    return attribute;
}

GLAttribute_cls::Alpha GLAttribute_cls::GetAlpha() const {
    return {mAlphaType.mValue, mAlphaFactor.mValue, mAlphaDependBase.mValue, mAlphaMax.mValue};
}

float GLAttribute_cls::GetRadiusFactor() const {
    return mRadiusType.mValue == kConstantRadius ? mRadiusFactorForConst.mValue : mRadiusFactor.mValue;
}

float GLAttribute_cls::GetDrawnRadius(float dataRadius, float stepFactor) const {
    const float unit = mRadiusType.mValue == kConstantRadius ? 1.0F : dataRadius;
    return unit * GetRadiusFactor() * stepFactor;
}

float GLAttribute_cls::GetDrawnAlpha(float alpha, float drawnRadius, float stepFactor) const {
    if (mAlphaType.mValue != SnapAttribute_cls::kDependOnRadius) return alpha * stepFactor;
    return std::min(mAlphaMax.mValue, alpha / (drawnRadius * drawnRadius) * stepFactor);
}

void GLAttribute_cls::InitializeShader(bool verbose) {
    ShaderCtrl_cls::Get().InitializeShader(verbose);
}

void GLAttribute_cls::BeginShader(int lights) const {
    ShaderCtrl_cls::Get().BeginShader(mShaderType.mValue, lights);
}

void GLAttribute_cls::EndShader() {
    ShaderCtrl_cls::Get().EndShader();
}

wxString GLAttribute_cls::Serialize() const {
    wxString text = mItems.SerializeAll();
    for (const auto& curve : mCurves) text += curve->Serialize();
    return text;
}

bool GLAttribute_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    // All keys and group names hold the prefix; most lines of a project belong to others.
    if (line.find(mPrefix) == wxString::npos) return false;
    return mItems.ReadStrLineAll(line) || std::any_of(mCurves.begin(), mCurves.end(), [&](const auto& curve) {
               return curve->ReadStrLine(stream, line);
           });
}
