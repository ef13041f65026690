#include <gtest/gtest.h>

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

}  // namespace
