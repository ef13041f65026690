#pragma once

/// Which frames the timeline shows and where: the ruler's zoom and place.
/// As long as nobody has zoomed, the whole scene is shown, whatever its length and the width become.
/// A plain value. Units: frames with a fraction; pixels from the left end of the tracks. Failure: none; zoom
/// and place are kept where something of the scene is in sight.
class TimelineScale_cls {
  public:
    static constexpr double kMargin = 20.0;      ///< pixels kept free at both ends of the whole scene
    static constexpr double kMaxPixels = 400.0;  ///< of one frame at the closest

    /// Width of the tracks in pixels and the scene's last frame.
    void SetSize(double width, int maxFrame);
    void ShowAll();
    void ShowRange(double first, double last);
    /// Zooms in by a factor (out below 1); the frame at x stays there.
    void ZoomAt(double x, double factor);
    /// Moves what is shown by pixels to the right.
    void Pan(double pixels);
    /// Pans only if the frame is out of sight, to the next page, as playing needs it.
    bool Follow(double frame);

    double ToX(double frame) const { return (frame - mFirst) * mPixels; }
    double ToFrame(double x) const { return mFirst + x / mPixels; }
    double GetWidth() const { return mWidth; }
    double GetPixelsPerFrame() const { return mPixels; }
    int GetMaxFrame() const { return mMaxFrame; }
    bool IsWhole() const { return mWhole; }
    /// Frames between two labels of at least this many pixels: 1, 2 or 5 times a power of ten.
    int GetLabelSpacing(double pixels) const;
    /// Frames between two small ticks.
    int GetTickSpacing() const;

  private:
    double GetWholePixels() const;
    void KeepInside();

    double mWidth = 1.0;
    int mMaxFrame = 0;
    double mFirst = 0.0;   ///< frame at x = 0
    double mPixels = 1.0;  ///< of one frame
    bool mWhole = true;
};
