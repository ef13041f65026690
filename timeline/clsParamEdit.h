#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "timeline/clsCommandItem.h"
#include "timeline/clsParamGroup.h"
#include "timeline/clsParameters.h"

/// The edits of parameters as the user makes them: each is made at once and is a step of the undo list, or a
/// part of the block that is open. Undoing gives back exactly what was before, order of keys and tangents
/// included.
/// A small handle made on the spot. Threads: GUI thread only.
/// Failure: an edit that would change nothing (no such key, a time or value that is no finite number, the
/// last key deleted) leaves no step.
class ParamEdit_cls {
  public:
    explicit ParamEdit_cls(Parameters_cls& parameter) : mParameter(parameter) {}

    void SetKey(double time, unsigned int type, double value, double velocity = 0.0, double easeFactor = 0.0);
    /// Adds a key on the curve.
    void InsertKey(double t);
    /// A key's value, tangent, type and time at once.
    void OverwriteKey(int index, const KeyFrame_cls& key);
    void DeleteKey(int index);
    void MoveKey(int index, double time);
    void ClearKeys(double time, double value);
    void SetKeyType(int index, unsigned int type);
    void SetKeyTypeMulti(const std::vector<Parameters_cls::KeyType>& types);
    void SetTimeDependent(bool timeDependent);

    /// Any other edit: `edit` works on the parameter itself, and a copy of the whole parameter is the way
    /// back.
    void Change(const wxString& name, const std::function<void(Parameters_cls&)>& edit);
    /// The same for a group and the groups below it, as one step: move, delete, paste, flip, swap. `edit`
    /// must leave the tree as it is.
    static void ChangeGroup(const wxString& name, ParamGroup_cls& group, const std::function<void()>& edit);

  private:
    /// Index at which a new key of this time comes to stand, key `without` not counted.
    int PlaceFor(double time, int without = -1) const;
    /// What takes back the adding of a key that comes to stand at the index. Made before the key is added.
    std::unique_ptr<CommandItem_cls> UndoOfAdding(int index) const;
    std::unique_ptr<CommandItem_cls> MakeMemento() const;
    bool HasKey(int index) const { return index >= 0 && index < mParameter.GetKeyNumber(); }
    const KeyFrame_cls& Key(int index) const { return mParameter.GetKeys()[static_cast<size_t>(index)]; }

    Parameters_cls& mParameter;
};
