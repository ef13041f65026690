#pragma once

#include <array>

#include "render/clsSpriteBatch.h"
#include "render/clsThreadCaleVertex.h"

class DrawProgress_cls;

/// Billboards of a single attribute, one block of the draw order after the other. In large scenes a worker
/// computes a block while the one before is drawn.
/// Owned by GLDrawData_cls; its two lists are kept between frames, with room for kBlock billboards each.
/// Threads: the thread of the context, and one worker. Failure: a worker that cannot be created ends the
/// program with a message.
class GLDrawBillboard_cls {
  public:
    using Order = ThreadCaleVertex_cls::Order;

    static constexpr size_t kBlock = 200000;
    /// More billboards than this are drawn with the worker, unless all have one colour.
    static constexpr size_t kLargestSingle = 600000;

    /// Everything in one go.
    void DrawSingle(SpriteBatch_cls& batch, const SpritePacker_cls& packer, const SpriteRule_cls& rule,
                    Order order, DrawProgress_cls& progress);
    /// With the worker.
    void DrawThreaded(SpriteBatch_cls& batch, const SpritePacker_cls& packer, const SpriteRule_cls& rule,
                      Order order, DrawProgress_cls& progress);

  private:
    std::array<SpriteList_cls, 2> mLists;
};
