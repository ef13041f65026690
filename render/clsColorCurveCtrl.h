#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "render/clsColorCurve.h"

/// Which curve the colour-curve editor edits, the internal clipboard of whole curves, and where the editor
/// gets the values that the curve is fed with. Knows no window: the front end registers how the editor is
/// shown. One object, owned by the application core. Threads: GUI thread.
class ColorCurveCtrl_cls {
  public:
    /// None while the frame on screen is not ready.
    using Values = std::optional<std::vector<float>>;
    using ValueSource = std::function<Values(const ColorCurve_cls& curve)>;

    ColorCurveCtrl_cls() = default;
    ColorCurveCtrl_cls(const ColorCurveCtrl_cls&) = delete;
    ColorCurveCtrl_cls& operator=(const ColorCurveCtrl_cls&) = delete;

    /// Edits this curve from now on and shows the editor, where there are windows.
    void LinkColorCurve(ColorCurve_cls& curve);
    void DetachLink();
    /// Null when none is linked.
    ColorCurve_cls* GetLinked() const { return mLinked; }
    /// Called when another curve, or none, is linked.
    void SetObserver(std::function<void()> observer) { mObserver = std::move(observer); }

    void Copy(const ColorCurve_cls& curve);
    /// Keys and settings of the copied curve, as one step of the undo list; nothing without a copy.
    void Paste(ColorCurve_cls& into) const;

    void SetValueSource(ValueSource source) { mValueSource = std::move(source); }
    /// The values of the frame on screen that feed the curve.
    Values GetValues(const ColorCurve_cls& curve) const {
        return mValueSource ? mValueSource(curve) : std::vector<float>();
    }

  private:
    ColorCurve_cls* mLinked = nullptr;
    std::function<void()> mObserver;
    std::unique_ptr<ColorCurve_cls> mClipboard;
    ValueSource mValueSource;
};
