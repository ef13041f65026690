#include "core/clsCommandLoadData.h"

#include "core/clsMain.h"

CommandLoadData_cls::CommandLoadData_cls(Main_cls& main, const wxString& path)
    : CommandItem_cls(kUpdateTimeline | kUpdatePanels | kUpdateRedraw), mMain(main), mPath(path) {}

void CommandLoadData_cls::Execute(bool) {
    if (mPath.empty()) {
        mMain.CloseData();
    } else {
        mMain.OpenDataFile(mPath);
    }
    UpdateBit();
}
