#include "gui/clsPreviewGrid.h"

#include <wx/grid.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/translation.h>

#include "data/clsRecordPreview.h"
#include "gui/clsSpacing.h"

namespace {

constexpr int kColumnWidth = 60;
constexpr int kRowLabelWidth = 36;
constexpr int kLeastGridWidth = 400;
constexpr int kLeastGridHeight = 120;

void SetCount(int there, int wanted, const auto& append, const auto& remove) {
    if (wanted > there) append(wanted - there);
    if (wanted < there) remove(there - wanted);
}

}  // namespace

PreviewGrid_cls::PreviewGrid_cls(wxWindow* parent) : wxPanel(parent) {
    auto* title = new wxStaticText(this, wxID_ANY, _("First particles"));
    title->SetFont(title->GetFont().Bold());
    mHeader = new wxStaticText(this, wxID_ANY, {});
    mSize = new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END);
    mMisfit =
        new wxStaticText(this, wxID_ANY, {}, wxDefaultPosition, wxDefaultSize, wxST_ELLIPSIZE_END, "Misfit");
    mMisfit->SetForegroundColour(Red());
    mMisfit->SetFont(mMisfit->GetFont().Bold());

    mGrid = new wxGrid(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxWANTS_CHARS, _("First particles"));
    mGrid->SetToolTip(_("The first records of the file, as they will be read with this layout"));
    mGrid->CreateGrid(0, 0);
    mGrid->EnableEditing(false);
    mGrid->DisableDragRowSize();
    mGrid->SetColMinimalAcceptableWidth(FromDIP(kColumnWidth));
    mGrid->SetDefaultCellAlignment(wxALIGN_RIGHT, wxALIGN_CENTRE);
    mGrid->SetRowLabelSize(FromDIP(kRowLabelWidth));
    mGrid->SetTabBehaviour(wxGrid::Tab_Leave);
    mGrid->SetMinSize(FromDIP(wxSize(kLeastGridWidth, kLeastGridHeight)));  // beyond that it scrolls

    auto* heading = new wxBoxSizer(wxHORIZONTAL);
    heading->Add(title, wxSizerFlags().Border(wxRIGHT, FromDIP(2 * Spacing::kRow)));
    heading->Add(mHeader);
    heading->AddStretchSpacer();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(heading, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(Spacing::kRow)));
    sizer->Add(mGrid, wxSizerFlags(1).Expand());
    sizer->Add(mSize, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kRow)));
    sizer->Add(mMisfit, wxSizerFlags().Expand().Border(wxTOP, FromDIP(Spacing::kRow / 2)));
    SetSizer(sizer);
}

wxColour PreviewGrid_cls::Red() {
    return wxSystemSettings::GetAppearance().IsDark() ? wxColour(255, 120, 110) : wxColour(190, 20, 20);
}

void PreviewGrid_cls::Show(const RecordPreview_cls& preview, const wxString& warning) {
    const wxString& red = preview.mMisfit.empty() ? warning : preview.mMisfit;
    mHeader->SetLabelText(preview.mHeader);
    mSize->SetLabelText(preview.mSize);
    mMisfit->SetLabelText(red);
    mMisfit->SetToolTip(red);
    ShowCells(preview);
    Layout();
}

void PreviewGrid_cls::ShowCells(const RecordPreview_cls& preview) {
    const wxGridUpdateLocker noFlicker(mGrid);
    SetCount(
        mGrid->GetNumberCols(), static_cast<int>(preview.mColumns.size()),
        [this](int n) { mGrid->AppendCols(n); }, [this](int n) { mGrid->DeleteCols(0, n); });
    SetCount(
        mGrid->GetNumberRows(), static_cast<int>(preview.mRows.size()),
        [this](int n) { mGrid->AppendRows(n); }, [this](int n) { mGrid->DeleteRows(0, n); });
    for (size_t column = 0; column < preview.mColumns.size(); ++column)
        mGrid->SetColLabelValue(static_cast<int>(column), preview.mColumns[column]);
    for (size_t row = 0; row < preview.mRows.size(); ++row) {
        for (size_t column = 0; column < preview.mRows[row].size(); ++column) {
            const RecordPreview_cls::Cell& cell = preview.mRows[row][column];
            const int r = static_cast<int>(row);
            const int c = static_cast<int>(column);
            mGrid->SetCellValue(r, c, cell.text.empty() ? _("missing") : cell.text);
            mGrid->SetCellTextColour(r, c, cell.good ? mGrid->GetDefaultCellTextColour() : Red());
        }
    }
    mGrid->AutoSizeColumns(false);
}
