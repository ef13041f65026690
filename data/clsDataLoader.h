#pragma once

#include <functional>

#include "data/clsGrammerBase.h"

/// The loader settings: record layout, interpolation between snapshots, and the transforms after reading.
/// One object, owned by the application core; readers and blocks reach it through a class-wide link.
/// Threads: GUI thread. Units: lengths are the data's own.
class DataLoader_cls : public GrammerBase_cls {
  public:
    enum Interpolation : unsigned int { kLinear = 0, kHermite = 1, kNoInterpolate = 2 };
    enum ParticleNumber : unsigned int { kConstant = 0, kVariable = 1, kSortByID = 2 };

    DataLoader_cls();

    /// Takes all settings of another.
    void CopyFrom(const DataLoader_cls& other) { mItems.CopyListComponentFromP(other.mItems); }
    /// Resets the transforms only: the layout of a user's files outlives a reset.
    void SetToDefault();

    /// The application's undoable opening of data, set once by the core.
    void SetOpenCommand(std::function<void(const wxString&)> open) { mOpenCommand = std::move(open); }
    /// Opens data by that command and remembers the path.
    void OpenDataFile(const wxString& path);
    /// Data without positions cannot be opened: tells the user and returns false.
    bool CheckGrammer() const;

    bool IsTranslated() const;
    bool IsScaled() const { return mScale.mValue != 0.0F; }
    bool IsValue1Scaled() const { return mScaleValue1.mValue != 0.0F; }

    ConfItemSTR_cls mLastOpenedFile;
    ConfItemUINT_cls mInterpolateType;
    ConfItemUINT_cls mVariableNumber;
    ConfItemFLOATARRAY_cls mTranslate;
    ConfItemFLOAT_cls mScale;
    ConfItemFLOAT_cls mScaleValue1;
    ConfItemUINT_cls mLogarithm;

  private:
    std::function<void(const wxString&)> mOpenCommand;
};
