#include <gtest/gtest.h>
#include <wx/app.h>
#include <cstdlib>
#include "gui/clsDataLoaderGUI.h"
#include "support/gui/OpenWindow.h"
#include "support/TempFolder.h"
#include "seam/clsTextCoding.h"

namespace {

TEST(LoaderShot, Shot) {
    OpenWindow_cls window;
    const char* file = getenv("SHOT_FILE");
    DataLoaderGUI_cls* dialog = nullptr;
    LoadDraft_cls* draft = nullptr;
    OnGui([&] {
        draft = new LoadDraft_cls(window.Main().GetDataLoader());
        if (file) draft->SetFile(FromBytes(file));
        dialog = new DataLoaderGUI_cls(window.Frame(), *draft);
        dialog->Show();
        if (getenv("SHOT_BODY")) { draft->GetLoader().ReadStrLine(wxString(getenv("SHOT_BODY"))); draft->Update(); }
    });
    WaitFor([&] { return dialog->IsShownOnScreen(); });
    wxMilliSleep(1500);
    std::system((std::string("import -window root ") + getenv("SHOT_OUT")).c_str());
    OnGui([&] { dialog->Destroy(); });
    wxMilliSleep(300);
}

}  // namespace
