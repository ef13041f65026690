#pragma once

#include <wx/statusbr.h>

class Playback_cls;
class wxButton;
class wxGauge;
struct FrameContext_cls;

/// The status bar: what is being read and how far, frame and data time, particles drawn, memory. Where data
/// let the user wait, a gauge with a button that stops the reading. Owned by the main window. Threads: GUI
/// thread.
class FrameStatus_cls : public wxStatusBar {
  public:
    FrameStatus_cls(wxWindow* parent, const FrameContext_cls& context, Playback_cls& playback);

    void RefreshFromModel();

  private:
    void Put(int field, const wxString& text);
    wxString Reading() const;
    wxString Instant() const;
    wxString Drawn() const;
    wxString Memory() const;

    void ShowProgress();
    void PlaceProgress();

    const FrameContext_cls& mContext;
    Playback_cls& mPlayback;
    long long mShownAt = 0;
    wxGauge* mGauge;
    wxButton* mStop;
};
