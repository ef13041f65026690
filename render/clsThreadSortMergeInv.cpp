#include "render/clsThreadSortMergeInv.h"

namespace {

class BackwardCursor_cls {
  public:
    explicit BackwardCursor_cls(const MergeRuns_cls& runs)
        : mFirst(runs.mFirst.data()),
          mFirstEnd(mFirst + runs.mFirst.size()),
          mSecond(runs.mSecond.data()),
          mSecondEnd(mSecond + runs.mSecond.size()),
          mOutEnd(runs.mOut + runs.GetSize()) {}

    bool IsMerging() const { return mFirst != mFirstEnd && mSecond != mSecondEnd; }
    void Step() {
        // What is next from the front goes last from the back: of equal keys the first run's.
        const bool isFirst = MergeRuns_cls::IsSecondNext(mFirstEnd[-1], mSecondEnd[-1]);
        *--mOutEnd = (isFirst ? mFirstEnd : mSecondEnd)[-1];
        mFirstEnd -= isFirst;
        mSecondEnd -= !isFirst;
    }
    void Finish() {
        while (IsMerging()) Step();
        std::copy_backward(mFirst, mFirstEnd, std::copy_backward(mSecond, mSecondEnd, mOutEnd));
    }

  private:
    const ArrayAndIndex_cls* mFirst;
    const ArrayAndIndex_cls* mFirstEnd;
    const ArrayAndIndex_cls* mSecond;
    const ArrayAndIndex_cls* mSecondEnd;
    ArrayAndIndex_cls* mOutEnd;
};

}  // namespace

void ThreadSortMergeInv_cls::Work() {
    MergeHalves<BackwardCursor_cls>(mRuns);
}
