#pragma once

#include <functional>

#include "timeline/clsCommandItem.h"
#include "timeline/clsParameters.h"

/// Base of the commands that edit one parameter. The parameter is looked up by its identifier at every run,
/// so a command stays valid when the object has been rebuilt. Only when the look-up finds nothing is the
/// object used that the command was made for, and nothing happens when that one is gone as well. Key indices
/// in these commands hold because the list runs them only in the state they were made in.
class ComParamBase_cls : public CommandItem_cls {
  public:
    using LookUp = std::function<Parameters_cls*(const wxString& identifier)>;
    /// Registered once by the core; none finds nothing.
    static void SetLookUp(LookUp lookUp);

    void Execute(bool undo) final;

    static constexpr int kUpdates = kUpdateKeys | kUpdateRedraw | kUpdateTimeline;

  protected:
    explicit ComParamBase_cls(Parameters_cls& parameter);
    virtual void Apply(Parameters_cls& parameter) = 0;

  private:
    Parameters_cls* Find() const;

    static LookUp msLookUp;

    const wxString mIdentifier;
    Parameters_cls* const mParameter;
    const std::weak_ptr<const void> mLife;
};
