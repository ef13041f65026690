#include "gui/clsTimelineTree.h"

#include <algorithm>

wxString TimelineTree_cls::Row::GetName() const {
    return component < 0 ? group->GetName() : group->GetParameter(component).GetName();
}

const TimelineTree_cls::Row* TimelineTree_cls::GetRow(int number) const {
    const bool exists = number >= 0 && number < static_cast<int>(mRows.size());
    return exists ? &mRows[static_cast<size_t>(number)] : nullptr;
}

bool TimelineTree_cls::IsListed(const ParamGroup_cls& group) const {
    if (!group.IsShown() || (mHideShy && group.IsShy()) || (mIsHidden && mIsHidden(group))) return false;
    const auto& children = group.GetChildren();
    return group.GetDimension() > 0 || std::any_of(children.begin(), children.end(),
                                                   [this](const auto* child) { return IsListed(*child); });
}

void TimelineTree_cls::Update() {
    mRows.clear();
    for (ParamGroup_cls* tree : mTrees) AddRows(*tree, 0, {});
}

void TimelineTree_cls::AddRows(ParamGroup_cls& group, int depth, const wxString& parentPath) {
    if (!IsListed(group) || (mOnlyKeyed && !IsAnimated(group))) return;
    // A group of one component is its own component.
    const bool componentRows = group.GetDimension() > 1;
    Row row{&group, -1,
            depth,  componentRows || !group.GetChildren().empty(),
            false,  parentPath + "/" + group.GetName()};
    row.expanded = row.expandable && group.IsContainer() != (mChanged.count(row.path) > 0);
    mRows.push_back(row);
    if (!row.expanded) return;
    for (int i = 0; componentRows && i < group.GetDimension(); ++i)
        mRows.push_back({&group, i, depth + 1, false, false, row.path});
    for (ParamGroup_cls* child : group.GetChildren()) AddRows(*child, depth + 1, row.path);
}

void TimelineTree_cls::SetExpanded(const Row& row, bool expanded) {
    if (!row.expandable || row.expanded == expanded) return;
    const wxString path = row.path;
    if (mChanged.erase(path) == 0) mChanged.insert(path);
    Update();
}

void TimelineTree_cls::Gather(ParamGroup_cls& group, std::vector<Parameters_cls*>& parameters) const {
    if (!IsListed(group)) return;
    for (int i = 0; i < group.GetDimension(); ++i) parameters.push_back(&group.GetParameter(i));
    for (ParamGroup_cls* child : group.GetChildren()) Gather(*child, parameters);
}

bool TimelineTree_cls::IsAnimated(ParamGroup_cls& group) const {
    std::vector<Parameters_cls*> parameters;
    Gather(group, parameters);
    return std::any_of(parameters.begin(), parameters.end(),
                       [](const Parameters_cls* parameter) { return parameter->IsTimeDependent(); });
}

std::vector<Parameters_cls*> TimelineTree_cls::GetParameters(const Row& row) const {
    if (row.component >= 0) return {&row.group->GetParameter(row.component)};
    std::vector<Parameters_cls*> parameters;
    Gather(*row.group, parameters);
    return parameters;
}

std::vector<Parameters_cls*> TimelineTree_cls::GetAllParameters() const {
    std::vector<Parameters_cls*> parameters;
    for (ParamGroup_cls* tree : mTrees) Gather(*tree, parameters);
    return parameters;
}
