#include "data/clsDataName.h"

#include <filesystem>

#include "data/clsFileSequence.h"
#include "seam/clsInputFile.h"
#include "seam/clsTextCoding.h"

namespace {

bool IsAbsolute(const wxString& path) {
    return path.StartsWith("/");
}

wxString Absolute(const wxString& path) {
    std::error_code error;
    const auto absolute = std::filesystem::absolute(ToBytes(path.empty() ? wxString("./") : path), error);
    return error ? path : FromBytes(absolute.lexically_normal().string());
}

bool IsThere(const wxString& name) {
    return InputFile_cls::CanOpen(FileSequence_cls(name).GetModifiedStr(0));
}

}  // namespace

wxString DataName::Resolve(const wxString& folder, const wxString& name) {
    if (folder.empty() || name.empty() || IsAbsolute(name)) return name;
    const wxString beside = folder + name;
    return !IsThere(beside) && IsThere(name) ? name : beside;
}

wxString DataName::ForProject(const wxString& folder, const wxString& path) {
    if (path.empty() || IsAbsolute(path)) return path;
    wxString inside = Absolute(folder);
    if (!inside.EndsWith("/")) inside += "/";
    if (inside == Absolute("./")) return path;
    const wxString full = Absolute(path);
    wxString rest;
    return full.StartsWith(inside, &rest) ? rest : full;
}
