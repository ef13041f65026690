#include "render/clsColorCurveCtrl.h"

#include "render/clsColorCurveEdit.h"

void ColorCurveCtrl_cls::LinkColorCurve(ColorCurve_cls& curve) {
    mLinked = &curve;
    if (mObserver) mObserver();
}

void ColorCurveCtrl_cls::DetachLink() {
    mLinked = nullptr;
    if (mObserver) mObserver();
}

void ColorCurveCtrl_cls::Copy(const ColorCurve_cls& curve) {
    mClipboard = std::make_unique<ColorCurve_cls>("", curve.GetDisplayName(), "1 1 1 1");
    mClipboard->CopyColorFromP(curve, false);
}

void ColorCurveCtrl_cls::Paste(ColorCurve_cls& into) const {
    if (mClipboard) ColorCurveEdit_cls(into).Paste(*mClipboard);
}
