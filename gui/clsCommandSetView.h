#pragma once

#include <functional>
#include <optional>

#include "render/clsPositionAndDirection.h"
#include "timeline/clsCommandItem.h"

/// Sets a view that no project holds: a panel's own camera, or one that was moved away from the camera path
/// and is not keyed yet. Undoable, and no reason to save.
class CommandSetView_cls final : public CommandItem_cls {
  public:
    using Pose = std::optional<PositionAndDirection_cls>;
    /// The pose must outlive the undo list's entries.
    CommandSetView_cls(const wxString& name, Pose& stored, const Pose& value)
        : CommandItem_cls(kUpdateRedraw), mName(name), mStored(stored), mValue(value) {}

    void Execute(bool) override {
        mStored = mValue;
        UpdateBit();
    }
    wxString GetName() const override { return mName; }
    bool ChangesProject() const override { return false; }

  private:
    const wxString mName;
    Pose& mStored;
    const Pose mValue;
};
