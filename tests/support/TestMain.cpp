#include <gtest/gtest.h>
#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include "seam/clsTextCoding.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const wxInitializer wx;
    wxLog::SetActiveTarget(new wxLogStderr);
    InstallFileNameConversion();
    return RUN_ALL_TESTS();
}
