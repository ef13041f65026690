#include "gui/clsHelpSheets.h"

#include <wx/button.h>
#include <wx/clipbrd.h>
#include <wx/dataobj.h>
#include <wx/dialog.h>
#include <wx/platinfo.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/utils.h>

#include <array>
#include <utility>
#include <vector>

#include "data/clsPreference.h"
#include "gui/clsIcons.h"

namespace {

constexpr int kGap = 8;
constexpr int kColumnGap = 24;
constexpr int kLogo = 64;

/// A heading has no second text.
using Row = std::pair<wxString, wxString>;
using Rows = std::vector<Row>;

wxString AsText(const Rows& rows) {
    wxString text;
    for (const auto& [name, words] : rows) text += name + ": " + words + "\n";
    return text;
}

class HelpSheet_cls : public wxDialog {
  public:
    HelpSheet_cls(wxWindow* parent, const wxString& title)
        : wxDialog(parent, wxID_ANY, title), mColumn(new wxBoxSizer(wxVERTICAL)) {}

    void AddLogo() {
        const wxBitmapBundle logo = Icons_cls::Get("varnholt3", *this, kLogo);
        mColumn->Add(new wxStaticBitmap(this, wxID_ANY, logo),
                     wxSizerFlags().CenterHorizontal().Border(wxTOP, FromDIP(kGap)));
    }
    void AddRows(const Rows& rows) {
        auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(kColumnGap, kGap / 2)));
        for (const auto& [name, words] : rows) {
            auto* left = new wxStaticText(this, wxID_ANY, name);
            if (words.empty()) left->SetFont(left->GetFont().Bold());
            grid->Add(left, wxSizerFlags().Border(wxTOP, words.empty() ? FromDIP(kGap) : 0));
            grid->Add(new wxStaticText(this, wxID_ANY, words));
        }
        mColumn->Add(grid, wxSizerFlags().Expand().Border(wxALL, FromDIP(2 * kGap)));
    }
    void AddCopy(const wxString& text) {
        auto* copy = new wxButton(this, wxID_COPY);
        copy->SetToolTip("Copy these lines, for a report");
        copy->Bind(wxEVT_BUTTON, [text](wxCommandEvent&) {
            wxClipboardLocker lock;
            if (!!lock) wxTheClipboard->SetData(new wxTextDataObject(text));  // the clipboard owns it
        });
        mColumn->Add(copy, wxSizerFlags().Right().Border(wxRIGHT, FromDIP(2 * kGap)));
    }
    void ShowAtLast() {
        mColumn->Add(CreateSeparatedButtonSizer(wxCLOSE),
                     wxSizerFlags().Expand().Border(wxALL, FromDIP(kGap)));
        SetEscapeId(wxID_CLOSE);
        SetSizerAndFit(mColumn);
        CentreOnParent();
        FindWindow(wxID_CLOSE)->SetFocus();
        ShowModal();
    }

  private:
    wxBoxSizer* mColumn;
};

Rows MouseRows(const Preference_cls& preference) {
    constexpr std::array<const char*, Preference_cls::kGripCount> kGrips = {
        "left drag",           "middle drag",        "right drag",
        "Shift and left drag", "Ctrl and left drag", "Alt and left drag"};
    Rows rows = {{"In a view", ""}};
    for (unsigned int grip = 0; grip < kGrips.size(); ++grip) {
        switch (preference.GetGesture(static_cast<Preference_cls::MouseGrip>(grip))) {
            case Preference_cls::MouseGesture::Turn:
                rows.emplace_back(kGrips[grip], "turns about the anchor");
                break;
            case Preference_cls::MouseGesture::Pan:
                rows.emplace_back(kGrips[grip], "moves the view");
                break;
            case Preference_cls::MouseGesture::Zoom:
                rows.emplace_back(kGrips[grip], "nearer or farther");
                break;
            case Preference_cls::MouseGesture::None:
                break;
        }
    }
    return rows;
}

}  // namespace

void ShowMouseAndKeys(wxWindow* parent, const Preference_cls& preference) {
    Rows rows = MouseRows(preference);
    rows.insert(rows.end(), {{"wheel", "nearer or farther"},
                             {"double click", "makes a particle the anchor"},
                             {"F, K", "fit to data, key the camera"},
                             {"Esc", "takes a drag back"},
                             {"Anywhere", ""},
                             {"Space", "play or stop"},
                             {"Left, Right", "one step back or forward"},
                             {"Page Up, Page Down", "ten steps back or forward"},
                             {"Up, Down", "the previous or next frame with a key"},
                             {"Home, End", "the first or last frame of the work area"},
                             {"1 to 5", "layouts of the views"},
                             {"Esc", "stops reading"},
                             {"Ctrl+Z, Ctrl+Shift+Z", "undo and redo"}});
    HelpSheet_cls sheet(parent, "Mouse and Keys");
    sheet.AddRows(rows);
    sheet.ShowAtLast();
}

void ShowAbout(wxWindow* parent, const wxString& openGL) {
    const wxPlatformInfo& platform = wxPlatformInfo::Get();
    const Rows rows = {
        {"Varnholt 3", VARNHOLT_VERSION},
        {"OpenGL", openGL.empty() ? wxString("none") : openGL},
        {"wxWidgets", wxGetLibraryVersionInfo().GetVersionString().AfterLast(' ')},
        {"GTK", wxString::Format("%d.%d.%d", platform.GetToolkitMajorVersion(),
                                 platform.GetToolkitMinorVersion(), platform.GetToolkitMicroVersion())},
        {"System", wxGetOsDescription()}};
    HelpSheet_cls sheet(parent, "About Varnholt 3");
    sheet.AddLogo();
    sheet.AddRows({{"Animations of particle simulations", ""}});
    sheet.AddRows(rows);
    sheet.AddCopy(AsText(rows));
    sheet.ShowAtLast();
}
