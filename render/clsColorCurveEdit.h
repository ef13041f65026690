#pragma once

#include <vector>

#include "render/clsColorCurve.h"
#include "timeline/clsCommandSetColor.h"

/// The edits of a colour curve as its editor makes them, each a step of the undo list. A key of the curve is
/// a position at which any of the four channels has a key; the edits act on all four.
/// A small handle made on the spot. Threads: GUI thread.
/// Failure: an edit that would change nothing (no key there, a position outside 0 to 1, the last key deleted)
/// leaves no step.
class ColorCurveEdit_cls {
  public:
    explicit ColorCurveEdit_cls(ColorCurve_cls& curve) : mCurve(curve) {}

    /// The keys from left to right.
    std::vector<double> GetPositions() const;
    /// The curve's own colour at a position, also while the curve is off.
    Color4 GetColor(double position) const { return GetColor(mCurve, position); }
    static Color4 GetColor(const ColorCurve_cls& curve, double position);

    bool HasKey(double position) const;

    /// Where a key is already it takes the colour.
    void InsertKey(double position, const Color4& color) { SetKey("Insert Key", position, color); }
    /// The same as a change of colour.
    void SetColor(double position, const Color4& color) { SetKey("Key Color", position, color); }
    void DeleteKey(double position);
    /// Keys do not pass one another: the move ends a little before the neighbour. Returns the new position.
    double MoveKey(double from, double to);

    void SetScaling(float min, float max);
    /// Takes the keys of a template, nothing else.
    void ApplyTemplate(const ColorCurve_cls& source);
    /// Takes keys and settings.
    void Paste(const ColorCurve_cls& source);

  private:
    void SetKey(const wxString& name, double position, const Color4& color);

    ColorCurve_cls& mCurve;
};
