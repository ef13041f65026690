#include "render/clsThreadCaleVertex.h"

wxThread::ExitCode ThreadCaleVertex_cls::Entry() {
    Fill(mBlock, mPacker, mRule, mList);
    mDone.store(true, std::memory_order_release);
    return nullptr;
}

void ThreadCaleVertex_cls::Fill(Order block, const SpritePacker_cls& packer, const SpriteRule_cls& rule,
                                SpriteList_cls* list) {
    list->Clear();
    for (const ArrayAndIndex_cls& entry : block) list->Add(packer, static_cast<size_t>(entry.mIndex), rule);
}
