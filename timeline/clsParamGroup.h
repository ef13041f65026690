#pragma once

#include <wx/string.h>

#include <array>
#include <deque>
#include <memory>
#include <vector>

#include "CONFITEM/clsConfItemList.h"
#include "timeline/clsParameters.h"

/// The parameters of one setting (a position has three, a colour four), keyed as one, and a tree of groups.
/// A group owns its parameters, which never move in memory, and no children: the groups of lights and of the
/// camera path belong to those, and hang in the tree of the core as long as they live. A group that is
/// destroyed leaves its parent.
/// Operations on keys act at once on all parameters of the group and of the groups below it unless said
/// otherwise; see Parameters_cls for times, undo and failures.
/// Threads: GUI thread; GetInterpolatedValue4Fast() on any thread while no key is edited.
class ParamGroup_cls {
  public:
    /// A group of `dimension` parameters. Each has the identifier `identifier` + "." + its component's name.
    ParamGroup_cls(const wxString& name, int dimension, const std::vector<wxString>& componentNames,
                   const wxString& identifier, bool timeDependent,
                   std::shared_ptr<const ParamHost_cls> host = {});
    /// A container: holds children only.
    explicit ParamGroup_cls(const wxString& name, std::shared_ptr<const ParamHost_cls> host = {});
    ~ParamGroup_cls();
    ParamGroup_cls(const ParamGroup_cls&) = delete;
    ParamGroup_cls& operator=(const ParamGroup_cls&) = delete;

    const wxString& GetName() const { return mName; }
    bool IsContainer() const { return mContainer; }
    int GetDimension() const { return static_cast<int>(mParameters.size()); }
    Parameters_cls& GetParameter(int i) { return mParameters.at(static_cast<size_t>(i)); }
    const Parameters_cls& GetParameter(int i) const { return mParameters.at(static_cast<size_t>(i)); }

    // Tree

    /// Links a group that someone else owns. False, and nothing changed, for one that has a parent already,
    /// the group itself or one it hangs under.
    bool AddChild(ParamGroup_cls& child);
    /// Takes the child out of the tree.
    void RemoveChild(ParamGroup_cls& child);
    const std::vector<ParamGroup_cls*>& GetChildren() const { return mChildren; }
    ParamGroup_cls* GetParent() const { return mParent; }

    /// The first own parameter with this identifier, else the answer of the LAST child: what earlier children
    /// found is replaced. Projects and undo lists rely on this search, so identifiers must be unique and the
    /// child that is looked up in comes last or alone.
    Parameters_cls* GetPCParamFromID(const wxString& identifier);
    /// Renames identifiers that are `oldID` or begin with `oldID` and a dot, here and in the children.
    void ReplaceID(const wxString& oldID, const wxString& newID);

    // Evaluation

    /// The first three values at t, at the display resolution; not stored.
    std::array<double, 3> GetVector(double t) const;

    /// The values at t; with t = -1.0 each current value as last evaluated, without evaluating again.
    std::vector<double> GetInterpolatedValue(double t = Parameters_cls::kCurrentTime,
                                             double resolution = Parameters_cls::kDisplayResolution);
    /// The first four values at t, not stored. Components beyond the dimension are 0.
    void GetInterpolatedValue4Fast(float* out, double t = Parameters_cls::kCurrentTime,
                                   double resolution = Parameters_cls::kDisplayResolution) const;

    // Keys
    // `range`: how far a key may be from t to count as the one at t. Tracks of the timeline pass half a
    // display step, so that an edit on a frame meets the key shown there.

    /// Gives the components one value each (`values` holds the dimension). A constant takes it as its value.
    /// An animated one gets it in its key at t, or in a new key if addKey is set; without, the value is only
    /// shown until the next evaluation. Children are not touched.
    void SetKeyFrame(const double* values, bool addKey = true, double t = Parameters_cls::kCurrentTime,
                     double range = Parameters_cls::kSameTime);
    /// Sets keys where a component's current value, as an input field left it, differs from the curve at t.
    /// Returns true when there was one.
    bool SetKeyFrameIfChanged(double t = Parameters_cls::kCurrentTime,
                              double range = Parameters_cls::kSameTime);
    void InsertKey(double t = Parameters_cls::kCurrentTime);
    /// Deletes the keys at t; the only key of a parameter stays.
    void DeleteKey(double t = Parameters_cls::kCurrentTime, double range = Parameters_cls::kSameTime);
    int DeleteSelectedKey();
    void SetTimeDependent(bool timeDependent);
    /// True when there are parameters and each has a key at t.
    bool IsKeyFrameAll(double t = Parameters_cls::kCurrentTime,
                       double range = Parameters_cls::kSameTime) const;
    int SelectKeyFrameRegion(double from, double to);
    /// Selects the keys in a box of half sizes around a time and a value; returns their number.
    int SelectKeyByXY(double time, double value, double timeRange, double valueRange);
    /// Moves all selected keys by a time and a value.
    void MoveSelectedKeyByXY(double timeOffset, double valueOffset);
    void DeselectAll();
    void RemapKeys(double factor);
    void Quantize(double resolution = Parameters_cls::kDisplayResolution);
    void Flip();
    /// Rotates the keys of the first `count` own parameters: each takes those of the next, the last those of
    /// the first. Nothing happens when the group has fewer.
    void Swap(int count = 3);
    /// Copies keys and settings of the own parameters, as many as both groups have.
    void CopyFromP(const ParamGroup_cls& other);
    /// The same with the group's settings and, child by child in order, the trees below.
    void CopyParamGroupFromP(const ParamGroup_cls& other);

    /// The selected keys of all components, and back into components of the same order.
    void CopyKeyFrameToClipBoard() const;
    int PasteKeyFrameFromClipBoard(double t = Parameters_cls::kCurrentTime);

    // Display

    bool IsShown() const { return mShown; }
    void SetShown(bool shown) { mShown = shown; }
    /// A shy group is left out of the timeline while shy groups are hidden.
    bool IsShy() const { return mShyMode.mValue; }
    void SetShy(bool shy) { mShyMode.mValue = shy; }
    /// Opens the key dialog, where there are windows.
    void CreateKeyDLG(double t = Parameters_cls::kCurrentTime);

    // Text

    /// Header, settings, "Start" and the parameters; of a container the texts of its children.
    wxString Serialize() const;
    wxString SerializeChilds() const;
    /// Reads the block whose header the line is, here or in a child; false, and nothing read, for any other
    /// line. Lines that belong to what follows are put back.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);
    /// POV-Ray text of the parameters, each under its name.
    wxString GetStrExpression() const;
    /// The same with the groups below.
    wxString Export() const;

  private:
    /// Calls the function with every parameter of the group and of the groups below.
    template <class Group, class Function>
    static void ForEach(Group& group, const Function& function);
    static void SetOne(Parameters_cls& parameter, double value, bool addKey, double time, double range);
    void SetUpItems();
    void ReadBlock(LineStream_cls& stream);

    wxString mName;
    bool mContainer;
    std::shared_ptr<const ParamHost_cls> mHost;
    std::deque<Parameters_cls> mParameters;
    ParamGroup_cls* mParent = nullptr;
    std::vector<ParamGroup_cls*> mChildren;
    ConfItemList_cls mItems;
    ConfItemINT_cls mDimension;
    ConfItemBOOL_cls mShyMode;
    bool mShown = true;
};
