#include "gui/clsInformationGUI.h"

#include <wx/listctrl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include "gui/clsFrameContext.h"
#include "gui/clsOneDialog.h"

namespace {

constexpr const char* kInformationTitle = "Information";
constexpr int kInfoWidth = 560;
constexpr int kDataHeight = 165;
constexpr int kFrameHeight = 310;
constexpr int kInfoNameWidth = 150;

}  // namespace

InformationGUI_cls::InformationGUI_cls(wxWindow* parent, const Information_cls& information)
    : wxDialog(parent, wxID_ANY, kInformationTitle, wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE | wxRESIZE_BORDER, "information"),
      mInformation(information) {
    auto* column = new wxBoxSizer(wxVERTICAL);
    const auto add = [this, column](const wxString& heading, int height) {
        auto* title = new wxStaticText(this, wxID_ANY, heading);
        title->SetFont(title->GetFont().Bold());
        column->Add(title, 0, wxLEFT | wxRIGHT | wxTOP, FromDIP(10));
        auto* list = new wxListCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(kInfoWidth, height)),
                                    wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL);
        list->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(kInfoNameWidth));
        list->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(kInfoWidth - kInfoNameWidth - 20));
        list->SetToolTip(heading);
        column->Add(list, height, wxEXPAND | wxALL, FromDIP(10));
        return list;
    };
    mData = add("Data", kDataHeight);
    mFrame = add("Frame", kFrameHeight);
    column->Add(CreateSeparatedButtonSizer(wxCLOSE), 0, wxEXPAND | wxALL, FromDIP(10));
    SetEscapeId(wxID_CLOSE);
    // A dialog that blocks nothing ends for good when it is closed.
    Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { Destroy(); }, wxID_CLOSE);
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent&) { Destroy(); });
    SetSizerAndFit(column);
    ShowSettings(kAll);
}

void InformationGUI_cls::Fill(wxListCtrl& list, const std::vector<Information_cls::Row>& rows) {
    list.Freeze();
    list.DeleteAllItems();
    for (size_t i = 0; i < rows.size(); ++i) {
        const long item = list.InsertItem(static_cast<long>(i), rows[i].name);
        list.SetItem(item, 1, rows[i].value);
    }
    list.Thaw();
}

void InformationGUI_cls::ShowSettings(std::uint64_t) {
    Fill(*mData, mInformation.GetDataRows());
    Fill(*mFrame, mInformation.GetFrameRows());
}

void OpenInformation(wxWindow* parent, FrameContext_cls& context) {
    OneDialog::Show<InformationGUI_cls>(*parent, kInformationTitle, [&] {
        return new InformationGUI_cls(parent,
                                      Information_cls(context.seqCtrl, context.dataLoader, context.timeCtrl));
    });
}
