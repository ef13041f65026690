#pragma once

#include <wx/string.h>

#include <atomic>
#include <memory>
#include <string_view>
#include <vector>

#include "CONFITEM/clsConfItemList.h"
#include "timeline/clsKeyCurve.h"
#include "timeline/clsKeyFrame.h"
#include "timeline/clsParamHost.h"

class LineStream_cls;

/// One scalar setting, constant or animated by keys. Owned by its group.
/// The operations here act at once. Undo commands call them and keep what they need to go
/// back: the whole key for one key, the State for everything else.
/// Keys are always sorted by time and finite: an operation that would break this changes nothing. The
/// tangents of automatic keys are up to date after every operation; a single key keeps the tangent it has, so
/// that the way back from a second key to one is the State.
/// Units: the key axis is the normalised time, 0 to 1 over the scene. A default of -1.0 means the timeline's
/// current time, or its display step.
/// Threads: GUI thread; Evaluate() on any thread while no key is edited.
class Parameters_cls {
  public:
    /// Two times closer than this are one: files keep nine decimals of a time.
    static constexpr double kSameTime = 1e-9;
    static constexpr double kCurrentTime = -1.0;
    static constexpr double kDisplayResolution = -1.0;

    /// Written by the timeline on the GUI thread, read by evaluations on any thread.
    static std::atomic<double> msCurrentDoubleIndex;
    static std::atomic<int> msFrameNumber;    ///< scene length in frames
    static std::atomic<int> msAnimInterp;     ///< sub-steps per frame
    static std::atomic<double> msResolution;  ///< length of one display step
    /// Sub-steps below 1 count as 1; a scene without frames has the resolution 1.
    static void SetFrameNumber(int frames, int interp);

    /// Starts with one key of value 0 at time 0.
    explicit Parameters_cls(const wxString& name = "Untitled", const wxString& identifier = {},
                            std::shared_ptr<const ParamHost_cls> host = {},
                            const ParamGroup_cls* group = nullptr, bool timeDependent = false);
    Parameters_cls(const Parameters_cls&) = delete;
    Parameters_cls& operator=(const Parameters_cls&) = delete;

    /// Name: header of the text block and POV-Ray identifier. Identifier: what undo commands look it up by.
    const wxString& GetName() const { return mName; }
    const wxString& GetID() const { return mIdentifier; }
    void SetID(const wxString& identifier) { mIdentifier = identifier; }
    /// The group that holds it, null for a single parameter.
    const ParamGroup_cls* GetGroup() const { return mGroup; }
    /// Expires with the parameter, for undo commands, which may outlive it.
    std::weak_ptr<const void> GetLife() const { return mLife; }

    // Evaluation

    /// The value at t; stored as the current value.
    double GetInterpolatedValue(double t = kCurrentTime, double resolution = kDisplayResolution);
    /// The value at t, not stored. -1.0 has no meaning of its own here.
    double Evaluate(double t, double resolution) const;
    /// The segment formulas at fraction s behind key i; stored as the current value. 0 for no such segment.
    double CalcInterpolateStep(double s, int i);
    double CalcInterpolateLinear(double s, int i);
    double CalcInterpolateHermite(double s, int i);
    double GetHermiteVelocity(int i) const;
    /// Slope from key i to key j; 0 for one and the same key or none.
    double CalcVelocity(int i, int j) const;
    double GetCurrentValue() const { return mCurrentValue; }
    /// What an input field shows before it becomes a key, see ParamGroup_cls::SetKeyFrameIfChanged().
    void SetCurrentValue(double value) { mCurrentValue = value; }

    // Settings

    bool IsTimeDependent() const { return mTimeDepend.mValue; }
    void SetTimeDependent(bool timeDependent);
    /// One key at time 0 with this value; time dependence stays.
    void InitSet(double value, unsigned int type = KeyFrame_cls::kLinear);

    // Keys
    // A key index that does not exist changes nothing and gives -1, false or 0.

    const std::vector<KeyFrame_cls>& GetKeys() const { return mKeys; }
    int GetKeyNumber() const { return static_cast<int>(mKeys.size()); }
    int GetSelectedKeyNum() const;
    double GetKeyFrameValue(int i) const;
    double GetKeyFrameValueD1(int i) const;  ///< velocity
    double GetKeyFrameValueD2(int i) const;  ///< ease factor
    /// Index of the key nearest to t and not farther than the range, -1 when there is none.
    int FindKey(double t, double range = kSameTime) const;
    bool IsKeyFrame(double t, double range = kSameTime) const { return FindKey(t, range) >= 0; }
    /// Time of the next key after t, the last one before t; -1.0 when there is none.
    double GetNextKeyPosDoubleIndex(double t = kCurrentTime) const;
    double GetPrevKeyPosDoubleIndex(double t = kCurrentTime) const;

    /// Overwrites the key at this time, or adds one. Returns its index.
    int SetKey(double time, unsigned int type, double value, double velocity = 0.0, double easeFactor = 0.0);
    /// Adds a whole key, even where one is: behind the keys of its time, or at `index` if that is one of
    /// their places. Returns its index.
    int AddKey(const KeyFrame_cls& key, int index = -1);
    /// Puts a whole key in place of key i. It passes the keys that it must and no more, or comes to `index`
    /// as in AddKey(). Returns its new index.
    int OverwriteKey(int i, const KeyFrame_cls& key, int index = -1);
    /// Adds a key on the curve, of the type of the segment it divides. Where a key is already, returns that.
    int InsertKey(double t = kCurrentTime);
    bool DeleteKey(int i);
    /// Deletes the selected keys; one key always stays, since a parameter without keys would fall to 0.
    /// Returns the number deleted.
    int DeleteSelectedKey();
    /// Moves key i to a time, see OverwriteKey(). Returns its new index.
    int MoveKey(int i, double time, int index = -1);
    /// Moves all selected keys by a time and a value.
    void MoveSelectedKey(double timeOffset, double valueOffset);

    /// A key that becomes HERMITE (SEMIAUTO) without an ease factor of its own gets 1. Automatic types
    /// overwrite velocity or ease factor: the way back is the whole key, not the old type.
    bool SetKeyType(int i, unsigned int type);
    struct KeyType {
        int index;
        unsigned int type;
    };
    void SetKeyTypeMulti(const std::vector<KeyType>& types);

    bool SelectKeyFrame(int i, bool select = true);
    /// Adds the keys between two times, ends included, in either order; returns their number.
    int SelectKeyFrameRegion(double from, double to);
    void DeselectAll();

    /// Stretches the key axis by a positive factor. Tangents shrink as it grows: the curve keeps its shape.
    void RemapKeys(double factor);
    /// Moves every key to the nearest display step. Keys that meet stay in their order.
    void Quantize(double resolution = kDisplayResolution);
    /// Mirrors the axis: every time t becomes 1 - t.
    void Flip();

    /// Sorts by time; keys of one time keep their order.
    void SortKey();
    /// Recomputes the tangents of all automatic keys.
    void AdjustAutoControl();

    /// Everything an edit can change, for undo and for copies.
    struct State {
        std::vector<KeyFrame_cls> keys;
        bool timeDependent = false;
        int periodic = 0;
        bool operator==(const State&) const = default;
    };
    State GetState() const;
    void SetState(const State& state);
    void CopyFromP(const Parameters_cls& other) { SetState(other.GetState()); }

    // Clipboard: text, so that keys travel to another running program

    std::vector<KeyFrame_cls> GetSelectedKeys() const;
    /// Adds keys, moved by the offset, in place of keys at the same times. Only they are selected then.
    int PasteKeys(const std::vector<KeyFrame_cls>& keys, double offset);
    /// Nothing happens when no key is selected.
    void CopyKeyFrameToClipBoard() const;
    /// Pastes so that the first key comes to t. Returns the number of keys, 0 when the clipboard holds none.
    int PasteKeyFrameFromClipBoard(double t = kCurrentTime);

    // Text

    wxString Serialize() const;
    /// Reads the block whose header is in `line`; false, and nothing read, for any other line. A line that
    /// belongs to what follows the block is put back.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);
    /// POV-Ray text that declares `name` as this parameter's value at t0, the scene's clock.
    wxString GetStrExpression(const wxString& name) const;

    /// True for the header of a parameter and the markers of all other blocks.
    static bool OpensBlock(std::string_view line);
    /// True for a line that cannot be of a parameter's block, even a damaged one: OpensBlock(), or the
    /// setting of someone else.
    static bool EndsBlock(std::string_view line);

    /// -1.0 turned into what it stands for.
    static double ResolveTime(double t) { return t == kCurrentTime ? msCurrentDoubleIndex.load() : t; }
    static double ResolveResolution(double r) { return r == kDisplayResolution ? msResolution.load() : r; }

  private:
    bool HasKey(int i) const { return i >= 0 && i < GetKeyNumber(); }
    KeyCurve_cls Curve() const { return {mKeys, mPeriodic.mValue}; }
    /// Recomputes the automatic tangents of key i and its neighbours.
    void AdjustAround(size_t i);
    /// Moves the key at `place` among the keys of its time to `index`, if that is one of them.
    size_t PlaceAmongEquals(size_t place, int index);
    /// Takes all keys anew, unless one of them is not finite.
    bool Replace(std::vector<KeyFrame_cls> keys);
    wxString SegmentExpression(size_t i) const;
    void ReadKeys(LineStream_cls& stream, const wxString& countLine);

    wxString mName;
    wxString mIdentifier;
    std::shared_ptr<const ParamHost_cls> mHost;
    const ParamGroup_cls* mGroup;

    std::vector<KeyFrame_cls> mKeys;
    ConfItemList_cls mItems;
    ConfItemBOOL_cls mTimeDepend;
    ConfItemINT_cls mPeriodic;
    double mCurrentValue = 0.0;
    const std::shared_ptr<const void> mLife = std::make_shared<char>();
};
