#pragma once

#include <functional>

#include "gui/clsTimelineModel.h"

class wxMenu;
class wxWindow;

/// The context menus of the timeline. Made on the spot. Threads: GUI thread.
class TimelineMenu_cls {
  public:
    TimelineMenu_cls(TimelineModel_cls& model, wxWindow& window) : mModel(model), mWindow(window) {}

    /// Keys of a row at a time: the menu over the tracks.
    void ShowForKeys(int row, double t);
    /// The row itself: the menu over the names.
    void ShowForRow(int row);
    /// A frame: the menu over the ruler.
    void ShowForFrame(int frame);

  private:
    void Add(wxMenu& menu, const wxString& label, std::function<void()> action, bool enabled = true);
    void AddCheck(wxMenu& menu, const wxString& label, bool checked, std::function<void()> action);
    void AddTypes(wxMenu& menu);
    void AddRowEntries(wxMenu& menu, const TimelineTree_cls::Row& row);

    TimelineModel_cls& mModel;
    wxWindow& mWindow;
};
