#include "seam/clsUserFolder.h"

#include <wx/stdpaths.h>

wxString UserFolder_cls::GetConfig() {
    wxStandardPaths& paths = wxStandardPaths::Get();
    paths.SetFileLayout(wxStandardPaths::FileLayout_XDG);
    return paths.GetUserConfigDir() + "/varnholt3";
}
