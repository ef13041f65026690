#pragma once

#include <functional>
#include <set>
#include <vector>

#include "timeline/clsParamGroup.h"

/// The lanes of the timeline: the trees of parameter groups as rows, from top to bottom. A row is a group or,
/// in an expanded group of several, one of its components.
/// Groups come and go, so the rows are gathered anew before they are used; what is expanded is remembered by
/// the names on the way to it. Owned by the timeline's model. Threads: GUI thread.
class TimelineTree_cls {
  public:
    struct Row {
        ParamGroup_cls* group = nullptr;
        int component = -1;  ///< of the group, -1 for all of it
        int depth = 0;
        bool expandable = false;
        bool expanded = false;
        wxString path;  ///< names from the tree's root, for remembering

        wxString GetName() const;
        bool IsSame(const Row& other) const { return group == other.group && component == other.component; }
    };

    /// `isHidden` leaves groups out for reasons of its own.
    explicit TimelineTree_cls(const std::vector<ParamGroup_cls*>& trees,
                              std::function<bool(const ParamGroup_cls&)> isHidden = {})
        : mTrees(trees), mIsHidden(std::move(isHidden)) {}

    /// Gathers the rows of what the trees hold now.
    void Update();
    const std::vector<Row>& GetRows() const { return mRows; }
    /// Row of this number; none beyond the end.
    const Row* GetRow(int number) const;

    void SetExpanded(const Row& row, bool expanded);
    /// Leaves out groups without any animated parameter.
    void SetOnlyKeyed(bool on) { mOnlyKeyed = on; }
    bool IsOnlyKeyed() const { return mOnlyKeyed; }
    void SetHideShy(bool on) { mHideShy = on; }
    bool IsHideShy() const { return mHideShy; }

    /// Parameters that a row stands for, those of the listed groups below included.
    std::vector<Parameters_cls*> GetParameters(const Row& row) const;
    /// All listed parameters of all trees, whatever is expanded.
    std::vector<Parameters_cls*> GetAllParameters() const;

  private:
    bool IsListed(const ParamGroup_cls& group) const;
    bool IsAnimated(ParamGroup_cls& group) const;
    void AddRows(ParamGroup_cls& group, int depth, const wxString& parentPath);
    void Gather(ParamGroup_cls& group, std::vector<Parameters_cls*>& parameters) const;

    const std::vector<ParamGroup_cls*>& mTrees;
    const std::function<bool(const ParamGroup_cls&)> mIsHidden;
    std::vector<Row> mRows;
    bool mOnlyKeyed = false;
    bool mHideShy = true;
    /// Containers begin expanded, groups of components collapsed; here are those that were changed.
    std::set<wxString> mChanged;
};
