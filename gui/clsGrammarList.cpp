#include "gui/clsGrammarList.h"

#include <wx/bmpbuttn.h>
#include <wx/listctrl.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/translation.h>

#include <algorithm>
#include <utility>

#include "data/clsGrammerBase.h"
#include "data/clsLoadPreset.h"
#include "gui/clsIcons.h"
#include "gui/clsSpacing.h"

namespace {

constexpr int kNameWidth = 90;
constexpr int kListHeight = 228;

}  // namespace

GrammarList_cls::GrammarList_cls(wxWindow* parent, Part part,
                                 std::function<void(const std::vector<int>& codes)> changed)
    : wxPanel(parent), mPart(part), mChanged(std::move(changed)) {
    const bool isHeader = part == Part::Header;
    auto* title =
        new wxStaticText(this, wxID_ANY, isHeader ? _("Header, once") : _("Body, for each particle"));
    title->SetFont(title->GetFont().Bold());
    mList = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(2 * kNameWidth, kListHeight)),
                           wxLC_REPORT | wxLC_SINGLE_SEL, wxDefaultValidator,
                           isHeader ? _("Header items") : _("Body items"));
    mList->SetToolTip(
        _("Items in the order of the file. Drag them, or press Alt with the up and down keys, to move "
          "them; Insert adds one, Delete removes it."));
    mList->AppendColumn(_("Item"), wxLIST_FORMAT_LEFT, FromDIP(kNameWidth));
    mList->AppendColumn({}, wxLIST_FORMAT_LEFT, FromDIP(kNameWidth));

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const auto addButton = [&](const wxString& icon, const wxString& name, const wxString& tooltip,
                               auto action) {
        auto* button = new wxBitmapButton(this, wxID_ANY, Icons_cls::Get(icon, *this), wxDefaultPosition,
                                          wxDefaultSize, 0, wxDefaultValidator, name);
        button->SetBitmapDisabled(Icons_cls::GetFaded(icon, *this));
        button->SetToolTip(tooltip);
        button->Bind(wxEVT_BUTTON, [action](wxCommandEvent&) { action(); });
        buttons->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(Spacing::kTight)));
        return button;
    };
    mAdd = addButton("add", "Add", _("Adds an item behind the selected one"), [this] { AskWhatToAdd(); });
    mRemove = addButton("remove", "Remove", _("Removes the selected item"), [this] { Remove(); });
    mUp = addButton("up", "Up", _("Moves the selected item towards the beginning of the file"),
                    [this] { Move(-1); });
    mDown = addButton("down", "Down", _("Moves the selected item towards the end of the file"),
                      [this] { Move(1); });

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(title, wxSizerFlags().Border(wxBOTTOM, FromDIP(Spacing::kTight)));
    sizer->Add(mList, wxSizerFlags(1).Expand());
    sizer->Add(buttons, wxSizerFlags().Border(wxTOP, FromDIP(Spacing::kTight)));
    SetSizer(sizer);

    mList->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { ShowButtons(); });
    mList->Bind(wxEVT_LIST_ITEM_DESELECTED, [this](wxListEvent&) { ShowButtons(); });
    mList->Bind(wxEVT_LIST_BEGIN_DRAG, [this](wxListEvent& event) {
        mDragged = event.GetIndex();
        mList->SetCursor(wxCursor(wxCURSOR_HAND));
    });
    mList->Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        mList->SetColumnWidth(
            1, std::max(mList->GetClientSize().x - mList->GetColumnWidth(0), FromDIP(kNameWidth)));
    });
    mList->Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent&) { AskWhatToAdd(); });
    // The rows are a window of their own inside the list.
    for (wxWindow* child : mList->GetChildren()) {
        child->Bind(wxEVT_LEFT_UP, &GrammarList_cls::OnDragEnd, this);
        child->Bind(wxEVT_CHAR_HOOK, &GrammarList_cls::OnKey, this);
    }
}

void GrammarList_cls::Show(std::vector<int> codes, bool text) {
    // The code that says there is no header is an empty list here.
    std::erase(codes, LoadPreset_cls::kNoHeader);
    if (codes == mCodes && text == mText && mList->GetItemCount() > 0) return;
    mCodes = std::move(codes);
    mText = text;
    Fill();
}

void GrammarList_cls::Fill() {
    const bool isHeader = mPart == Part::Header;
    wxListItem heading;
    heading.SetMask(wxLIST_MASK_TEXT);
    heading.SetText(!mText ? _("Byte") : isHeader ? _("Line") : _("Column"));
    mList->SetColumn(1, heading);
    mList->DeleteAllItems();
    unsigned int place = mText ? 1 : 0;
    for (size_t i = 0; i < mCodes.size(); ++i) {
        const int code = mCodes[i];
        const unsigned int units =
            isHeader ? GrammerBase_cls::HeadUnits(code) : GrammerBase_cls::BodyUnits(code);
        const unsigned int size = mText ? units : 4 * units;
        const long row = mList->InsertItem(static_cast<long>(i), isHeader ? GrammerBase_cls::HeadName(code)
                                                                          : GrammerBase_cls::BodyName(code));
        mList->SetItem(
            row, 1,
            size > 1 ? wxString::Format("%u - %u", place, place + size - 1) : wxString::Format("%u", place));
        place += size;
    }
    ShowButtons();
}

long GrammarList_cls::GetSelected() const {
    return mList->GetFirstSelected();
}

void GrammarList_cls::ShowButtons() {
    const long selected = GetSelected();
    mAdd->Enable(mCodes.size() < ConfArray_cls::kMaxDimension);
    mRemove->Enable(selected >= 0);
    mUp->Enable(selected > 0);
    mDown->Enable(selected >= 0 && selected + 1 < static_cast<long>(mCodes.size()));
}

void GrammarList_cls::Change(size_t selected) {
    wxWindow* pressed = FindFocus();
    Fill();
    if (!mCodes.empty()) {
        const auto row = static_cast<long>(std::min(selected, mCodes.size() - 1));
        mList->Select(row);
        mList->Focus(row);
    }
    ShowButtons();
    // A button that was disabled for a moment has lost the keyboard, and Escape would go nowhere.
    (pressed && pressed->IsEnabled() ? pressed : mList)->SetFocus();
    mChanged(mCodes);
}

bool GrammarList_cls::MayAdd(int code) const {
    return mPart == Part::Header || GrammerBase_cls::IsRepeatable(code) ||
           std::ranges::find(mCodes, code) == mCodes.end();
}

void GrammarList_cls::AskWhatToAdd() {
    if (mCodes.size() >= ConfArray_cls::kMaxDimension) return;
    wxMenu menu;
    const bool isHeader = mPart == Part::Header;
    const int last = isHeader ? GrammerBase_cls::kLastHeadCode : GrammerBase_cls::kLastBodyCode;
    for (int code = 0; code <= last; ++code) {
        if (!MayAdd(code)) continue;
        const wxString name = isHeader ? GrammerBase_cls::HeadName(code) : GrammerBase_cls::BodyName(code);
        const int id = menu.Append(wxID_ANY, name)->GetId();
        menu.Bind(
            wxEVT_MENU, [this, code](wxCommandEvent&) { Add(code); }, id);
    }
    PopupMenu(&menu);
}

void GrammarList_cls::Add(int code) {
    const long selected = GetSelected();
    const size_t place = selected < 0 ? mCodes.size() : static_cast<size_t>(selected) + 1;
    mCodes.insert(mCodes.begin() + static_cast<std::ptrdiff_t>(place), code);
    Change(place);
}

void GrammarList_cls::Remove() {
    const long selected = GetSelected();
    if (selected < 0) return;
    mCodes.erase(mCodes.begin() + selected);
    Change(static_cast<size_t>(selected));
}

void GrammarList_cls::Move(int direction) {
    const long from = GetSelected();
    const long to = from + direction;
    if (from < 0 || to < 0 || to >= static_cast<long>(mCodes.size())) return;
    MoveTo(static_cast<size_t>(from), static_cast<size_t>(to));
}

void GrammarList_cls::MoveTo(size_t from, size_t to) {
    const int code = mCodes[from];
    mCodes.erase(mCodes.begin() + static_cast<std::ptrdiff_t>(from));
    mCodes.insert(mCodes.begin() + static_cast<std::ptrdiff_t>(to), code);
    Change(to);
}

void GrammarList_cls::OnKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_DELETE) {
        Remove();
    } else if (key == WXK_INSERT) {
        AskWhatToAdd();
    } else if (event.AltDown() && (key == WXK_UP || key == WXK_DOWN)) {
        Move(key == WXK_UP ? -1 : 1);
    } else {
        event.Skip();
    }
}

void GrammarList_cls::OnDragEnd(wxMouseEvent& event) {
    event.Skip();
    const long from = std::exchange(mDragged, -1);
    if (from < 0 || from >= static_cast<long>(mCodes.size())) return;
    mList->SetCursor(wxNullCursor);
    const auto* rows = dynamic_cast<wxWindow*>(event.GetEventObject());
    const int y = mList->ScreenToClient(rows->ClientToScreen(event.GetPosition())).y;
    long to = 0;
    for (wxRect row; to + 1 < static_cast<long>(mCodes.size()); ++to) {
        if (mList->GetItemRect(to, row) && y < row.GetBottom()) break;
    }
    if (to != from) MoveTo(static_cast<size_t>(from), static_cast<size_t>(to));
}
