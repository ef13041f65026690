#pragma once

#include <wx/string.h>

#include <functional>
#include <optional>
#include <vector>

#include "gui/clsTimelineTree.h"
#include "timeline/clsKeyClipboard.h"

class TimeCtrl_cls;

/// Selecting and editing the keys of all lanes, as mouse and menus ask for it. Every edit is one step of the
/// undo list, a drag as a whole. Selecting is none.
/// Only keys of animated parameters count: the one key of a constant is its value.
/// Owned by the timeline's model; holds no parameter between calls. Threads: GUI thread.
/// Units: normalised time. Failure: what cannot be done changes nothing.
class TimelineKeys_cls {
  public:
    using Lane = std::vector<Parameters_cls*>;
    /// Copied keys go to the system's clipboard, as text.
    struct Clipboard {
        std::function<void(const wxString&)> put;
        std::function<wxString()> get;
    };

    TimelineKeys_cls(TimeCtrl_cls& timeCtrl, TimelineTree_cls& tree) : mTimeCtrl(timeCtrl), mTree(tree) {}

    void SetClipboard(Clipboard clipboard) { mClipboard = std::move(clipboard); }

    // Selecting

    /// Time of the lane's key nearest to t within the range.
    static std::optional<double> FindKey(const Lane& lane, double t, double range);
    static bool IsSelected(const Lane& lane, double t);
    static void Select(const Lane& lane, double t, bool select = true);
    static void SelectRegion(const Lane& lane, double from, double to);
    void SelectAll();
    void DeselectAll();
    bool HasSelection() const;
    /// The type that all selected keys have, -1 when they differ or there are none.
    int GetSelectedType() const;

    // Dragging the selected keys

    /// `grabbed` is the time of the key under the mouse.
    void BeginDrag(double grabbed);
    /// Moves all selected keys as far as brings the grabbed one to the frame nearest to t, and their values
    /// by an offset. A key that comes to lie on another takes its place.
    void DragTo(double t, double valueOffset = 0.0);
    void EndDrag();
    void CancelDrag();
    bool IsDragging() const { return mGrabbed.has_value(); }

    // Editing

    void MoveByFrames(int frames);
    void Delete() { Delete("Delete Keys"); }
    void SetType(unsigned int type);
    /// Keys on the curves of the lane; a constant becomes animated. They are selected then.
    void InsertKey(const Lane& lane, double t);
    void SetTimeDependent(const Lane& lane, bool timeDependent);

    void Copy() const;
    void Cut();
    /// Pastes so that the first key comes to t. Keys copied from one group come to the components of the
    /// row's group, a single component's to the row's component; keys of several groups go back to those.
    bool Paste(const TimelineTree_cls::Row* row, double t);

    /// What the key dialog changes; what is missing stays.
    struct Change {
        std::optional<double> time;
        std::optional<unsigned int> type;
        std::optional<double> easeFactor;
        std::optional<double> velocity;
        std::vector<std::optional<double>> values;  ///< one for each parameter of the lane
    };
    /// Changes the keys of a lane at a time.
    static void ChangeKeys(const Lane& lane, double t, const Change& change);

    /// Nearest frame's time; t itself in a scene without frames.
    double SnapToFrame(double t) const;

  private:
    Lane GetAnimated() const;
    void Delete(const wxString& name);
    void ChangeSelected(const wxString& name, const std::function<void(Parameters_cls&)>& edit) const;
    void MoveSelected(const wxString& name, double timeOffset, double valueOffset);
    double LimitOffset(double timeOffset) const;
    /// Times that files write alike as a frame become exactly that frame's.
    double Clean(double t) const;

    TimeCtrl_cls& mTimeCtrl;
    TimelineTree_cls& mTree;
    Clipboard mClipboard;
    std::optional<double> mGrabbed;
};
