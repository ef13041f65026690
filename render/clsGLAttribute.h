#pragma once

#include <wx/string.h>

#include <memory>

#include "CONFITEM/clsConfItemList.h"
#include "interp/clsSnapAttribute.h"
#include "render/clsBillboardTexture.h"
#include "render/clsColorCurve.h"

/// How the particles of one type are drawn: as points, billboards, spheres or not at all, with which
/// radius, transparency, blending, shader, texture and colour curves. Four belong to every data sequence,
/// which owns them.
/// Threads: GUI thread.
/// Units: radii are data lengths, point sizes pixels.
/// Failure: a setting beyond its list draws nothing (DrawType) or has no effect.
class GLAttribute_cls {
  public:
    enum RadiusType : unsigned int { kUseData = 0, kConstantRadius = 1 };
    enum BlendType : unsigned int { kAlphaBlend = 0, kAdditive = 1 };
    enum ShaderType : unsigned int { kOriginal = 0, kGouraud = 1, kPhong = 2, kToon = 3 };

    /// Numbers of the data sequence and of the particle type, both part of the settings' keys.
    GLAttribute_cls(unsigned int sequence, int index, const std::shared_ptr<const ParamHost_cls>& host = {});
    GLAttribute_cls(const GLAttribute_cls&) = delete;
    GLAttribute_cls& operator=(const GLAttribute_cls&) = delete;

    /// Settings and curves.
    void SetToDefault();
    int GetIndex() const { return mIndex; }
    /// The curve of SnapAttribute_cls::Curve.
    ColorCurve_cls& GetCurve(int curve) { return *mCurves.at(static_cast<size_t>(curve)); }
    /// The curve that the eye sees as the particles' colour, as they are drawn now.
    ColorCurve_cls& GetMainCurve();
    bool DrawsPoints() const;
    bool DrawsBillboards() const;
    bool DrawsSpheres() const;

    /// What the drawable state needs to know.
    SnapAttribute_cls GetSnapAttribute() const;
    /// The drawable state is built anew when these change: they are part of its colours.
    struct Alpha {
        unsigned int type;
        float factor;
        float dependBase;
        float max;
        bool operator==(const Alpha&) const = default;
    };
    Alpha GetAlpha() const;

    // Rules of drawing; stepFactor is one of Thinning_cls

    float GetRadiusFactor() const;
    float GetDrawnRadius(float dataRadius, float stepFactor) const;
    /// `alpha` is the drawable state's.
    float GetDrawnAlpha(float alpha, float drawnRadius, float stepFactor) const;

    // OpenGL, in the current context

    /// Loads the billboard's picture anew.
    void RefreshTex() { mTexture.RefreshTex(mTexFileBillboard.GetItemStr()); }
    /// Name of the billboard's texture, of the file in the setting.
    unsigned int GetTextureName() { return mTexture.GetName(mTexFileBillboard.GetItemStr()); }

    /// The shaders for surfaces, see ShaderCtrl_cls.
    static void InitializeShader(bool verbose);
    /// Switches this attribute's shader on for a number of lights.
    void BeginShader(int lights) const;
    static void EndShader();

    // Text

    wxString Serialize() const;
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mDrawType;  ///< SnapAttribute_cls::DrawType
    ConfItemUINT_cls mDrawQuality;
    ConfItemUINT_cls mBlendType;
    ConfItemUINT_cls mRadiusType;
    ConfItemFLOAT_cls mRadiusFactor;
    ConfItemFLOAT_cls mRadiusFactorForConst;
    ConfItemINT_cls mPointSize;
    ConfItemUINT_cls mAlphaType;  ///< SnapAttribute_cls::AlphaType
    ConfItemUINT_cls mShaderType;
    ConfItemFLOAT_cls mAlphaFactor;
    ConfItemFLOAT_cls mAlphaDependBase;
    ConfItemFLOAT_cls mAlphaMax;
    ConfItemSTR_cls mTexFileBillboard;

  private:
    const int mIndex;
    const wxString mPrefix;
    ConfItemList_cls mItems;
    std::array<std::unique_ptr<ColorCurve_cls>, SnapAttribute_cls::kCurveCount> mCurves;
    BillboardTexture_cls mTexture;
};
