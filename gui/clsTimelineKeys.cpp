#include "gui/clsTimelineKeys.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "timeline/clsParamEdit.h"
#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

namespace {

/// Selected keys take the place of others at their times.
void DropCovered(Parameters_cls& parameter) {
    Parameters_cls::State state = parameter.GetState();
    std::vector<double> times;
    for (const KeyFrame_cls& key : state.keys) {
        if (key.mSelected) times.push_back(key.mTime);
    }
    const auto isCovered = [&times](const KeyFrame_cls& key) {
        const auto next = std::lower_bound(times.begin(), times.end(), key.mTime - Parameters_cls::kSameTime);
        return !key.mSelected && next != times.end() && *next <= key.mTime + Parameters_cls::kSameTime;
    };
    if (std::erase_if(state.keys, isCovered) > 0) parameter.SetState(state);
}

/// The same for one key.
void DropOthersAt(Parameters_cls& parameter, int index) {
    if (index < 0) return;
    const double time = parameter.GetKeys().at(static_cast<size_t>(index)).mTime;
    for (int i = parameter.GetKeyNumber() - 1; i >= 0; --i) {
        const bool same =
            std::abs(parameter.GetKeys()[static_cast<size_t>(i)].mTime - time) <= Parameters_cls::kSameTime;
        if (i != index && same) parameter.DeleteKey(i);
    }
}

}  // namespace

TimelineKeys_cls::Lane TimelineKeys_cls::GetAnimated() const {
    Lane lane = mTree.GetAllParameters();
    std::erase_if(lane, [](const Parameters_cls* parameter) { return !parameter->IsTimeDependent(); });
    return lane;
}

double TimelineKeys_cls::SnapToFrame(double t) const {
    const int maxFrame = mTimeCtrl.GetMaxFrame();
    return maxFrame > 0 ? std::round(t * maxFrame) / maxFrame : t;
}

double TimelineKeys_cls::Clean(double t) const {
    const double frame = SnapToFrame(t);
    return std::abs(frame - t) <= Parameters_cls::kSameTime ? frame : t;
}

// Selecting

std::optional<double> TimelineKeys_cls::FindKey(const Lane& lane, double t, double range) {
    std::optional<double> nearest;
    for (const Parameters_cls* parameter : lane) {
        if (!parameter->IsTimeDependent()) continue;
        const int i = parameter->FindKey(t, nearest ? std::abs(*nearest - t) : range);
        if (i >= 0) nearest = parameter->GetKeys()[static_cast<size_t>(i)].mTime;
    }
    return nearest;
}

bool TimelineKeys_cls::IsSelected(const Lane& lane, double t) {
    return std::any_of(lane.begin(), lane.end(), [t](const Parameters_cls* parameter) {
        const int i = parameter->IsTimeDependent() ? parameter->FindKey(t) : -1;
        return i >= 0 && parameter->GetKeys()[static_cast<size_t>(i)].mSelected;
    });
}

void TimelineKeys_cls::Select(const Lane& lane, double t, bool select) {
    for (Parameters_cls* parameter : lane) {
        if (parameter->IsTimeDependent()) parameter->SelectKeyFrame(parameter->FindKey(t), select);
    }
}

void TimelineKeys_cls::SelectRegion(const Lane& lane, double from, double to) {
    for (Parameters_cls* parameter : lane) {
        if (parameter->IsTimeDependent()) parameter->SelectKeyFrameRegion(from, to);
    }
}

void TimelineKeys_cls::SelectAll() {
    constexpr double kAll = std::numeric_limits<double>::infinity();
    SelectRegion(GetAnimated(), -kAll, kAll);
}

void TimelineKeys_cls::DeselectAll() {
    for (Parameters_cls* parameter : mTree.GetAllParameters()) parameter->DeselectAll();
}

bool TimelineKeys_cls::HasSelection() const {
    const Lane lane = GetAnimated();
    return std::any_of(lane.begin(), lane.end(),
                       [](const Parameters_cls* parameter) { return parameter->GetSelectedKeyNum() > 0; });
}

int TimelineKeys_cls::GetSelectedType() const {
    int type = -1;
    for (const Parameters_cls* parameter : GetAnimated()) {
        for (const KeyFrame_cls& key : parameter->GetKeys()) {
            if (!key.mSelected) continue;
            if (type >= 0 && type != static_cast<int>(key.mType)) return -1;
            type = static_cast<int>(key.mType);
        }
    }
    return type;
}

// Moving

void TimelineKeys_cls::ChangeSelected(const wxString& name,
                                      const std::function<void(Parameters_cls&)>& edit) const {
    const UndoBlock_cls block(name);
    for (Parameters_cls* parameter : GetAnimated()) {
        if (parameter->GetSelectedKeyNum() > 0) ParamEdit_cls(*parameter).Change(name, edit);
    }
}

void TimelineKeys_cls::MoveSelected(const wxString& name, double timeOffset, double valueOffset) {
    const double offset = LimitOffset(timeOffset);
    if (offset == 0.0 && valueOffset == 0.0) return;
    ChangeSelected(name, [=, this](Parameters_cls& parameter) {
        Parameters_cls::State state = parameter.GetState();
        for (KeyFrame_cls& key : state.keys) {
            if (!key.mSelected) continue;
            key.mTime = Clean(key.mTime + offset);
            key.mValue += valueOffset;
        }
        parameter.SetState(state);
        DropCovered(parameter);
    });
}

double TimelineKeys_cls::LimitOffset(double timeOffset) const {
    double first = std::numeric_limits<double>::infinity();
    double last = -first;
    for (const Parameters_cls* parameter : GetAnimated()) {
        for (const KeyFrame_cls& key : parameter->GetKeys()) {
            if (!key.mSelected) continue;
            first = std::min(first, key.mTime);
            last = std::max(last, key.mTime);
        }
    }
    // Keys stay in the scene; those that are outside may come nearer.
    return std::clamp(timeOffset, std::min(0.0, -first), std::max(0.0, 1.0 - last));
}

void TimelineKeys_cls::BeginDrag(double grabbed) {
    mGrabbed = grabbed;
    GCUndoList.BeginDrag("Move Keys");
}

void TimelineKeys_cls::DragTo(double t, double valueOffset) {
    if (!mGrabbed) return;
    GCUndoList.RestartDrag();
    const bool sameFrame = mTimeCtrl.GetMaxFrame() == 0 || SnapToFrame(t) == SnapToFrame(*mGrabbed);
    MoveSelected("Move Keys", sameFrame ? 0.0 : SnapToFrame(t) - *mGrabbed, valueOffset);
    GCUndoList.ExecUpdate();
}

void TimelineKeys_cls::EndDrag() {
    if (!mGrabbed) return;
    mGrabbed.reset();
    GCUndoList.EndDrag();
}

void TimelineKeys_cls::CancelDrag() {
    if (!mGrabbed) return;
    mGrabbed.reset();
    GCUndoList.CancelDrag();
}

void TimelineKeys_cls::MoveByFrames(int frames) {
    if (mTimeCtrl.GetMaxFrame() == 0) return;
    MoveSelected("Move Keys", static_cast<double>(frames) / mTimeCtrl.GetMaxFrame(), 0.0);
}

// Editing

void TimelineKeys_cls::Delete(const wxString& name) {
    ChangeSelected(name, [](Parameters_cls& parameter) { parameter.DeleteSelectedKey(); });
}

void TimelineKeys_cls::SetType(unsigned int type) {
    ChangeSelected("Key Types", [type](Parameters_cls& parameter) {
        std::vector<Parameters_cls::KeyType> types;
        for (int i = 0; i < parameter.GetKeyNumber(); ++i) {
            if (parameter.GetKeys()[static_cast<size_t>(i)].mSelected) types.push_back({i, type});
        }
        parameter.SetKeyTypeMulti(types);
    });
}

void TimelineKeys_cls::InsertKey(const Lane& lane, double t) {
    DeselectAll();
    const UndoBlock_cls block("Insert Key");
    for (Parameters_cls* parameter : lane) {
        ParamEdit_cls edit(*parameter);
        edit.SetTimeDependent(true);
        edit.InsertKey(t);
    }
    Select(lane, t);
}

void TimelineKeys_cls::SetTimeDependent(const Lane& lane, bool timeDependent) {
    const UndoBlock_cls block(timeDependent ? "Animate" : "Make Constant");
    for (Parameters_cls* parameter : lane) ParamEdit_cls(*parameter).SetTimeDependent(timeDependent);
}

void TimelineKeys_cls::ChangeKeys(const Lane& lane, double t, const Change& change) {
    const UndoBlock_cls block("Change Key");
    for (size_t i = 0; i < lane.size(); ++i) {
        Parameters_cls& parameter = *lane[i];
        const int index = parameter.FindKey(t);
        if (index < 0) continue;
        const std::optional<double> value = i < change.values.size() ? change.values[i] : std::nullopt;
        ParamEdit_cls(parameter).Change("Change Key", [&](Parameters_cls& edited) {
            KeyFrame_cls key = edited.GetKeys()[static_cast<size_t>(index)];
            key.SetValue(value.value_or(key.mValue), change.velocity.value_or(key.mVelocity),
                         change.easeFactor.value_or(key.mEaseFactor));
            key.mTime = change.time.value_or(key.mTime);
            key.mType = change.type.value_or(key.mType);
            DropOthersAt(edited, edited.OverwriteKey(index, key));
        });
    }
}

// Clipboard

void TimelineKeys_cls::Copy() const {
    if (!mClipboard.put || !HasSelection()) return;
    const Lane all = mTree.GetAllParameters();
    const ParamGroup_cls* only = nullptr;
    bool several = false;
    for (const Parameters_cls* parameter : GetAnimated()) {
        if (parameter->GetSelectedKeyNum() == 0) continue;
        several = several || (only && only != parameter->GetGroup());
        only = parameter->GetGroup();
    }
    KeyClipboard_cls::Rows rows;
    for (const Parameters_cls* parameter : all) {
        if (!several && parameter->GetGroup() != only) continue;
        rows.emplace_back();
        if (parameter->IsTimeDependent()) rows.back() = parameter->GetSelectedKeys();
    }
    mClipboard.put(KeyClipboard_cls::Write(rows));
}

void TimelineKeys_cls::Cut() {
    if (!HasSelection()) return;
    Copy();
    Delete("Cut Keys");
}

bool TimelineKeys_cls::Paste(const TimelineTree_cls::Row* row, double t) {
    if (!mClipboard.get) return false;
    KeyClipboard_cls::Rows rows = KeyClipboard_cls::Read(mClipboard.get());
    const double offset = SnapToFrame(t) - KeyClipboard_cls::GetFirstTime(rows);
    for (std::vector<KeyFrame_cls>& keys : rows) {
        for (KeyFrame_cls& key : keys) key.mTime = Clean(key.mTime + offset);
    }
    const auto isFilled = [](const auto& keys) { return !keys.empty(); };
    const auto filled = std::find_if(rows.begin(), rows.end(), isFilled);
    if (filled == rows.end()) return false;

    Lane target = mTree.GetAllParameters();
    if (rows.size() != target.size()) {
        if (!row) return false;
        const bool single = std::count_if(rows.begin(), rows.end(), isFilled) == 1;
        if (row->component >= 0 && single) {
            target = mTree.GetParameters(*row);
            rows = {*filled};
        } else {
            target.clear();
            for (int i = 0; i < row->group->GetDimension(); ++i)
                target.push_back(&row->group->GetParameter(i));
        }
    }

    bool pasted = false;
    DeselectAll();
    const UndoBlock_cls block("Paste Keys");
    for (size_t i = 0; i < std::min(rows.size(), target.size()); ++i) {
        if (rows[i].empty()) continue;
        pasted = true;
        ParamEdit_cls(*target[i]).Change("Paste Keys", [&](Parameters_cls& parameter) {
            parameter.SetTimeDependent(true);
            parameter.PasteKeys(rows[i], 0.0);
        });
    }
    return pasted;
}
