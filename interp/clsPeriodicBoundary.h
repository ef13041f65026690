#pragma once

#include <wx/string.h>

#include <array>

#include "CONFITEM/clsConfItemList.h"

/// The box of data with periodic boundaries, and what is made of particles that leave it on one side and
/// enter on the other between two snapshots. One object, owned by the application core.
/// Threads: GUI thread; a rate stage works on the Rule it was started with.
/// Units: lengths are the data's own.
class PeriodicBoundary_cls {
  public:
    enum Type : unsigned int { kNone = 0, kPlaneXY = 1, kSpaceXYZ = 2 };
    enum Effect : unsigned int { kGuessVelocity = 0, kZeroVelocity = 1 };

    /// The settings as the rate stage uses them. Boxes wrap along the axes only: the other components of
    /// an oblique box do not enter.
    struct Rule {
        unsigned int type = kNone;
        unsigned int effect = kGuessVelocity;
        std::array<float, 3> length{};
    };

    PeriodicBoundary_cls() { SetToDefault(); }
    /// Takes all settings of another.
    void CopyFrom(const PeriodicBoundary_cls& other) { mItems.CopyListComponentFromP(other.mItems); }
    PeriodicBoundary_cls(const PeriodicBoundary_cls&) = delete;
    PeriodicBoundary_cls& operator=(const PeriodicBoundary_cls&) = delete;

    void SetToDefault();
    /// A box with these edges along the axes, periodic in x, y and z or in x and y only.
    void SetBox(bool space, const std::array<float, 3>& length);
    /// The box is now that of the data; it goes with them.
    void NoteTold() { mTold = Serialize(); }
    /// True while the box is one that data told, and nobody has changed it since.
    bool IsTold() const { return mTold == Serialize(); }
    /// Edge k (0, 1, 2) of the box times the size, axis by axis, into three floats.
    void GetBoundaryVector(float* out, int k) const;
    Rule GetRule() const;

    wxString Serialize() const { return mItems.SerializeAll(); }
    bool ReadStrLine(const wxString& line) { return mItems.ReadStrLineAll(line); }
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemUINT_cls mType;
    ConfItemFLOATARRAY_cls mSize;
    ConfItemUINT_cls mEffect;
    std::array<ConfItemFLOATARRAY_cls, 3> mBaseVector;

  private:
    ConfItemList_cls mItems;
    wxString mTold;
};
