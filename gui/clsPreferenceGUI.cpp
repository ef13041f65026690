#include "gui/clsPreferenceGUI.h"

#include <wx/choice.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "data/clsPDataSeqCtrl.h"
#include "data/clsPreference.h"
#include "gui/clsWords.h"

namespace {

constexpr double kMaxMemoryMB = 4e6;
constexpr double kMaxThreads = 64;

}  // namespace

PreferenceGUI_cls::PreferenceGUI_cls(wxWindow* parent, Preference_cls& preference,
                                     const PDataSeqCtrl_cls& data, const std::function<void()>& apply)
    : SettingsPage_cls(parent), mPreference(preference), mApply(apply) {
    AddMemory(data);
    BeginGroup(_("Work"));
    AddNumber(_("Thread (I/O)"), _("Workers that read a text file together"),
              {.min = 1, .max = kMaxThreads, .whole = true},
              BindNumber(_("Thread (I/O)"), preference.mReaderThreads.mValue, mApply));
    AddChoice(
        _("Sort precision"),
        _("The order of very many transparent particles. Approximate: so many at a time are merged, which is "
          "faster and may leave small disorder."),
        Words({_("Precise"), _("Approximate 10"), _("Approximate 100"), _("Approximate 1000")}),
        BindAs<unsigned int>(_("Sort precision"), preference.mSortType.mValue, mApply));
    AddSlider(_("JPEG quality"), _("Of saved JPEG pictures: 1 small files, 100 best pictures"),
              {.low = 1, .high = 100}, {.min = 1, .max = 100, .whole = true},
              BindNumber(_("JPEG quality"), preference.mJpegQuality.mValue, mApply));
    AddNumber(_("Autosave interval"), _("Unsaved work is kept aside for the next start so often; 0: never"),
              {.min = 0, .max = 1440, .whole = true, .unit = _("minutes")},
              BindNumber(_("Autosave interval"), preference.mAutosaveInterval.mValue, mApply));
    AddMouse();
}

void PreferenceGUI_cls::AddMemory(const PDataSeqCtrl_cls& data) {
    BeginGroup(_("Memory Limit(MB)"));
    AddNumber(_("Critical"), _("Snapshots that are not needed at once are released above so much memory"),
              {.min = 1, .max = kMaxMemoryMB, .whole = true, .unit = _("MB"), .step = 256},
              BindNumber(_("Memory Limit(MB)"), mPreference.mMemoryLimit.mValue, mApply));
    auto* used = new wxStaticText(this, wxID_ANY, {});
    used->SetToolTip(_("What the snapshots in memory take now"));
    AddWindow(_("NowUsed"), used);
    AddRefresher(
        [used, &data] { used->SetLabel(wxString::Format(_("%d MB"), data.GetUsedTotalMemoryMB())); });
}

void PreferenceGUI_cls::AddMouse() {
    const wxArrayString grips =
        Words({_("Left button"), _("Middle button"), _("Right button"), _("Shift + left button"),
               _("Ctrl + left button"), _("Alt + left button")});
    const auto add = [&](const wxString& label, const wxString& tooltip, ConfItemUINT_cls& item) {
        AddChoice(label, tooltip, grips, BindAs<unsigned int>(label, item.mValue, mApply));
    };
    BeginGroup(_("Mouse in the views"));
    add(_("Turn"), _("Drag that turns the camera about the pivot"), mPreference.mMouseTurn);
    add(_("Pan"), _("Drag that moves the camera sideways"), mPreference.mMousePan);
    add(_("Zoom"), _("Drag that moves the camera nearer or farther; the wheel does it too"),
        mPreference.mMouseZoom);
    auto* warning = new wxStaticText(this, wxID_ANY, {});
    warning->SetForegroundColour(wxColour(214, 48, 49));
    AddWindow({}, warning);
    AddRefresher([this, warning] {
        const unsigned int turn = mPreference.mMouseTurn.mValue;
        const unsigned int pan = mPreference.mMousePan.mValue;
        const unsigned int zoom = mPreference.mMouseZoom.mValue;
        const bool twice = turn == pan || turn == zoom || pan == zoom;
        warning->SetLabel(twice ? wxString::FromUTF8("\u26A0 ") + _("one drag has two meanings")
                                : wxString());
    });
}
