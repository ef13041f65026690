#include "render/clsThreadSortMergeOrd.h"

#include <cstddef>

namespace {

class ForwardCursor_cls {
  public:
    explicit ForwardCursor_cls(const MergeRuns_cls& runs)
        : mFirst(runs.mFirst.data()),
          mFirstEnd(mFirst + runs.mFirst.size()),
          mSecond(runs.mSecond.data()),
          mSecondEnd(mSecond + runs.mSecond.size()),
          mOut(runs.mOut) {}

    bool IsMerging() const { return mFirst != mFirstEnd && mSecond != mSecondEnd; }
    void Step() {
        // Without a branch: which run is next cannot be foretold.
        const bool isSecond = MergeRuns_cls::IsSecondNext(*mFirst, *mSecond);
        *mOut++ = *(isSecond ? mSecond : mFirst);
        mSecond += isSecond;
        mFirst += !isSecond;
    }
    /// Moves so many entries of the run that is next, if they pass by at most as many of the other.
    bool StepBlock(std::ptrdiff_t size) {
        if (mFirstEnd - mFirst <= size || mSecondEnd - mSecond <= size) return false;
        const bool isSecond = MergeRuns_cls::IsSecondNext(*mFirst, *mSecond);
        const ArrayAndIndex_cls*& next = isSecond ? mSecond : mFirst;
        const ArrayAndIndex_cls* other = isSecond ? mFirst : mSecond;
        if (next[size - 1].mKey > other[size].mKey) return false;
        mOut = std::copy_n(next, size, mOut);
        next += size;
        return true;
    }
    void Finish() {
        while (IsMerging()) Step();
        std::copy(mSecond, mSecondEnd, std::copy(mFirst, mFirstEnd, mOut));
    }

  private:
    const ArrayAndIndex_cls* mFirst;
    const ArrayAndIndex_cls* mFirstEnd;
    const ArrayAndIndex_cls* mSecond;
    const ArrayAndIndex_cls* mSecondEnd;
    ArrayAndIndex_cls* mOut;
};

}  // namespace

void ThreadSortMergeOrd_cls::Work() {
    if (mStep <= 1) return MergeHalves<ForwardCursor_cls>(mRuns);
    ForwardCursor_cls cursor(mRuns);
    while (cursor.IsMerging()) {
        if (!cursor.StepBlock(mStep)) cursor.Step();
    }
    cursor.Finish();
}
