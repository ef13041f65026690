#pragma once

#include <array>
#include <vector>

#include "interp/clsSnapData.h"
#include "render/clsGLAttribute.h"
#include "timeline/clsKeyFrame.h"

class PDataBlock_cls;

/// The four attributes of the sequence that is drawn, by particle type. Borrowed.
using DrawAttributes_cls = std::array<GLAttribute_cls*, 4>;

/// The drawable state on display, built anew only when it is no longer that of the instant: another block,
/// time, thinning step, alpha setting, or an edit of what else its colours come from.
/// Owned by the application core; whoever prepares frames ahead of the drawing has more of them.
/// Threads: GUI thread, or any one thread while nobody edits the attributes. Prints "MakeSnapshot" and
/// "MakeSnapshotEnd" around each rebuild.
class DisplayedState_cls {
  public:
    /// The state `tau` after the block's own time; valid until the next call.
    const SnapData_cls& Get(const PDataBlock_cls& block, const DrawAttributes_cls& attributes, double tau,
                            int step);
    /// Must be called before the particles of the block are freed: a state borrows from them.
    void ReleaseIfOf(const PDataBlock_cls& block);
    /// Frees the memory.
    void Release();

  private:
    /// What the colours are made of.
    struct Look {
        unsigned int drawType = 0;
        GLAttribute_cls::Alpha alpha{};
        struct Curve {
            bool isOn = false;
            unsigned int depend = 0;
            float min = 0.0F;
            float max = 0.0F;
            std::vector<float> constant{};
            std::array<std::vector<KeyFrame_cls>, 4> keys{};
            bool operator==(const Curve&) const = default;
        };
        std::array<Curve, SnapAttribute_cls::kCurveCount> curves{};
        bool operator==(const Look&) const = default;
    };
    using Looks = std::array<Look, 4>;
    static Looks LooksOf(const DrawAttributes_cls& attributes);

    SnapData_cls mState;
    Looks mLooks;
    bool mIsStale = true;
};
