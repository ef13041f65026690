#include "gui/clsGLAttributeGUI.h"

#include <wx/choice.h>
#include <wx/textctrl.h>

#include "gui/clsColorCurveBtn.h"
#include "gui/clsWords.h"
#include "render/clsColorCurveCtrl.h"
#include "render/clsGLAttribute.h"

GLAttributeGUI_cls::GLAttributeGUI_cls(wxWindow* parent, GLAttribute_cls& attribute, ColorCurveCtrl_cls& ctrl)
    : SettingsPage_cls(parent),
      mAttribute(attribute),
      mTitle(wxString::Format("Attrib %d", attribute.GetIndex())) {
    AddTypes();
    AddRadius();
    AddAlpha();
    AddColors(ctrl);
}

void GLAttributeGUI_cls::EnableWhen(wxWindow& control, std::function<bool()> condition) {
    AddRefresher([&control, condition = std::move(condition)] { control.Enable(condition()); });
}

void GLAttributeGUI_cls::AddTypes() {
    GLAttribute_cls& a = mAttribute;
    BeginGroup(_("Type/Quality"));
    AddChoice(
        _("Type"),
        _("What stands for a particle: a point of fixed size in pixels, a textured square that faces the "
          "camera, a lit sphere, both a point and a sphere, or nothing"),
        Words({_("Point"), _("Billboard"), _("Sphere"), _("Both"), _("Hide")}),
        BindAs<unsigned int>(mTitle + " : " + _("Type"), a.mDrawType.mValue));
    EnableWhen(AddChoice(_("Quality"),
                         _("How finely spheres are made of facets; ray-cast ones are round at any size"),
                         Words({_("Low"), _("Middle"), _("High"), _("Ray-cast")}),
                         BindAs<unsigned int>(mTitle + " : " + _("Quality"), a.mDrawQuality.mValue)),
               [&a] { return a.DrawsSpheres(); });

    BeginGroup(_("Modes"));
    AddChoice(
        _("Blending"),
        _("AlphaBlend: a particle covers what lies behind it as far as it is opaque. Additive: light adds "
          "up, crowded places shine."),
        Words({_("AlphaBlend"), _("Additive")}),
        BindAs<unsigned int>(mTitle + " : " + _("Blending"), a.mBlendType.mValue));
    EnableWhen(AddChoice(_("Shader"), _("How spheres are lit"),
                         Words({_("original"), _("Gouroud"), _("Phong"), _("Toon")}),
                         BindAs<unsigned int>(mTitle + " : " + _("Shader"), a.mShaderType.mValue)),
               [&a] { return a.DrawsSpheres(); });
    AddFile(_("Texture"), _("The picture on billboards; it must have an alpha channel"),
            _("Pictures") + " (*.png;*.tif;*.tiff;*.bmp)|*.png;*.tif;*.tiff;*.bmp",
            BindText(mTitle + " : " + _("Texture"), a.mTexFileBillboard));
}

void GLAttributeGUI_cls::AddRadius() {
    GLAttribute_cls& a = mAttribute;
    BeginGroup(_("Radius"));
    EnableWhen(AddChoice(_("Radius Type"),
                         _("Use Data: the radius each particle has in the data. Constant: the same for all."),
                         Words({_("Use Data"), _("Constant (unity)")}),
                         BindAs<unsigned int>(mTitle + " : " + _("Radius Type"), a.mRadiusType.mValue)),
               [&a] { return a.DrawsSpheres() || a.DrawsBillboards(); });
    const Setting_cls<double> ofData = BindNumber(mTitle + " : Radius Factor", a.mRadiusFactor.mValue);
    const Setting_cls<double> constant =
        BindNumber(mTitle + " : Radius Factor", a.mRadiusFactorForConst.mValue);
    const auto inEffect = [&a, ofData, constant]() -> const Setting_cls<double>& {
        return a.mRadiusType.mValue == GLAttribute_cls::kConstantRadius ? constant : ofData;
    };
    EnableWhen(
        AddSlider(_("Radius Factor"),
                  _("Use Data: the data's radii are multiplied by it. Constant: the radius itself, in the "
                    "data's length unit."),
                  {.low = 1e-4, .high = 100.0, .logarithmic = true}, {.min = 0.0},
                  {[inEffect] { return inEffect().get(); },
                   [inEffect](const double& value) { inEffect().set(value); }}),
        [&a] { return a.DrawsSpheres() || a.DrawsBillboards(); });
    EnableWhen(AddSlider(_("Point Size"), _("Diameter of points in pixels"), {.low = 1.0, .high = 40.0},
                         {.min = 1.0, .max = 1000.0, .whole = true, .unit = _("px")},
                         BindNumber(mTitle + " : Point Size", a.mPointSize.mValue)),
               [&a] { return a.DrawsPoints(); });
}

void GLAttributeGUI_cls::AddAlpha() {
    GLAttribute_cls& a = mAttribute;
    const auto dependsOnRadius = [&a] { return a.mAlphaType.mValue == SnapAttribute_cls::kDependOnRadius; };
    BeginGroup(_("Alpha"));
    AddChoice(
        _("Alpha Type"),
        _("Constant: the colour's opacity times the factor. Depend on R: it falls with the square of the "
          "particle's radius, so that wide particles are thin."),
        Words({_("Constant (unity)"), _("Depend on R (power -2)")}),
        BindAs<unsigned int>(mTitle + " : " + _("Alpha Type"), a.mAlphaType.mValue));
    EnableWhen(AddSlider(_("Alpha Factor"), _("Multiplies the opacity of all particles; 1 leaves it"),
                         {.low = 0.001, .high = 1.0, .logarithmic = true}, {.min = 0.0},
                         BindNumber(mTitle + " : Alpha Factor", a.mAlphaFactor.mValue)),
               [dependsOnRadius] { return !dependsOnRadius(); });
    const std::vector<NumberField_cls*> bounds = AddNumbers(
        _("Base/Max"),
        _("Base: the radius, in the data's length unit, at which the opacity is the colour's own. Max: "
          "small particles are not more opaque than this."),
        {.min = 0.0},
        {BindNumber(mTitle + " : Base/Max", a.mAlphaDependBase.mValue),
         BindNumber(mTitle + " : Base/Max", a.mAlphaMax.mValue)});
    for (NumberField_cls* bound : bounds) EnableWhen(*bound, dependsOnRadius);
}

void GLAttributeGUI_cls::AddColors(ColorCurveCtrl_cls& ctrl) {
    const GLAttribute_cls& a = mAttribute;
    const auto spheres = [&a] { return a.DrawsSpheres(); };
    BeginGroup(_("Color"));
    AddCurve(_("Color"), SnapAttribute_cls::kColor, ctrl,
             [&a] { return a.DrawsPoints() || a.DrawsBillboards(); });
    BeginGroup(_("Material"));
    AddCurve(_("Ambient"), SnapAttribute_cls::kAmbient, ctrl, spheres);
    AddCurve(_("Diffuse"), SnapAttribute_cls::kDiffuse, ctrl, spheres);
    AddCurve(_("Specular"), SnapAttribute_cls::kSpecular, ctrl, spheres);
}

void GLAttributeGUI_cls::AddCurve(const wxString& label, int curve, ColorCurveCtrl_cls& ctrl,
                                  std::function<bool()> condition) {
    auto* button = new ColorCurveBtn_cls(this, label, mAttribute.GetCurve(curve), ctrl);
    AddWindow(label, button);
    // Copy and paste stay: curves are carried over when the type of drawing changes.
    EnableWhen(button->GetGradient(), std::move(condition));
}
