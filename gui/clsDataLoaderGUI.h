#pragma once

#include <wx/dialog.h>

#include "data/clsLoadDraft.h"

class GrammarList_cls;
class PreviewGrid_cls;
class SettingsPage_cls;
class wxButton;
class wxCheckBox;
class wxChoice;
class wxStaticText;
class wxTextCtrl;

/// The loader dialog: which file, how it is laid out, how its particles are followed and changed after
/// reading, with its first particles decoded as the layout stands. It edits a draft and changes nothing else;
/// opening is done by whoever showed it, when it returns wxID_OK. A file of a known kind needs no typing:
/// choosing it brings its settings. Files may be dropped on it. Owned by its caller, as is the draft, which
/// outlives it. Threads: GUI thread.
class DataLoaderGUI_cls : public wxDialog {
  public:
    static constexpr const char* kTitle = "Open Data";

    DataLoaderGUI_cls(wxWindow* parent, LoadDraft_cls& draft);

    /// As if the user had chosen it.
    void SetFile(const wxString& path);
    const LoadDraft_cls& GetDraft() const { return mDraft; }

  private:
    wxSizer* MakeFileRows();
    wxSizer* MakeLayoutChoices();
    wxSizer* MakeLists();
    SettingsPage_cls* MakeSettings();
    void AddTransforms(SettingsPage_cls& page);
    wxSizer* MakeButtons();

    void ChooseFile();
    /// The path that was typed or pasted, if one was.
    void TakeTypedFile();
    wxString GetTypedFile() const;
    /// A window without focus takes no keys.
    void FocusNext();
    /// Shows the whole draft, or only what follows from the layout.
    void ShowDraft();
    void ShowLayout();
    void ShowWords(wxStaticText& text, const wxString& words);
    void LayoutChanged();
    void TryToOpen(wxCommandEvent& event);

    LoadDraft_cls& mDraft;
    wxTextCtrl* mFile = nullptr;
    wxStaticText* mWords = nullptr;
    wxCheckBox* mAsSeries = nullptr;
    wxChoice* mPreset = nullptr;
    wxChoice* mDataType = nullptr;
    GrammarList_cls* mHeader = nullptr;
    GrammarList_cls* mBody = nullptr;
    SettingsPage_cls* mSettings = nullptr;
    wxChoice* mColors = nullptr;
    wxCheckBox* mBox = nullptr;
    PreviewGrid_cls* mPreview = nullptr;
    wxButton* mChoose = nullptr;
    wxButton* mOpen = nullptr;
};
