#include "timeline/clsParamEdit.h"

#include <algorithm>
#include <cmath>

#include "timeline/clsComParam.h"
#include "timeline/clsUndoManager.h"

namespace {

/// The edit has been made: puts copies of before and after on the undo list.
void PushMementos(const wxString& name, Parameters_cls& parameter, Parameters_cls::State before,
                  Parameters_cls::State after) {
    GCUndoList.PushNewCommand(std::make_unique<ComParamMemento_cls>(parameter, std::move(after), name),
                              std::make_unique<ComParamMemento_cls>(parameter, std::move(before), name));
    GCUndoList.SkipCurrent();
}

void Gather(ParamGroup_cls& group, std::vector<Parameters_cls*>& parameters) {
    for (int i = 0; i < group.GetDimension(); ++i) parameters.push_back(&group.GetParameter(i));
    for (ParamGroup_cls* child : group.GetChildren()) Gather(*child, parameters);
}

}  // namespace

int ParamEdit_cls::PlaceFor(double time, int without) const {
    const auto& keys = mParameter.GetKeys();
    const auto after = std::partition_point(keys.begin(), keys.end(),
                                            [time](const KeyFrame_cls& key) { return !(key.mTime > time); });
    const int place = static_cast<int>(after - keys.begin());
    return without >= 0 && without < place ? place - 1 : place;
}

std::unique_ptr<CommandItem_cls> ParamEdit_cls::MakeMemento() const {
    return std::make_unique<ComParamMemento_cls>(mParameter, mParameter.GetState(), wxString());
}

std::unique_ptr<CommandItem_cls> ParamEdit_cls::UndoOfAdding(int index) const {
    // A key that is alone keeps the tangent it has, so deleting the second key would not bring that back.
    if (mParameter.GetKeyNumber() == 1) return MakeMemento();
    return std::make_unique<ComParamDelKey_cls>(mParameter, index);
}

void ParamEdit_cls::SetKey(double time, unsigned int type, double value, double velocity, double easeFactor) {
    KeyFrame_cls key;
    key.Set(time, type, value, velocity, easeFactor, false);
    if (!key.IsFinite()) return;

    std::unique_ptr<CommandItem_cls> undo;
    if (const int existing = mParameter.FindKey(time); existing >= 0) {
        undo = std::make_unique<ComParamOvwtKeyC_cls>(mParameter, existing, Key(existing));
    } else {
        undo = UndoOfAdding(PlaceFor(time));
    }
    GCUndoList.PushAndExec(
        std::make_unique<ComParamSetKey_cls>(mParameter, time, type, value, velocity, easeFactor),
        std::move(undo));
}

void ParamEdit_cls::InsertKey(double t) {
    const double time = Parameters_cls::ResolveTime(t);
    if (!std::isfinite(time) || mParameter.IsKeyFrame(time)) return;
    std::unique_ptr<CommandItem_cls> undo = UndoOfAdding(PlaceFor(time));
    const int index = mParameter.InsertKey(time);
    if (index < 0) return;
    GCUndoList.PushNewCommand(std::make_unique<ComParamSetKeyC_cls>(mParameter, Key(index), index),
                              std::move(undo));
    GCUndoList.SkipCurrent();
}

void ParamEdit_cls::OverwriteKey(int index, const KeyFrame_cls& key) {
    if (!HasKey(index) || !key.IsFinite()) return;
    auto overwrite = std::make_unique<ComParamOvwtKeyC_cls>(mParameter, index, key);
    if (key.mTime == Key(index).mTime) {
        GCUndoList.PushAndExec(std::move(overwrite),
                               std::make_unique<ComParamOvwtKeyC_cls>(mParameter, index, Key(index)));
    } else {
        // Among keys of one time the way back by index is not certain.
        GCUndoList.PushAndExec(std::move(overwrite), MakeMemento());
    }
}

void ParamEdit_cls::DeleteKey(int index) {
    if (!HasKey(index) || mParameter.GetKeyNumber() == 1) return;
    GCUndoList.PushAndExec(std::make_unique<ComParamDelKey_cls>(mParameter, index),
                           std::make_unique<ComParamSetKeyC_cls>(mParameter, Key(index), index));
}

void ParamEdit_cls::MoveKey(int index, double time) {
    if (!HasKey(index) || !std::isfinite(time) || Key(index).mTime == time) return;
    const int newIndex = PlaceFor(time, index);
    GCUndoList.PushAndExec(
        std::make_unique<ComParamMoveKey_cls>(mParameter, index, time, newIndex),
        std::make_unique<ComParamMoveKey_cls>(mParameter, newIndex, Key(index).mTime, index));
}

void ParamEdit_cls::ClearKeys(double time, double value) {
    if (!std::isfinite(time) || !std::isfinite(value)) return;
    GCUndoList.PushAndExec(std::make_unique<ComParamClearKey_cls>(mParameter, time, value), MakeMemento());
}

void ParamEdit_cls::SetKeyType(int index, unsigned int type) {
    if (!HasKey(index) || Key(index).mType == type) return;
    // Automatic types overwrite tangent or ease factor, so the old type alone would not be the way back.
    GCUndoList.PushAndExec(std::make_unique<ComParamSetKeyType_cls>(mParameter, index, type),
                           std::make_unique<ComParamOvwtKeyC_cls>(mParameter, index, Key(index)));
}

void ParamEdit_cls::SetKeyTypeMulti(const std::vector<Parameters_cls::KeyType>& types) {
    const bool changes = std::any_of(types.begin(), types.end(), [this](const Parameters_cls::KeyType& type) {
        return HasKey(type.index) && Key(type.index).mType != type.type;
    });
    if (!changes) return;
    GCUndoList.PushAndExec(std::make_unique<ComParamSetKeyTypeMulti_cls>(mParameter, types), MakeMemento());
}

void ParamEdit_cls::SetTimeDependent(bool timeDependent) {
    if (mParameter.IsTimeDependent() == timeDependent) return;
    GCUndoList.PushAndExec(std::make_unique<ComParamSetTimeDependent_cls>(mParameter, timeDependent),
                           std::make_unique<ComParamSetTimeDependent_cls>(mParameter, !timeDependent));
}

void ParamEdit_cls::Change(const wxString& name, const std::function<void(Parameters_cls&)>& edit) {
    Parameters_cls::State before = mParameter.GetState();
    edit(mParameter);
    Parameters_cls::State after = mParameter.GetState();
    if (before != after) PushMementos(name, mParameter, std::move(before), std::move(after));
}

void ParamEdit_cls::ChangeGroup(const wxString& name, ParamGroup_cls& group,
                                const std::function<void()>& edit) {
    struct Changed {
        Parameters_cls* parameter;
        Parameters_cls::State before;
        Parameters_cls::State after;
    };
    std::vector<Parameters_cls*> parameters;
    Gather(group, parameters);
    std::vector<Changed> changes;
    changes.reserve(parameters.size());
    for (Parameters_cls* parameter : parameters) changes.push_back({parameter, parameter->GetState(), {}});
    edit();
    for (Changed& change : changes) change.after = change.parameter->GetState();
    std::erase_if(changes, [](const Changed& change) { return change.before == change.after; });
    if (changes.empty()) return;

    const UndoBlock_cls block(name);
    for (Changed& change : changes)
        PushMementos(name, *change.parameter, std::move(change.before), std::move(change.after));
}
