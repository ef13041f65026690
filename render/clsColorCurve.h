#pragma once

#include <wx/colour.h>
#include <wx/string.h>

#include <memory>
#include <span>
#include <vector>

#include "CONFITEM/clsConfItemList.h"
#include "timeline/clsParamGroup.h"

/// A colour map: one number of a particle, scaled from ScalingMin..ScalingMax to 0..1, gives red, green,
/// blue and alpha. Switched off it yields one constant colour. The keys are those of four parameters "R",
/// "G", "B" and "A" whose axis is not time but the position on the curve; editing them is editing
/// parameters. A curve is owned by what it colours.
/// Threads: GUI thread. The two GetColor4f calls from any number of threads while nobody edits the curve.
/// Units: positions 0 to 1, beyond which the first and the last key hold; channels 0 to 1.
/// Failure: none is reported; a scaling range of 0 becomes 1.
class ColorCurve_cls {
  public:
    /// The quantity that feeds the curve, see DependType. Larger numbers stand for none: such a curve is
    /// not evaluated for particles.
    enum Depend : unsigned int {
        kValue1,
        kRadius,
        kPosition,
        kPositionX,
        kPositionY,
        kPositionZ,
        kVelocity,
        kVelocityX,
        kVelocityY,
        kVelocityZ,
        kID,
        kDependCount
    };
    /// The choice as it is shown, in the language of the windows; empty for numbers beyond the list.
    static wxString GetDependName(unsigned int depend);

    struct Key {
        double position, r, g, b, a;
    };

    /// The prefix stands before every key of the settings, so that several curves can live in one file.
    /// Without keys the curve runs from green to red.
    ColorCurve_cls(const wxString& prefix, const wxString& displayName, const wxString& constantColor,
                   std::span<const Key> keys = {}, std::shared_ptr<const ParamHost_cls> host = {});
    ColorCurve_cls(const ColorCurve_cls&) = delete;
    ColorCurve_cls& operator=(const ColorCurve_cls&) = delete;

    /// Settings and keys as at construction.
    void SetToDefault();

    const wxString& GetPrefix() const { return mPrefix; }
    const wxString& GetDisplayName() const { return mDisplayName; }
    bool IsOn() const { return mUseColorCurve.mValue; }
    ParamGroup_cls& GetParamGroup() { return mGroup; }
    const ParamGroup_cls& GetParamGroup() const { return mGroup; }

    // Evaluation

    /// Takes over the scaling for the GetColor4fScaled() calls that follow; before every drawing pass. A
    /// range of 0 is repaired in the setting itself.
    void PreCalcScaleFactor();
    /// The position of a value on the curve, by the scaling taken over last.
    float GetPosition(float value) const { return (value - mOffset) / mRange; }
    float GetOffset() const { return mOffset; }
    float GetRange() const { return mRange; }
    /// The colour of a value, four floats.
    void GetColor4fScaled(float* out, float value) const;
    /// The colour at a position of the curve, four floats.
    void GetColor4fNormal(float* out, float t) const;
    /// The colour of a position over a background; `opaque` leaves alpha aside.
    wxColour GetWXColor(const wxColour& background, double t, bool opaque) const;

    // Editing, each an undoable step

    /// Mirrors the curve.
    void Flip();
    /// R takes the keys of G, G those of B, B those of R.
    void SwapRGB();

    /// Takes the keys of another curve, and without `keysOnly` its settings too.
    void CopyColorFromP(const ColorCurve_cls& source, bool keysOnly);

    // Text

    wxString Serialize() const;
    /// True when the line is one of this curve's; further lines of its keys are then read from the stream.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemBOOL_cls mUseColorCurve;
    ConfItemFLOATARRAY_cls mConstantColor;
    ConfItemFLOAT_cls mScalingMin;
    ConfItemFLOAT_cls mScalingMax;
    ConfItemUINT_cls mDependType;

  private:
    void Evaluate(float* out, double t) const;

    const wxString mPrefix;
    const wxString mDisplayName;
    const wxString mDefaultConstantColor;
    const std::vector<Key> mDefaultKeys;
    ConfItemList_cls mItems;
    float mOffset = 0.0F;
    float mRange = 1.0F;
    ParamGroup_cls mGroup;
};
