#pragma once

#include <wx/string.h>

/// Where the files are that the program reads at run time: shader sources, textures, icons, templates, the
/// demo. They lie beside the program (a build), or in ../share/varnholt3 and, what runs, in ../lib/varnholt3
/// (an installed one). Threads: GUI thread.
class ResourcePath_cls {
  public:
    /// The path of a resource by its name, such as "GL/Phong.vert". A name that is no resource is taken as a
    /// path as it stands.
    static wxString Find(const wxString& name);
    /// The folder of the running executable.
    static wxString GetRunningFolder();
    /// The folder of the program instead of that of the running executable.
    static void SetProgramFolder(const wxString& folder);
};
