#pragma once

#include "gui/clsSettingsPage.h"

class PeriodicBoundary_cls;

/// The dialog page "Periodic Boundary Condition": the box of periodic data, and what is made of particles
/// that leave it on one side and enter on the other. Snapshots that are in memory keep the rates that they
/// have, so a change makes them new.
/// Owned by its parent window; the settings outlive it. Threads: GUI thread.
class PeriodicBoundaryGUI_cls : public SettingsPage_cls {
  public:
    static constexpr const char* kTitle = "Periodic Boundary Condition";

    /// `changed` is called after every change of the rule, undone ones included.
    PeriodicBoundaryGUI_cls(wxWindow* parent, PeriodicBoundary_cls& periodic,
                            const std::function<void()>& changed);
};
