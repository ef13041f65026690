#pragma once

#include <vector>

#include "output/clsPicture.h"

/// The mean of several pictures of the same size, as a camera's film would have added their light up: the
/// screen's numbers are turned into amounts of light first. Pictures that are all alike come out unchanged.
/// Threads: one at a time.
class SampleAverage_cls {
  public:
    void Add(const Picture_cls& picture);
    /// The mean of what was added, and starts anew. Without any: an empty picture.
    Picture_cls Take();

  private:
    std::vector<float> mLight;
    int mSamples = 0;
    int mWidth = 0;
    int mHeight = 0;
};
