#include "gui/clsEntryGrid.h"

#include <wx/dialog.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <utility>

#include "gui/clsNumberField.h"

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
    const wxString text = value ? NumberField_cls::Format(*value, false) : wxString();
    Entry entry{
        new wxTextCtrl(&mDialog, wxID_ANY, text, wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER),
        new wxStaticText(&mDialog, wxID_ANY, wxString()), text};
    entry.text->SetToolTip(tip);
    entry.text->SetName(label);
    entry.text->SetMinSize(entry.text->GetSizeFromTextSize(mDialog.GetTextExtent("-0000.000000000000")));
    if (!value) entry.text->SetHint("several");
    entry.text->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { mAccept(); });
    entry.mark->SetForegroundColour(wxColour(214, 48, 40));
    entry.mark->Hide();
    mGrid->Add(new wxStaticText(&mDialog, wxID_ANY, label), wxSizerFlags().CenterVertical());
    mGrid->Add(entry.text, wxSizerFlags().Expand());
    mGrid->Add(entry.mark, wxSizerFlags().CenterVertical());
    return mEntries.emplace_back(entry);
}

void EntryGrid_cls::AddControl(const wxString& label, wxWindow& control) {
    mGrid->Add(new wxStaticText(&mDialog, wxID_ANY, label), wxSizerFlags().CenterVertical());
    mGrid->Add(&control, wxSizerFlags().Expand());
    mGrid->AddSpacer(0);
}

void EntryGrid_cls::Mark(Entry& entry, const wxString& words) {
    mGood = mGood && words.empty();
    if (entry.mark->GetLabel() == words) return;
    entry.mark->SetLabel(words);
    entry.mark->Show(!words.empty());
    mDialog.GetSizer()->SetSizeHints(&mDialog);
}

std::optional<double> EntryGrid_cls::Read(Entry& entry, const Bounds& bounds) {
    Mark(entry, {});
    const wxString text = entry.text->GetValue().Trim().Trim(false);
    if (text == entry.before || !entry.text->IsEnabled()) return std::nullopt;
    double value = 0.0;
    if (!NumberField_cls::Parse(text, value)) {
        Mark(entry, "not a number");
    } else if (value < bounds.lowest) {
        Mark(entry, "at least " + NumberField_cls::Format(bounds.lowest, false));
    } else if (value > bounds.highest) {
        Mark(entry, "at most " + NumberField_cls::Format(bounds.highest, false));
    } else if (bounds.whole && value != static_cast<double>(static_cast<long long>(value))) {
        Mark(entry, "a whole number");
    } else {
        return value;
    }
    return std::nullopt;
}

bool EntryGrid_cls::TakeGood() {
    return std::exchange(mGood, true);
}
