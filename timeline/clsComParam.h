#pragma once

#include <utility>
#include <vector>

#include "timeline/clsComParamBase.h"

// The edits of one parameter as commands. Which command takes back which, ParamEdit_cls knows.

/// Adds a key, or overwrites the one at its time.
class ComParamSetKey_cls final : public ComParamBase_cls {
  public:
    ComParamSetKey_cls(Parameters_cls& parameter, double time, unsigned int type, double value,
                       double velocity, double easeFactor);
    wxString GetName() const override { return "Set Key"; }

  private:
    void Apply(Parameters_cls& parameter) override;
    KeyFrame_cls mKey;
};

/// Adds a whole key at its index, beside others of the same time.
class ComParamSetKeyC_cls final : public ComParamBase_cls {
  public:
    ComParamSetKeyC_cls(Parameters_cls& parameter, const KeyFrame_cls& key, int index)
        : ComParamBase_cls(parameter), mKey(key), mIndex(index) {}
    wxString GetName() const override { return "Add Key"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.AddKey(mKey, mIndex); }
    const KeyFrame_cls mKey;
    const int mIndex;
};

/// Overwrites a key by a whole key.
class ComParamOvwtKeyC_cls final : public ComParamBase_cls {
  public:
    ComParamOvwtKeyC_cls(Parameters_cls& parameter, int index, const KeyFrame_cls& key)
        : ComParamBase_cls(parameter), mIndex(index), mKey(key) {}
    wxString GetName() const override { return "Change Key"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.OverwriteKey(mIndex, mKey); }
    const int mIndex;
    const KeyFrame_cls mKey;
};

class ComParamDelKey_cls final : public ComParamBase_cls {
  public:
    ComParamDelKey_cls(Parameters_cls& parameter, int index) : ComParamBase_cls(parameter), mIndex(index) {}
    wxString GetName() const override { return "Delete Key"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.DeleteKey(mIndex); }
    const int mIndex;
};

/// Moves a key in time. newIndex is where it comes to stand, also among keys of one time.
class ComParamMoveKey_cls final : public ComParamBase_cls {
  public:
    ComParamMoveKey_cls(Parameters_cls& parameter, int index, double time, int newIndex)
        : ComParamBase_cls(parameter), mIndex(index), mTime(time), mNewIndex(newIndex) {}
    wxString GetName() const override { return "Move Key"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.MoveKey(mIndex, mTime, mNewIndex); }
    const int mIndex;
    const double mTime;
    const int mNewIndex;
};

/// Leaves one key only: HERMITE (AUTO) at the time with the value, velocity and ease factor 0.
class ComParamClearKey_cls final : public ComParamBase_cls {
  public:
    ComParamClearKey_cls(Parameters_cls& parameter, double time, double value)
        : ComParamBase_cls(parameter), mTime(time), mValue(value) {}
    wxString GetName() const override { return "Clear Keys"; }

  private:
    void Apply(Parameters_cls& parameter) override;
    const double mTime;
    const double mValue;
};

class ComParamSetKeyType_cls final : public ComParamBase_cls {
  public:
    ComParamSetKeyType_cls(Parameters_cls& parameter, int index, unsigned int type)
        : ComParamBase_cls(parameter), mIndex(index), mType(type) {}
    wxString GetName() const override { return "Key Type"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.SetKeyType(mIndex, mType); }
    const int mIndex;
    const unsigned int mType;
};

class ComParamSetKeyTypeMulti_cls final : public ComParamBase_cls {
  public:
    using Types = std::vector<Parameters_cls::KeyType>;
    ComParamSetKeyTypeMulti_cls(Parameters_cls& parameter, Types types)
        : ComParamBase_cls(parameter), mTypes(std::move(types)) {}
    wxString GetName() const override { return "Key Types"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.SetKeyTypeMulti(mTypes); }
    const Types mTypes;
};

class ComParamSetTimeDependent_cls final : public ComParamBase_cls {
  public:
    ComParamSetTimeDependent_cls(Parameters_cls& parameter, bool timeDependent)
        : ComParamBase_cls(parameter), mTimeDependent(timeDependent) {}
    wxString GetName() const override { return mTimeDependent ? "Animate" : "Make Constant"; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.SetTimeDependent(mTimeDependent); }
    const bool mTimeDependent;
};

/// Restores a stored copy of a whole parameter: takes back every edit that has no shorter way back.
class ComParamMemento_cls final : public ComParamBase_cls {
  public:
    ComParamMemento_cls(Parameters_cls& parameter, Parameters_cls::State state, const wxString& name)
        : ComParamBase_cls(parameter), mState(std::move(state)), mName(name) {}
    wxString GetName() const override { return mName; }

  private:
    void Apply(Parameters_cls& parameter) override { parameter.SetState(mState); }
    const Parameters_cls::State mState;
    const wxString mName;
};
