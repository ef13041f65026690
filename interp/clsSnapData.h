#pragma once

#include "data/clsLargeMemory.h"
#include "interp/clsSnapAttribute.h"
#include "interp/clsSnapPass.h"
#include "interp/clsSnapSource.h"

/// The drawable state of one displayed instant: position, radius, value1 and colour of every particle.
/// Owned by the drawing code, which keeps one and builds it anew for the next instant: arrays that have
/// been touched before are filled several times as fast as fresh ones. It borrows the snapshot's type
/// array (and the whole snapshot for values derived later), so it must be released before the snapshot is.
/// Threads: GUI thread, which takes part in the work of 1 to 4 workers and returns when the state is
/// complete.
/// Units: tau and time are the data's own time.
/// Failure: without the memory for its arrays the state holds no particles.
class SnapData_cls {
  public:
    SnapData_cls() = default;
    SnapData_cls(const SnapSource_cls& source, const SnapAttributes_cls& attributes, double tau, int stride) {
        Build(source, attributes, tau, stride);
    }
    SnapData_cls(const SnapData_cls&) = delete;
    SnapData_cls& operator=(const SnapData_cls&) = delete;

    /// The state `tau` after the snapshot. A stride above 1 evaluates only particles 0, stride, 2 stride,
    /// ... and leaves the others undefined.
    void Build(const SnapSource_cls& source, const SnapAttributes_cls& attributes, double tau, int stride);
    /// Frees the arrays; the state then holds no particles and matches no snapshot.
    void ReleaseData();

    /// True when the state is that of this instant and can be drawn again.
    bool IsItSameSnap(const PDataBlock_cls* block, double time, int stride) const {
        return mSource.block == block && mTime == time && mStride == stride;
    }
    bool IsOf(const PDataBlock_cls& block) const { return mSource.block == &block; }
    /// True when some colour curve in use feeds on a value that only the evaluation derives.
    static bool IsInterpolateRequired(const SnapAttributes_cls& attributes);

    /// The array that drives the attribute's first (0) or second (1) curve, null when it depends on
    /// nothing known. Only one derived array exists: the first source asked for wins until the state is
    /// built anew.
    void SetPValue1(const float** out, const SnapAttribute_cls& attribute, int curve) const;
    /// Fills the derived array unless it is filled already. The source is one of ColorCurve_cls::Depend.
    void SetValue1Dash(unsigned int source) const;

    int GetCount() const { return mSource.count; }
    double GetTime() const { return mTime; }
    int GetStride() const { return mStride; }
    bool IsAllocated() const { return mAllocated; }
    bool IsValue1DashFilled() const { return mValue1DashFilled; }

    /// Three floats a particle.
    const float* GetPosition() const { return mPosition.As<float>(); }
    const float* GetRadius() const { return mRadius.As<float>(); }
    const float* GetValue1() const { return mValue1.As<float>(); }
    const float* GetValue1Dash() const { return mValue1Dash.As<float>(); }
    /// Four floats a particle.
    const float* GetColor() const { return mColor.As<float>(); }
    const uint8_t* GetType() const { return mSource.type; }
    /// The snapshot it was made of, borrowed.
    const SnapSource_cls& GetSource() const { return mSource; }

  private:
    bool Allocate(int count);
    bool AllocateValue1Dash() const;
    void Interpolate(const SnapAttributes_cls& attributes, double tau);
    void InterpolateNot(const SnapAttributes_cls& attributes);
    /// The pass with everything but tau.
    SnapPass_cls MakePass(const SnapAttributes_cls& attributes);

    SnapSource_cls mSource;
    bool mAllocated = false;
    mutable bool mValue1DashFilled = false;  ///< derived on demand, by whoever asks first
    double mTime = 0.0;
    int mStride = 1;
    int mVisitedStride = 1;  ///< particles 0, this, twice this, ... have been evaluated

    LargeMemory_cls mPosition;
    LargeMemory_cls mRadius;
    LargeMemory_cls mValue1;
    mutable LargeMemory_cls mValue1Dash;
    LargeMemory_cls mColor;
};
