#pragma once

#include <wx/string.h>

#include "timeline/clsCommandItem.h"

class Main_cls;

/// Opens data, or closes them when the path is empty. One half of a pair on the undo list.
class CommandLoadData_cls : public CommandItem_cls {
  public:
    CommandLoadData_cls(Main_cls& main, const wxString& path);
    void Execute(bool undo) override;
    wxString GetName() const override { return mPath.empty() ? "Close Data" : "Open Data"; }

  private:
    Main_cls& mMain;
    const wxString mPath;
};
