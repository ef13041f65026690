#pragma once

#include <wx/statusbr.h>

#include <functional>

class DrawWatch_cls;
class Playback_cls;
class ProgressLine_cls;
class wxButton;
struct FrameContext_cls;

/// The status bar: what is being read or drawn and how far, frame and data time, particles drawn, memory.
/// Where data or pictures let the user wait, a gauge with a button that stops them. Owned by the main window.
/// Threads: GUI thread.
class FrameStatus_cls : public wxStatusBar {
  public:
    FrameStatus_cls(wxWindow* parent, const FrameContext_cls& context, const Playback_cls& playback,
                    const DrawWatch_cls& watch, std::function<void()> stop);

    void RefreshFromModel();
    /// The same, on the screen when it returns.
    void PaintNow();
    /// How far pictures are that are being saved, beside what is read; empty: none are.
    void ShowSaving(const wxString& words);

  private:
    void Put(int field, const wxString& text);
    wxString Reading() const;
    wxString Instant() const;
    wxString Drawn() const;
    wxString Memory() const;

    void ShowProgress();
    void PlaceProgress();

    const FrameContext_cls& mContext;
    const Playback_cls& mPlayback;
    const DrawWatch_cls& mWatch;
    long long mShownAt = 0;
    wxString mSaving;
    ProgressLine_cls* mLine;
    wxButton* mStop;
};
