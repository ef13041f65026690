#include "support/gui/OpenWindow.h"

#include <wx/dialog.h>
#include <wx/evtloop.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "seam/clsTextCoding.h"

OpenWindow_cls::OpenWindow_cls(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"varnholt3"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    if (std::find(words.begin(), words.end(), "--config") == words.end()) words.push_back("--no-config");
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    wxString error;
    const auto line = CommandLine_cls::Parse(static_cast<int>(pointers.size()), pointers.data(), &error);
    if (!line) throw std::runtime_error(ToBytes(error));
    const wxString folder = FromBytes(std::filesystem::path(VARNHOLT_PROGRAM).parent_path().string());
    const bool opened = OnGui([&] {
        mSession = std::make_unique<WindowSession_cls>(*line, folder);
        return mSession->Open();
    });
    if (!opened) throw std::runtime_error("the window does not open");
    WaitFor([this] { return Frame()->IsShownOnScreen() && Frame()->IsActive(); }, 1500);
    if (OnGui([this] { return Frame()->IsActive(); })) return;
    // Window managers are wary of windows that no user has asked for.
    User_cls().Click(
        OnGui([this] { return ScreenRect(*Frame()->GetStatusBar()).GetPosition() + wxPoint(20, 8); }));
    WaitFor([this] { return Frame()->IsActive(); }, 3000);
}

OpenWindow_cls::~OpenWindow_cls() {
    // A test that failed may leave a dialog open: it returns before its window ends.
    OnGui([] {
        for (wxWindow* top : wxTopLevelWindows) {
            auto* dialog = dynamic_cast<wxDialog*>(top);
            if (dialog && dialog->IsModal()) dialog->EndModal(wxID_CANCEL);
        }
    });
    WaitFor([] { return wxEventLoopBase::GetActive() == wxTheApp->GetMainLoop(); });
    OnGui([this] { mSession.reset(); });
}
