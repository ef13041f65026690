#include "gui/clsPovRayPages.h"

#include <wx/checkbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include "gui/clsSettingsPage.h"
#include "gui/clsWords.h"
#include "output/clsPicture.h"
#include "pov/clsPovRayCtrl.h"

namespace {

/// A row that says whether the path above is there, while it is typed too.
void AddExistence(SettingsPage_cls& page, wxTextCtrl& path,
                  const std::function<bool(const wxString&)>& check) {
    auto* word = new wxStaticText(&page, wxID_ANY, {});
    word->SetName(path.GetName() + " exists");
    page.AddWindow({}, word);
    const auto show = [word, &path, check] {
        // The second is spelled as it always was.
        word->SetLabel(check(path.GetValue()) ? _("File exists.") : _("File dose not exist."));
    };
    path.Bind(wxEVT_TEXT, [show](wxCommandEvent& event) {
        show();
        event.Skip();
    });
    page.AddRefresher(show);
}

Setting_cls<bool> Switch(const wxString& name, ConfItemBOOL_cls& item) {
    return BindAs<bool>(name, item.mValue);
}

}  // namespace

SettingsPage_cls* MakePovPathPage(wxWindow* parent, PovRayCtrl_cls& control) {
    auto* page = new SettingsPage_cls(parent);
    AddExistence(*page,
                 page->AddText(_("Renderer"), _("Path of the POV-Ray program"),
                               BindText(_("Renderer"), control.mPathPovRay)),
                 &PovRayCtrl_cls::IsThere);
    AddExistence(*page,
                 page->AddText(_("Working directory"), _("Folder that receives scenes, options and pictures"),
                               BindText(_("Working directory"), control.mPathPovWork)),
                 &PovRayCtrl_cls::IsThere);
    page->BeginGroup(_("File names"));
    page->AddText(_("Single frame"), _("Without extension; %04d becomes the frame number in four digits"),
                  BindText(_("Single frame"), control.mFilePovSnap));
    page->AddText(_("Animation"), _("Without extension; %04d becomes the frame number in four digits"),
                  BindText(_("Animation"), control.mFilePovAnim));
    page->AddCheck(_("Absolute paths in option files"),
                   _("Option files name the scene and the picture by their full paths"),
                   Switch(_("Absolute paths"), control.GetFormat().mFileAbsolute));
    page->AddCheck(_("Common scene file"), _("What all frames share is written once, to CommonScene.pov"),
                   Switch(_("Common scene file"), control.mUseCommonSceneFile));
    page->AddCheck(_("Tweaks"), _("Scenes take in Tweaks.inc of the working directory: text of your own"),
                   Switch(_("Tweaks"), control.mTweaks));
    return page;
}

SettingsPage_cls* MakePovPicturePage(wxWindow* parent, PovRayCtrl_cls& control) {
    auto* page = new SettingsPage_cls(parent);
    PovFormat_cls& format = control.GetFormat();
    wxArrayString labels;
    for (const PovFormat_cls::FormatRow& row : PovFormat_cls::GetFormats()) labels.Add(row.label);
    page->AddChoice(_("Format"), _("File format of the pictures"), labels,
                    BindAs<unsigned int>(_("Format"), format.mOutputFormat.mValue));
    auto* note = new wxStaticText(page, wxID_ANY, {});
    page->AddWindow({}, note);
    page->AddRefresher([note, &format] {
        const bool refused = !*format.GetFormat().extension;
        note->SetLabel(refused ? _("POV-Ray for Linux does not write this format.") : wxString());
    });
    const NumberLimits_cls size = {
        .min = 1, .max = Picture_cls::kLargestSide, .whole = true, .unit = _("pixels")};
    page->AddNumber(_("Width"), _("Width of the picture in pixels"), size,
                    BindNumber(_("Width"), format.mCameraWidth.mValue));
    page->AddNumber(_("Height"), _("Height of the picture in pixels"), size,
                    BindNumber(_("Height"), format.mCameraHeight.mValue));
    page->AddCheck(_("Alpha channel"), _("The background is transparent"),
                   Switch(_("Alpha channel"), format.mOutputAlpha));
    page->AddCheck(_("Show while rendering"), _("The renderer shows the picture in a window of its own"),
                   Switch(_("Show while rendering"), format.mDisplay));
    page->AddCheck(_("Wait when done"), _("That window stays until a key is pressed; not in animations"),
                   Switch(_("Wait when done"), format.mPauseWhenDone));

    page->BeginGroup(_("Quality"));
    wxCheckBox& antialias =
        page->AddCheck(_("Antialias"), _("Smooth edges by more rays where colours differ"),
                       Switch(_("Antialias"), format.mAntialias));
    NumberField_cls& threshold = page->AddNumber(
        _("Threshold"), _("Difference of colour, 0 to 3, from which on more rays are shot"),
        {.min = 0.0, .max = 3.0}, BindNumber(_("Threshold"), format.mAntiAliasThreshold.mValue));
    NumberField_cls& depth = page->AddNumber(
        _("Depth"), _("Rays along each side of a pixel that is smoothed"),
        {.min = 1, .max = 9, .whole = true}, BindNumber(_("Depth"), format.mAntiAliasDepth.mValue));
    wxCheckBox& jitter = page->AddCheck(_("Jitter"), _("Shifts those rays a little at random"),
                                        Switch(_("Jitter"), format.mJitter));
    NumberField_cls& amount =
        page->AddNumber(_("Amount"), _("How far, in distances between the rays"), {.min = 0.0, .max = 1.0},
                        BindNumber(_("Amount"), format.mJitterAmount.mValue));
    page->AddRefresher([&antialias, &threshold, &depth, &jitter, &amount, &format] {
        const bool on = format.mAntialias.mValue;
        antialias.SetValue(on);
        threshold.Enable(on);
        depth.Enable(on);
        jitter.Enable(on);
        amount.Enable(on && format.mJitter.mValue);
    });
    page->AddCheck(_("Fast coloring"),
                   _("Particles whose colours differ by less than one step of a picture share one texture"),
                   Switch(_("Fast coloring"), format.mFastColoring));
    page->AddChoice(_("Bounding"), _("How the renderer finds what a ray meets"),
                    Words({_("Slabs"), _("Tree (large scenes)")}),
                    BindAs<unsigned int>(_("Bounding"), format.mBoundingMethod.mValue));
    page->AddNumber(
        _("Trace level"),
        _("How often a ray is reflected or refracted; scenes with transparent particles take 200"),
        {.min = 1, .max = 200, .whole = true},
        BindNumber(_("Trace level"), control.GetAdvanced().mMaxTraceLevel.mValue));
    return page;
}

SettingsPage_cls* MakePovLightPage(wxWindow* parent, PovRayCtrl_cls& control) {
    auto* page = new SettingsPage_cls(parent);
    PovRadiosity_cls& light = control.GetRadiosity();
    const auto whole = [](double max) { return NumberLimits_cls{.min = 1, .max = max, .whole = true}; };
    const NumberLimits_cls share = {.min = 0.0001, .max = 1.0};
    page->BeginGroup(_("Radiosity"));
    page->AddChoice(_("Indirect light"), _("Light that particles throw on each other"),
                    Words({_("None"), _("Radiosity")}),
                    BindAs<unsigned int>(_("Indirect light"), light.mType.mValue));
    page->AddNumber(_("Rays"), _("Rays shot for each sample of the indirect light"), whole(1600),
                    BindNumber(_("Rays"), light.mCount.mValue));
    page->AddNumber(_("Error bound"), _("Smaller is finer and slower"), {.min = 0.001, .max = 100.0},
                    BindNumber(_("Error bound"), light.mError.mValue));
    page->AddNumber(_("Minimum reuse"), _("Smallest distance of samples, as a share of the picture's width"),
                    share, BindNumber(_("Minimum reuse"), light.mMinimumReuse.mValue));
    page->AddNumber(_("Bounces"), _("How often light is thrown on"), whole(20),
                    BindNumber(_("Bounces"), light.mRecursionLimit.mValue));
    page->AddNumber(_("Nearest samples"), _("Samples that are blended for a point"), whole(20),
                    BindNumber(_("Nearest samples"), light.mNearestCount.mValue));
    page->AddNumber(_("Pretrace start"), _("Size of the first coarse blocks, as a share of the picture"),
                    share, BindNumber(_("Pretrace start"), light.mPretraceStart.mValue));
    page->AddNumber(_("Pretrace end"), _("Size of the last coarse blocks, as a share of the picture"), share,
                    BindNumber(_("Pretrace end"), light.mPretraceEnd.mValue));
    page->AddCheck(_("No ambient light"), _("Radiosity takes the place of the ambient light"),
                   Switch(_("No ambient light"), light.mZeroAmbient));
    page->AddCheck(_("Media"), _("Radiosity of media"), Switch(_("Media"), light.mMedia));
    page->AddCheck(_("Normals"), _("Radiosity looks at bumps of surfaces"),
                   Switch(_("Normals"), light.mNormal));
    page->AddChoice(_("Samples"), _("Samples are kept in a file for later pictures, or taken from it"),
                    Words({_("Made anew"), _("Saved to the file"), _("Read from the file")}),
                    BindAs<unsigned int>(_("Samples"), light.mReuse.mValue));
    page->AddText(_("Samples file"), _("Path of that file"), BindText(_("Samples file"), light.mPathDir));
    page->AddChoice(_("Reproducible"), _("The same picture in every run, at the price of time"),
                    Words({_("Off"), _("On")}),
                    BindAs<unsigned int>(_("Reproducible"), light.mHighReproduce.mValue));

    PovPhotons_cls& photons = control.GetPhotons();
    page->BeginColumn();
    page->BeginGroup(_("Photons"));
    page->AddChoice(_("Photons"), _("Light that transparent spheres gather"), Words({_("None"), _("On")}),
                    BindAs<unsigned int>(_("Photons"), photons.mType.mValue));
    page->AddNumber(_("Number"), _("Photons shot, in thousands"),
                    {.min = 1, .max = 100000, .whole = true, .unit = _("thousand")},
                    BindNumber(_("Number"), photons.mCount.mValue));
    page->AddNumber(_("Photon bounces"), _("How often a photon is reflected or refracted"), whole(256),
                    BindNumber(_("Photon bounces"), photons.mMaxTrace.mValue));
    return page;
}

SettingsPage_cls* MakePovAnimationPage(wxWindow* parent, PovRayCtrl_cls& control) {
    auto* page = new SettingsPage_cls(parent);
    PovRender_cls& render = control.GetRender();
    page->AddChoice(_("Region"), _("Frames that an animation renders"),
                    Words({_("Work area"), _("Active area"), _("Custom")}),
                    BindAs<unsigned int>(_("Region"), render.mRegion.mValue));
    const NumberLimits_cls frames = {.min = 0, .max = 99999, .whole = true, .unit = _("frame")};
    NumberField_cls& first = page->AddNumber(_("First"), _("First frame of the custom region"), frames,
                                             BindNumber(_("First"), render.mCustomMin.mValue));
    NumberField_cls& last = page->AddNumber(_("Last"), _("Last frame of the custom region"), frames,
                                            BindNumber(_("Last"), render.mCustomMax.mValue));
    page->AddRefresher([&first, &last, &render] {
        const bool custom = render.mRegion.mValue == PovRender_cls::kCustom;
        first.Enable(custom);
        last.Enable(custom);
    });
    // Not kept in projects: a project from elsewhere must not bring commands.
    page->AddText(_("After each picture"), _("A command for the shell, run in the working directory"),
                  {[&control] { return control.GetPostSceneCommand(); },
                   [&control](const wxString& command) { control.SetPostSceneCommand(command); }});
    return page;
}
