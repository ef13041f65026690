#pragma once

#include "timeline/clsCommandItem.h"

/// Opens a block on the undo list: the entries up to its close marker are done and undone as one step.
/// Taken back by a ComBlockClose. Bears the step's name.
class ComBlockOpen final : public CommandItem_cls {
  public:
    explicit ComBlockOpen(const wxString& name = {}) : CommandItem_cls(0, kBlockOpen), mName(name) {}

    void Execute(bool undo) override;
    wxString GetName() const override { return mName; }
    bool ChangesProject() const override { return false; }

  private:
    const wxString mName;
};

/// Closes a block; taken back by a ComBlockOpen, so that walking back over a block raises the depth first.
class ComBlockClose final : public CommandItem_cls {
  public:
    ComBlockClose() : CommandItem_cls(0, kBlockClose) {}

    void Execute(bool undo) override;
    bool ChangesProject() const override { return false; }
};
