#include "timeline/clsCommandSetColor.h"

#include <algorithm>

#include "timeline/clsUndoManager.h"

CommandSetColor_cls::CommandSetColor_cls(const wxString& name, std::span<float> setting, const Color4& color,
                                         int updateBits, std::function<void()> changed)
    : CommandItem_cls(updateBits),
      mName(name),
      mSetting(setting.first(std::min(setting.size(), color.size()))),
      mColor(color),
      mChanged(std::move(changed)) {}

void CommandSetColor_cls::Execute(bool) {
    std::copy_n(mColor.begin(), mSetting.size(), mSetting.begin());
    if (mChanged) mChanged();
    UpdateBit();
}

void SetColorCommand(const wxString& name, std::span<float> setting, const Color4& color, int updateBits,
                     const std::function<void()>& changed) {
    Color4 before = color;
    std::copy_n(setting.begin(), std::min(setting.size(), before.size()), before.begin());
    if (before == color) return;
    GCUndoList.PushAndExec(std::make_unique<CommandSetColor_cls>(name, setting, color, updateBits, changed),
                           std::make_unique<CommandSetColor_cls>(name, setting, before, updateBits, changed));
}
