#include "timeline/clsCommandItem.h"

#include "timeline/clsUndoManager.h"

void CommandItem_cls::UpdateBit(int bits) {
    GCUndoList.AddUpdateBits(static_cast<std::uint32_t>(bits));
    if (bits & kUpdateRedraw) UndoManager_cls::SendEventToFrame(EventSink_cls::kRedraw);
}
