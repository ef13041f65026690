#pragma once

#include <wx/dialog.h>

#include <vector>

#include "gui/clsEntryGrid.h"
#include "gui/clsTimelineKeys.h"

class TimeCtrl_cls;
class wxChoice;

/// The key dialog: frame, interpolation and values of the keys that the components of a group have at one
/// time. What is the same in all of them is shown and changed at once; a field left empty changes nothing.
/// OK makes one step of the undo list. Modal; made on the spot. Threads: GUI thread.
/// Failure: an entry that is no number, or out of range, is marked beside its field, and the dialog stays.
class KeyFrameGUI_cls : public wxDialog {
  public:
    /// The lane's components without a key at t are left out.
    KeyFrameGUI_cls(wxWindow* parent, const TimeCtrl_cls& timeCtrl, const wxString& name,
                    const TimelineKeys_cls::Lane& lane, double t);

    bool HasKeys() const { return !mLane.empty(); }
    /// Makes the change; true when every entry was good.
    bool Apply();

  private:
    void Accept();
    void EnableFields();
    const KeyFrame_cls& GetKey(const Parameters_cls& parameter) const;
    /// The number that all keys share.
    std::optional<double> GetCommon(double KeyFrame_cls::*member) const;

    const TimeCtrl_cls& mTimeCtrl;
    TimelineKeys_cls::Lane mLane;
    const double mTime;

    EntryGrid_cls mGrid;
    EntryGrid_cls::Entry* mFrame = nullptr;
    wxChoice* mType = nullptr;
    EntryGrid_cls::Entry* mEaseFactor = nullptr;
    EntryGrid_cls::Entry* mVelocity = nullptr;
    std::vector<EntryGrid_cls::Entry*> mValues;
};
