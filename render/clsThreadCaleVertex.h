#pragma once

#include <atomic>
#include <span>

#include "render/clsArrayAndIndex.h"
#include "render/clsSpritePacker.h"
#include "seam/clsJoinedThread.h"

/// Turns one block of the draw order into billboards while the GUI thread draws the block before.
/// Made and joined by GLDrawBillboard_cls. Threads: writes its list, which nobody else touches until the flag
/// is set.
class ThreadCaleVertex_cls final : public JoinedThread_cls {
  public:
    using Order = std::span<const ArrayAndIndex_cls>;

    ThreadCaleVertex_cls(Order block, const SpritePacker_cls& packer, const SpriteRule_cls& rule,
                         SpriteList_cls* list)
        : mBlock(block), mPacker(packer), mRule(rule), mList(list) {}
    ~ThreadCaleVertex_cls() override { Join(); }

    ExitCode Entry() override;
    const std::atomic<bool>& GetDone() const { return mDone; }

    /// The same work on the caller's thread.
    static void Fill(Order block, const SpritePacker_cls& packer, const SpriteRule_cls& rule,
                     SpriteList_cls* list);

  private:
    const Order mBlock;
    const SpritePacker_cls& mPacker;
    const SpriteRule_cls& mRule;
    SpriteList_cls* const mList;
    std::atomic<bool> mDone{false};
};
