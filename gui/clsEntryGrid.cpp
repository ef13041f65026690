#include "gui/clsEntryGrid.h"

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

EntryGrid_cls::EntryGrid_cls(wxDialog& dialog, std::function<void()> accept)
    : mDialog(dialog),
      mAccept(std::move(accept)),
      mGrid(new wxFlexGridSizer(3, dialog.FromDIP(wxSize(10, 6)))) {
    mGrid->AddGrowableCol(1);
}

wxSizer* EntryGrid_cls::GetSizer() const {
    return mGrid;
}

EntryGrid_cls::Entry& EntryGrid_cls::AddNumber(const wxString& label, const wxString& tip,
                                               std::optional<double> value) {
    const wxString text = value ? NumberLimits_cls::Format(*value, false) : wxString();
    Entry entry{
        new wxTextCtrl(&mDialog, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER),
        new wxStaticText(&mDialog, wxID_ANY, wxString()), text};
    entry.text->SetToolTip(tip);
    entry.text->SetName(label);
    entry.text->SetMinSize(entry.text->GetSizeFromTextSize(mDialog.GetTextExtent("-0000.000000000000")));
    if (!value) entry.text->SetHint("several");
    entry.text->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { mAccept(); });
    entry.mark->Hide();
    mGrid->Add(new wxStaticText(&mDialog, wxID_ANY, label), wxSizerFlags().CenterVertical());
    mGrid->Add(entry.text, wxSizerFlags().Expand());
    mGrid->Add(entry.mark, wxSizerFlags().CenterVertical());
    Entry& added = mEntries.emplace_back(entry);
    added.text->Bind(wxEVT_TEXT, [this, &added](wxCommandEvent& event) {
        Mark(added, {}, false);
        event.Skip();
    });
    return added;
}

void EntryGrid_cls::AddControl(const wxString& label, wxWindow& control) {
    mGrid->Add(new wxStaticText(&mDialog, wxID_ANY, label), wxSizerFlags().CenterVertical());
    mGrid->Add(&control, wxSizerFlags().Expand());
    mGrid->AddSpacer(0);
}

void EntryGrid_cls::Mark(Entry& entry, const NumberLimits_cls& limits, bool wrong) {
    mGood = mGood && !wrong;
    if (!wrong && !entry.mark->IsShown()) return;
    limits.ShowMark(*entry.text, *entry.mark, wrong);
    entry.mark->Show(wrong);
    mDialog.GetSizer()->SetSizeHints(&mDialog);
    // A dialog that is wide enough already keeps its size, and nothing else would place the mark.
    mDialog.Layout();
}

std::optional<double> EntryGrid_cls::Read(Entry& entry, const NumberLimits_cls& limits) {
    if (entry.text->GetValue() == entry.before || !entry.text->IsEnabled()) {
        Mark(entry, limits, false);
        return std::nullopt;
    }
    const std::optional<double> value = limits.Read(entry.text->GetValue());
    Mark(entry, limits, !value);
    return value;
}

bool EntryGrid_cls::TakeGood() {
    return std::exchange(mGood, true);
}
