#pragma once

#include <wx/window.h>

#include <functional>
#include <optional>
#include <vector>

#include "render/clsValueHistogram.h"

class ColorCurve_cls;
class wxGraphicsContext;

/// The picture in the colour-curve editor: the four channels over the histogram of the values that feed the
/// curve, and below them the gradient with its keys.
/// Mouse: a key is dragged on the gradient, a channel's value in the plot; a click beside the keys sets the
/// current position, a double click inserts a key there. Keys: Left and Right move the key (with Shift
/// finely, with Ctrl they choose the neighbour), Insert and Delete. A drag is one undo step; Escape takes it
/// back. Owned by the editor's panel. Threads: GUI thread.
class ColorCurveCanvas_cls : public wxWindow {
  public:
    explicit ColorCurveCanvas_cls(wxWindow* parent);

    /// Null for none.
    void SetCurve(ColorCurve_cls* curve);
    /// Of the values that feed the curve; borrowed, may be null.
    void SetHistogram(const ValueHistogram_cls* histogram);
    /// Called when another position or key is current.
    void SetObserver(std::function<void()> observer) { mObserver = std::move(observer); }

    /// The current position, of a key or between keys.
    double GetPosition() const { return mPosition; }
    void SetPosition(double position);

    void InsertKey();
    void DeleteKey();

    /// Where a position is on the window, for the middle of the gradient.
    wxPoint GetPoint(double position) const;
    bool AcceptsFocus() const override { return true; }

  protected:
    wxSize DoGetBestClientSize() const override;

  private:
    struct Drag {
        double from;                 ///< the key's position at the beginning
        std::optional<int> channel;  ///< in the plot; none on the gradient
    };

    wxRect GetPlot() const;
    wxRect GetBar() const;
    double ToPosition(int x) const;
    int ToX(double position) const;
    std::optional<double> FindKey(int x) const;
    std::optional<Drag> FindGrip(const wxPoint& point) const;
    void ChooseNeighbour(int direction);

    void OnPaint();
    const std::vector<float>& GetBins();
    void DrawHistogram(wxGraphicsContext& graphics);
    void DrawChannels(wxGraphicsContext& graphics) const;
    void DrawBar(wxGraphicsContext& graphics) const;
    void OnDown(const wxPoint& point);
    void OnMove(const wxPoint& point);
    void EndDrag(bool cancel);
    bool OnKey(int key, bool control, bool shift);

    ColorCurve_cls* mCurve = nullptr;
    const ValueHistogram_cls* mHistogram = nullptr;
    std::vector<float> mBins;  ///< of all values, which are not counted for every picture
    ValueHistogram_cls::Range mBinsRange;
    std::function<void()> mObserver;
    double mPosition = 0.0;
    std::optional<Drag> mDrag;
    bool mMoved = false;  ///< the drag has left the place where it began
};
