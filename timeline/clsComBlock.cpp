#include "timeline/clsComBlock.h"

#include "timeline/clsUndoManager.h"

void ComBlockOpen::Execute(bool) {
    GCUndoList.ChangeBlockDepth(1);
    UpdateBit();
}

void ComBlockClose::Execute(bool) {
    GCUndoList.ChangeBlockDepth(-1);
    UpdateBit();
}
