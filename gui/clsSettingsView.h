#pragma once

#include <cstdint>

/// A page, panel or dialog that shows settings. The main window finds every view among its windows and tells
/// it when a change was made, undone, or a project was read. Derive a wxWindow from this too.
/// Threads: GUI thread.
class SettingsView_cls {
  public:
    /// Everything may have changed.
    static constexpr std::uint64_t kAll = ~std::uint64_t{0};

    virtual ~SettingsView_cls() = default;
    /// Shows the settings as they are now; makes no step of the undo list. The bits are those of
    /// CommandItem_cls::Update.
    virtual void ShowSettings(std::uint64_t updateBits) = 0;
};
