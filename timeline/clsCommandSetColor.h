#pragma once

#include <array>
#include <functional>
#include <span>

#include "timeline/clsCommandItem.h"

/// Red, green, blue and alpha, 0 to 1.
using Color4 = std::array<float, 4>;

/// Sets a colour setting: the three or four floats it is made of, which must outlive the undo list's entries.
class CommandSetColor_cls final : public CommandItem_cls {
  public:
    CommandSetColor_cls(const wxString& name, std::span<float> setting, const Color4& color, int updateBits,
                        std::function<void()> changed = {});

    void Execute(bool undo) override;
    wxString GetName() const override { return mName; }

  private:
    const wxString mName;
    const std::span<float> mSetting;
    const Color4 mColor;
    const std::function<void()> mChanged;
};

/// Sets a colour undoably; without a step when it is this one already. Floats beyond the fourth are left
/// alone. `changed` is called after every change, undone ones included.
void SetColorCommand(const wxString& name, std::span<float> setting, const Color4& color, int updateBits,
                     const std::function<void()>& changed = {});
