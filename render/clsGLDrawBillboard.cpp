#include "render/clsGLDrawBillboard.h"

#include <algorithm>
#include <optional>

#include "render/clsDrawProgress.h"
#include "seam/clsClock.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr int kPollMs = 2;
/// Small enough to stay in the processor's cache between computing and drawing.
constexpr size_t kSingleBlock = 16384;

GLDrawBillboard_cls::Order BlockAt(GLDrawBillboard_cls::Order order, size_t begin, size_t block) {
    return order.subspan(begin, std::min(block, order.size() - begin));
}

}  // namespace

void GLDrawBillboard_cls::DrawSingle(SpriteBatch_cls& batch, const SpritePacker_cls& packer,
                                     const SpriteRule_cls& rule, Order order, DrawProgress_cls& progress) {
    SpriteList_cls& list = mLists[0];
    for (size_t begin = 0; begin < order.size(); begin += kSingleBlock) {
        ThreadCaleVertex_cls::Fill(BlockAt(order, begin, kSingleBlock), packer, rule, &list);
        batch.Draw(packer, list.sprites, list.shapes);
        if (!progress.Step(begin)) return;
    }
}

void GLDrawBillboard_cls::DrawThreaded(SpriteBatch_cls& batch, const SpritePacker_cls& packer,
                                       const SpriteRule_cls& rule, Order order, DrawProgress_cls& progress) {
    for (SpriteList_cls& list : mLists) {
        list.sprites.reserve(kBlock);
        list.shapes.reserve(kBlock);
    }
    std::optional<ThreadCaleVertex_cls> worker;
    const auto start = [&](size_t begin, SpriteList_cls* list) {
        PrintDiagnostic("Thead Calc Begin\n");
        worker.emplace(BlockAt(order, begin, kBlock), packer, rule, list);
        if (!worker->Start()) MsgBoxExit("Can't create thread", "Error!");
    };
    const auto wait = [&] {
        PollUntil(worker->GetDone(), kPollMs);
        worker->Join();
        PrintDiagnostic("Thread Calc End\n");
    };

    if (order.empty()) return;
    size_t current = 0;
    start(0, &mLists[current]);
    wait();
    for (size_t begin = 0; begin < order.size(); begin += kBlock) {
        const SpriteList_cls& list = mLists[current];
        const bool isLast = order.size() - begin <= kBlock;
        current = 1 - current;
        if (!isLast) start(begin + kBlock, &mLists[current]);
        PrintDiagnostic(isLast ? "Routine Draw Fin Begin\n" : "Routine Draw Begin\n");
        batch.Draw(packer, list.sprites, list.shapes);
        PrintDiagnostic(isLast ? "Routine Draw Fin End\n" : "Routine Draw End\n");
        if (!isLast) wait();
        if (!progress.Step(begin)) return;
    }
}
