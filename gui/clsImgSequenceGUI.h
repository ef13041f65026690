#pragma once

#include <wx/dialog.h>
#include <wx/stopwatch.h>
#include <wx/timer.h>

#include <functional>

#include "gui/clsEntryGrid.h"
#include "gui/clsRenderProcess.h"
#include "output/clsImgSequence.h"

class PanelSettings_cls;
class TimeCtrl_cls;
class wxCheckBox;
class wxChoice;
class wxGauge;
class wxStaticText;
class wxTextCtrl;

/// Saves pictures or a film of a view while the window stays free: range, size, names, and while it runs
/// progress, time left, pause and cancel. What is saved is the scene as it is when Save is pressed.
/// Owned by its parent window; there is one. Threads: GUI thread. Failure: a wrong entry is marked beside its
/// field, what the writer says is shown below the progress.
class ImgSequenceGUI_cls : public wxDialog {
  public:
    /// What the dialog needs of the window; everything outlives it.
    struct Links {
        TimeCtrl_cls& timeCtrl;
        wxString program;                                    ///< this one, to run once more
        std::function<bool(const wxString& path)> saveCopy;  ///< the state as a project
        std::function<const PanelSettings_cls&()> getPanel;  ///< of the view that is meant
        std::function<wxSize()> getViewSize;                 ///< its pixels
        /// How far saving is, and, while the dialog is closed, how it ended; empty: nothing to tell.
        std::function<void(const wxString& words)> tell;
    };
    /// Makes the dialog, or shows the one there is.
    static ImgSequenceGUI_cls& Open(wxWindow& parent, const Links& links);

    bool IsSaving() const { return mChild.IsRunning(); }

  private:
    enum Range : int { kThisFrame, kWorkArea, kWholeScene, kOwnRange };
    enum Size : int { kOwnSize, kViewSize, kFirstSize };

    ImgSequenceGUI_cls(wxWindow& parent, const Links& links);
    ~ImgSequenceGUI_cls() override;

    void AddNames();
    void AddFrames();
    void AddSize();
    wxSizer* MakeProgress();
    wxSizer* MakeButtons();
    void ChooseFile();
    void ShowRange();
    void ShowSize(wxSize size);
    /// The choice of sizes says which one the entries are.
    void NameSize();
    bool ReadEntries();
    void SaveAll();
    void PauseOrGoOn();
    void OnTick();
    void ShowState();
    void ShowFilm();
    void ShowStatus(const wxString& text);
    wxString DescribeProgress() const;
    wxString DescribeEnd() const;

    const Links mLinks;
    ImgSequence_cls mSequence;
    RenderProcess_cls mChild;
    wxString mProject;  ///< the copy that the child draws
    wxTimer mTimer;
    wxStopWatch mWatch;
    bool mWasRunning = false;

    EntryGrid_cls mGrid;
    wxTextCtrl* mPattern = nullptr;
    wxCheckBox* mFilm = nullptr;
    wxTextCtrl* mMovie = nullptr;
    EntryGrid_cls::Entry* mRate = nullptr;
    wxCheckBox* mKeep = nullptr;
    wxChoice* mRange = nullptr;
    EntryGrid_cls::Entry* mFirst = nullptr;
    EntryGrid_cls::Entry* mLast = nullptr;
    EntryGrid_cls::Entry* mStep = nullptr;
    wxChoice* mSizes = nullptr;
    EntryGrid_cls::Entry* mWidth = nullptr;
    EntryGrid_cls::Entry* mHeight = nullptr;
    wxGauge* mGauge = nullptr;
    wxStaticText* mStatus = nullptr;
    wxString mStatusText;  ///< without the line ends that fit it in
    wxButton* mSave = nullptr;
    wxButton* mPause = nullptr;
    wxButton* mCancel = nullptr;
};
