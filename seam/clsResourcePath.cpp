#include "seam/clsResourcePath.h"

#include <wx/filename.h>

#include <filesystem>

#include "seam/clsTextCoding.h"

namespace {

wxString& ProgramFolder() {
    static wxString folder = ResourcePath_cls::GetRunningFolder();
    return folder;
}

}  // namespace

wxString ResourcePath_cls::GetRunningFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? wxString(".") : FromBytes(program.parent_path().string());
}

wxString ResourcePath_cls::Find(const wxString& name) {
    if (name.StartsWith("/")) return name;
    for (const char* place : {"/", "/../share/varnholt3/", "/../lib/varnholt3/"}) {
        const wxString path = ProgramFolder() + place + name;
        if (wxFileName::Exists(path)) return path;
    }
    return name;
}

void ResourcePath_cls::SetProgramFolder(const wxString& folder) {
    ProgramFolder() = folder;
}
