#include "gui/clsIcons.h"

#include <wx/ffile.h>
#include <wx/filename.h>
#include <wx/window.h>

#include <map>

#include "seam/clsResourcePath.h"

namespace {

/// The drawing as text; read once, empty when there is none.
const wxString& Drawing(const wxString& name) {
    static std::map<wxString, wxString> drawings;
    const auto [entry, isNew] = drawings.try_emplace(name);
    const wxString path = isNew ? ResourcePath_cls::Find("ICONS/" + name + ".svg") : wxString();
    if (wxFileName::FileExists(path)) {
        wxFFile file(path);
        if (!file.IsOpened() || !file.ReadAll(&entry->second)) entry->second.clear();
    }
    return entry->second;
}

wxColour HalfWay(const wxColour& a, const wxColour& b) {
    const auto mix = [](int x, int y) { return static_cast<unsigned char>((x + y) / 2); };
    return {mix(a.Red(), b.Red()), mix(a.Green(), b.Green()), mix(a.Blue(), b.Blue())};
}

}  // namespace

wxBitmapBundle Icons_cls::Get(const wxString& name, const wxColour& colour, int size) {
    wxString drawing = Drawing(name);
    if (drawing.empty()) return {};
    drawing.Replace("#000000", colour.GetAsString(wxC2S_HTML_SYNTAX));
    return wxBitmapBundle::FromSVG(drawing.utf8_str(), wxSize(size, size));
}

wxBitmapBundle Icons_cls::Get(const wxString& name, const wxWindow& window, int size) {
    return Get(name, window.GetForegroundColour(), size);
}

wxBitmapBundle Icons_cls::GetFaded(const wxString& name, const wxWindow& window, int size) {
    return Get(name, HalfWay(window.GetForegroundColour(), window.GetBackgroundColour()), size);
}
