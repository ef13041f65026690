#include <gtest/gtest.h>
#include <wx/file.h>
#include <wx/utils.h>

#include "gui/clsRecovery.h"
#include "support/TempFolder.h"
#include "support/gui/User.h"

namespace {

TEST(RecoveryGuiTest, WorkIsKeptAtTheIntervalWhenItHasChanged) {
    struct Case {
        const char* name;
        int interval;
        bool modified;
        bool changesEveryMinute;
        int minutes;
        int savings;
    };
    const Case cases[] = {
        {"every minute", 1, true, true, 5, 5}, {"every third", 3, true, true, 8, 2},
        {"never", 0, true, true, 5, 0},        {"nothing unsaved", 1, false, true, 5, 0},
        {"nothing new", 1, true, false, 5, 1},
    };
    const TempFolder_cls folder;
    for (const Case& c : cases) {
        OnGui([&] {
            size_t state = 0;
            int savings = 0;
            Recovery_cls recovery(folder.Path().string(), {.isModified = [&] { return c.modified; },
                                                           .getState = [&] { return state; },
                                                           .save =
                                                               [&](const wxString&) {
                                                                   ++savings;
                                                                   return true;
                                                               },
                                                           .getInterval = [&] { return c.interval; }});
            EXPECT_EQ(recovery.GetInterval(), 60000) << "the timer counts minutes";
            for (int minute = 0; minute < c.minutes; ++minute) {
                if (c.changesEveryMinute) ++state;
                recovery.Notify();
            }
            EXPECT_EQ(savings, c.savings) << c.name;
        });
    }
}

TEST(RecoveryGuiTest, OnlyWorkOfRunsThatHaveEndedIsFound) {
    const TempFolder_cls folder;
    const auto make = [&folder] {
        return Recovery_cls(
            folder.Path().string(),
            {.isModified = [] { return true; },
             .getState = [] { return size_t{1}; },
             .save = [](const wxString& path) { return wxFile(path, wxFile::write).IsOpened(); },
             .getInterval = [] { return 1; }});
    };
    OnGui([&] {
        Recovery_cls running = make();
        running.Save();
        EXPECT_EQ(running.FindLeft(), std::nullopt) << "its own";
        for (const char* name : {"unsaved-%lu-1.vhp", "unsaved-%lu.vhp"}) {
            const wxString left = folder.Path().string() + "/" + wxString::Format(name, wxGetProcessId());
            wxFile(left, wxFile::write);
            EXPECT_EQ(running.FindLeft(), left) << "another run of this process number";
            Recovery_cls::Discard(left);
        }
        running.Clear();
        EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
    });
}

}  // namespace
