#include "timeline/clsParamGroup.h"

#include <algorithm>
#include <cmath>

#include "seam/clsLineStream.h"
#include "seam/clsTextCoding.h"
#include "timeline/clsKeyClipboard.h"

ParamGroup_cls::ParamGroup_cls(const wxString& name, int dimension,
                               const std::vector<wxString>& componentNames, const wxString& identifier,
                               bool timeDependent, std::shared_ptr<const ParamHost_cls> host)
    : mName(name), mContainer(false), mHost(std::move(host)) {
    for (int i = 0; i < dimension; ++i) {
        const size_t index = static_cast<size_t>(i);
        const wxString component =
            index < componentNames.size() ? componentNames[index] : wxString::Format("%d", i);
        mParameters.emplace_back(component, identifier + "." + component, mHost, this, timeDependent);
    }
    SetUpItems();
}

ParamGroup_cls::ParamGroup_cls(const wxString& name, std::shared_ptr<const ParamHost_cls> host)
    : mName(name), mContainer(true), mHost(std::move(host)) {
    SetUpItems();
}

ParamGroup_cls::~ParamGroup_cls() {
    if (mParent) mParent->RemoveChild(*this);
    for (ParamGroup_cls* child : mChildren) child->mParent = nullptr;
}

void ParamGroup_cls::SetUpItems() {
    mItems.Add(&mDimension, "dimension=", wxString::Format("%d", GetDimension()));
    mItems.Add(&mShyMode, "shyMode=", "0");
}

template <class Group, class Function>
void ParamGroup_cls::ForEach(Group& group, const Function& function) {
    for (auto& parameter : group.mParameters) function(parameter);
    for (ParamGroup_cls* child : group.mChildren) ForEach<Group>(*child, function);
}

// Tree

bool ParamGroup_cls::AddChild(ParamGroup_cls& child) {
    if (child.mParent) return false;
    for (const ParamGroup_cls* above = this; above; above = above->mParent) {
        if (above == &child) return false;
    }
    child.mParent = this;
    mChildren.push_back(&child);
    return true;
}

void ParamGroup_cls::RemoveChild(ParamGroup_cls& child) {
    if (child.mParent != this) return;
    child.mParent = nullptr;
    std::erase(mChildren, &child);
}

Parameters_cls* ParamGroup_cls::GetPCParamFromID(const wxString& identifier) {
    for (Parameters_cls& parameter : mParameters) {
        if (parameter.GetID() == identifier) return &parameter;
    }
    Parameters_cls* found = nullptr;
    for (ParamGroup_cls* child : mChildren) found = child->GetPCParamFromID(identifier);
    return found;
}

void ParamGroup_cls::ReplaceID(const wxString& oldID, const wxString& newID) {
    ForEach(*this, [&](Parameters_cls& parameter) {
        wxString rest;
        if (parameter.GetID().StartsWith(oldID, &rest) && (rest.empty() || rest[0] == '.'))
            parameter.SetID(newID + rest);
    });
}

// Evaluation

std::array<double, 3> ParamGroup_cls::GetVector(double t) const {
    std::array<double, 3> vector{};
    for (int i = 0; i < 3; ++i)
        vector[static_cast<size_t>(i)] = GetParameter(i).Evaluate(t, Parameters_cls::msResolution);
    return vector;
}

std::vector<double> ParamGroup_cls::GetInterpolatedValue(double t, double resolution) {
    std::vector<double> values;
    values.reserve(mParameters.size());
    for (Parameters_cls& parameter : mParameters) {
        values.push_back(t == Parameters_cls::kCurrentTime ? parameter.GetCurrentValue()
                                                           : parameter.GetInterpolatedValue(t, resolution));
    }
    return values;
}

void ParamGroup_cls::GetInterpolatedValue4Fast(float* out, double t, double resolution) const {
    const double time = Parameters_cls::ResolveTime(t);
    const double step = Parameters_cls::ResolveResolution(resolution);
    for (size_t i = 0; i < 4; ++i)
        out[i] = i < mParameters.size() ? static_cast<float>(mParameters[i].Evaluate(time, step)) : 0.0F;
}

// Keys

void ParamGroup_cls::SetKeyFrame(const double* values, bool addKey, double t, double range) {
    const double time = Parameters_cls::ResolveTime(t);
    for (Parameters_cls& parameter : mParameters) SetOne(parameter, *values++, addKey, time, range);
}

void ParamGroup_cls::SetOne(Parameters_cls& parameter, double value, bool addKey, double time, double range) {
    if (!std::isfinite(value)) return;
    parameter.SetCurrentValue(value);
    int index = 0;
    if (parameter.IsTimeDependent() || parameter.GetKeyNumber() == 0) {
        index = parameter.FindKey(time, range);
        if (index < 0 && addKey) index = parameter.InsertKey(time);
        if (index < 0) return;
    }
    KeyFrame_cls key = parameter.GetKeys()[static_cast<size_t>(index)];
    key.mValue = value;
    parameter.OverwriteKey(index, key);
}

bool ParamGroup_cls::SetKeyFrameIfChanged(double t, double range) {
    const double time = Parameters_cls::ResolveTime(t);
    bool changed = false;
    ForEach(*this, [&](Parameters_cls& parameter) {
        const double value = parameter.GetCurrentValue();
        if (value == parameter.Evaluate(time, Parameters_cls::msResolution)) return;
        SetOne(parameter, value, true, time, range);
        changed = true;
    });
    return changed;
}

void ParamGroup_cls::InsertKey(double t) {
    ForEach(*this, [t](Parameters_cls& parameter) { parameter.InsertKey(t); });
}

void ParamGroup_cls::DeleteKey(double t, double range) {
    const double time = Parameters_cls::ResolveTime(t);
    ForEach(*this, [&](Parameters_cls& parameter) {
        if (parameter.GetKeyNumber() > 1) parameter.DeleteKey(parameter.FindKey(time, range));
    });
}

int ParamGroup_cls::DeleteSelectedKey() {
    int count = 0;
    ForEach(*this, [&](Parameters_cls& parameter) { count += parameter.DeleteSelectedKey(); });
    return count;
}

void ParamGroup_cls::SetTimeDependent(bool timeDependent) {
    ForEach(*this, [=](Parameters_cls& parameter) { parameter.SetTimeDependent(timeDependent); });
}

bool ParamGroup_cls::IsKeyFrameAll(double t, double range) const {
    const double time = Parameters_cls::ResolveTime(t);
    int parameters = 0;
    int keyed = 0;
    ForEach(*this, [&](const Parameters_cls& parameter) {
        ++parameters;
        keyed += parameter.IsKeyFrame(time, range) ? 1 : 0;
    });
    return parameters > 0 && keyed == parameters;
}

int ParamGroup_cls::SelectKeyFrameRegion(double from, double to) {
    int count = 0;
    ForEach(*this, [&](Parameters_cls& parameter) { count += parameter.SelectKeyFrameRegion(from, to); });
    return count;
}

int ParamGroup_cls::SelectKeyByXY(double time, double value, double timeRange, double valueRange) {
    int count = 0;
    ForEach(*this, [&](Parameters_cls& parameter) {
        for (int i = 0; i < parameter.GetKeyNumber(); ++i) {
            const KeyFrame_cls& key = parameter.GetKeys()[static_cast<size_t>(i)];
            if (!(std::abs(key.mTime - time) <= timeRange && std::abs(key.mValue - value) <= valueRange))
                continue;
            parameter.SelectKeyFrame(i);
            ++count;
        }
    });
    return count;
}

void ParamGroup_cls::MoveSelectedKeyByXY(double timeOffset, double valueOffset) {
    ForEach(*this, [=](Parameters_cls& parameter) { parameter.MoveSelectedKey(timeOffset, valueOffset); });
}

void ParamGroup_cls::DeselectAll() {
    ForEach(*this, [](Parameters_cls& parameter) { parameter.DeselectAll(); });
}

void ParamGroup_cls::RemapKeys(double factor) {
    ForEach(*this, [=](Parameters_cls& parameter) { parameter.RemapKeys(factor); });
}

void ParamGroup_cls::Quantize(double resolution) {
    ForEach(*this, [=](Parameters_cls& parameter) { parameter.Quantize(resolution); });
}

void ParamGroup_cls::Flip() {
    ForEach(*this, [](Parameters_cls& parameter) { parameter.Flip(); });
}

void ParamGroup_cls::Swap(int count) {
    if (count < 2 || count > GetDimension()) return;
    const std::vector<KeyFrame_cls> first = GetParameter(0).GetKeys();
    for (int i = 0; i < count; ++i) {
        Parameters_cls::State state = GetParameter(i).GetState();
        state.keys = i + 1 < count ? GetParameter(i + 1).GetKeys() : first;
        GetParameter(i).SetState(state);
    }
}

void ParamGroup_cls::CopyFromP(const ParamGroup_cls& other) {
    for (int i = 0; i < std::min(GetDimension(), other.GetDimension()); ++i)
        GetParameter(i).CopyFromP(other.GetParameter(i));
}

void ParamGroup_cls::CopyParamGroupFromP(const ParamGroup_cls& other) {
    CopyFromP(other);
    mShyMode.mValue = other.mShyMode.mValue;
    for (size_t i = 0; i < std::min(mChildren.size(), other.mChildren.size()); ++i)
        mChildren[i]->CopyParamGroupFromP(*other.mChildren[i]);
}

void ParamGroup_cls::CopyKeyFrameToClipBoard() const {
    if (!mHost || !mHost->putClipboard) return;
    KeyClipboard_cls::Rows rows;
    bool any = false;
    ForEach(*this, [&](const Parameters_cls& parameter) {
        rows.push_back(parameter.GetSelectedKeys());
        any = any || !rows.back().empty();
    });
    if (any) mHost->putClipboard(KeyClipboard_cls::Write(rows));
}

int ParamGroup_cls::PasteKeyFrameFromClipBoard(double t) {
    if (!mHost || !mHost->getClipboard) return 0;
    const KeyClipboard_cls::Rows rows = KeyClipboard_cls::Read(mHost->getClipboard());
    const double offset = Parameters_cls::ResolveTime(t) - KeyClipboard_cls::GetFirstTime(rows);
    auto row = rows.begin();
    int count = 0;
    ForEach(*this, [&](Parameters_cls& parameter) {
        if (row != rows.end()) count += parameter.PasteKeys(*row++, offset);
    });
    return count;
}

void ParamGroup_cls::CreateKeyDLG(double t) {
    if (mHost && mHost->createKeyDialog) mHost->createKeyDialog(*this, Parameters_cls::ResolveTime(t));
}

// Text

wxString ParamGroup_cls::Serialize() const {
    if (mContainer) return SerializeChilds();
    wxString text = "-ParamGroup=" + mName + "\n" + mItems.SerializeAll() + "Start\n";
    for (const Parameters_cls& parameter : mParameters) text += parameter.Serialize();
    return text;
}

wxString ParamGroup_cls::SerializeChilds() const {
    wxString text;
    for (const ParamGroup_cls* child : mChildren) {
        text += child->Serialize();
        if (!child->mContainer) text += child->SerializeChilds();
    }
    return text;
}

bool ParamGroup_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    if (!mContainer && line == "-ParamGroup=" + mName) {
        ReadBlock(stream);
        return true;
    }
    return std::any_of(mChildren.begin(), mChildren.end(),
                       [&](ParamGroup_cls* child) { return child->ReadStrLine(stream, line); });
}

void ParamGroup_cls::ReadBlock(LineStream_cls& stream) {
    wxString line;
    while (stream.ReadLine(line) && line != "Start") {
        if (mItems.ReadStrLineAll(line) || !Parameters_cls::OpensBlock(ToBytes(line))) continue;
        stream.PutBack();  // "Start" is missing
        break;
    }
    // The number of components is the program's, whatever a file says.
    mDimension.mValue = GetDimension();

    for (Parameters_cls& parameter : mParameters) {
        // Over what a damaged block before has left; undamaged text has the header right here.
        do {
            if (!stream.ReadLine(line)) return;
        } while (!Parameters_cls::EndsBlock(ToBytes(line)));
        if (!parameter.ReadStrLine(stream, line)) stream.PutBack();
    }
}

wxString ParamGroup_cls::GetStrExpression() const {
    wxString text;
    for (const Parameters_cls& parameter : mParameters)
        text += parameter.GetStrExpression(parameter.GetName());
    return text;
}

wxString ParamGroup_cls::Export() const {
    wxString text = GetStrExpression();
    for (const ParamGroup_cls* child : mChildren) text += child->Export();
    return text;
}
