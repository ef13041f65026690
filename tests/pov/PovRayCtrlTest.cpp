#include "pov/clsPovRayCtrl.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "seam/clsTextCoding.h"
#include "support/RecordingMessage.h"
#include "support/TempFolder.h"

namespace {

using Series = PovRayCtrl_cls::Series;

std::string Ini(const PovRayCtrl_cls& control, Series series = Series::Snap) {
    wxString text;
    control.GetStrPovIni(&text, control.GetFileStr(7, series), series);
    return ToBytes(text);
}

TEST(PovRayCtrlTest, TheOptionFileOfTheDefaults) {
    PovRayCtrl_cls control;
    control.mPathPovWork.SetText("/tmp/work/");
    EXPECT_EQ(Ini(control),
              "width=640\nheight=480\nDISPLAY=on\nPause_When_Done=off\nVersion=3.7\n"
              "Display_Gamma=1\nFile_Gamma=1\nRender_Block_Size=48\nRender_Pattern=3\nBounding_Method=2\n"
              "Antialias=0\nJitter=0\nOutput_File_Type=N\nOutput_Alpha=0\n"
              "Input_File_Name=\"povsnap0007.pov\"\nOutput_File_Name=\"povsnap0007.png\"\n"
              "#Initial_Frame=0\n#Final_Frame=10\n#Subset_Start_Frame=0\n#Subset_End_Frame=9\n");
    EXPECT_EQ(control.GetPovRayCommand(control.GetFileStr(7, Series::Anim)),
              "nice /usr/bin/povray /tmp/work/povanim0007.ini");
}

TEST(PovRayCtrlTest, SettingsChangeTheirLinesOfTheOptionFile) {
    struct Case {
        const char* settings;
        const char* lines;
        bool there = true;
    };
    const Case cases[] = {
        {"PovOutputFomat=1", "Jitter=0\nBits_Per_Color=12\nOutput_File_Type=N\nOutput_Alpha=0\n"},
        {"PovOutputFomat=2", "Jitter=0\nOutput_File_Type=\nOutput_Alpha=0\n"},
        {"PovOutputFomat=3", "Jitter=0\nBits_Per_Color=16\nOutput_File_Type=S\nOutput_Alpha=0\n"},
        {"PovOutputFomat=4", "Output_File_Type=P\nOutput_Alpha=0\n"},
        {"PovOutputFomat=4", "Output_File_Name=\"povsnap0007.ppm\"\n"},
        {"PovOutputFomat=5", "Output_File_Type=J\nCompression=95\nOutput_Alpha=0\n"},
        {"PovOutputFomat=6", "Output_File_Type=E\nOutput_Alpha=0\n"},
        {"PovOutputFomat=7", "Output_File_Type=H\nOutput_Alpha=0\n"},
        {"PovOutputFomat=99", "Output_File_Type=N\n"},
        {"PovDisplay=0\nPovPauseWhenDone=1", "DISPLAY=off\nPause_When_Done=on\n"},
        {"PovBoundingMethod=0", "Bounding_Method", false},
        {"PovAntialias=1\nPovAntiAliasThreshold=0.25\nPovAntiAliasDepth=4",
         "Antialias=1\nAntialias_Threshold=0.250000\nAntialias_Depth=4\nJitter=0\n"},
        {"PovJitter=1\nPovJitterAmount=0.5", "Jitter=1\nJitter_Amount=0.500000\n"},
        {"PovOutputAlpha=1", "Output_Alpha=1\n"},
        {"PovCameraWidth=-3\nPovCameraHeight=2000000000", "width=1\nheight=16384\n"},
        {"PovFileAbsolute=1", "Input_File_Name=\"/tmp/work/povsnap0007.pov\"\n"},
        {"PovRadiosityReuse=1\nPovRadiosityPathDir=/tmp/work/a.rad", "Radiosity", false},
        {"PovRadiosityType=1", ".png\"\nRadiosity_Vain_Pretrace=off\nHigh_Reproducibility=off\n#Initial"},
        {"PovRadiosityType=1\nPovRadiosityReuse=1\nPovRadiosityPathDir=/tmp/work/"
         "a.rad\nPovRadHighReproduce=1",
         "Radiosity_File_Name=\"./a.rad\"\nRadiosity_To_File=on\nRadiosity_Vain_Pretrace=off\n"
         "High_Reproducibility=on\n"},
        {"PovFileAbsolute=1\nPovRadiosityType=1\nPovRadiosityReuse=2\nPovRadiosityPathDir=/tmp/work/a.rad",
         "Radiosity_File_Name=\"/tmp/work/a.rad\"\nRadiosity_From_File=on\n"},
        {"PovRadiosityType=1\nPovRadiosityReuse=2\nPovRadiosityPathDir=/tmp/a\"b", "From_File", false},
    };
    for (const Case& c : cases) {
        PovRayCtrl_cls control;
        control.mPathPovWork.SetText("/tmp/work");
        wxString rest = c.settings;
        for (; !rest.empty(); rest = rest.AfterFirst('\n'))
            EXPECT_TRUE(control.ReadStrLine(rest.BeforeFirst('\n'))) << c.settings;
        const std::string text = Ini(control);
        EXPECT_EQ(text.find(c.lines) != std::string::npos, c.there) << c.settings << "\n" << text;
    }
    PovRayCtrl_cls control;
    control.ReadStrLine("PovPauseWhenDone=1");
    EXPECT_NE(Ini(control, Series::Anim).find("Pause_When_Done=off\n"), std::string::npos)
        << "nobody presses a key for each picture of an animation";
}

TEST(PovRayCtrlTest, NamesThatTheShellOrTheRendererWouldMisreadAreNotGivenToThem) {
    struct Case {
        const char* folder;
        const char* command;
    };
    for (const Case& c :
         {Case{"/tmp/a b", "nice /usr/bin/povray povsnap0001.ini"},
          Case{"/tmp/$(rm x)", "nice /usr/bin/povray povsnap0001.ini"},
          Case{"/tmp/q\"'", "nice /usr/bin/povray povsnap0001.ini"},
          Case{"/tmp/\xC3\xA4", "nice /usr/bin/povray povsnap0001.ini"},
          Case{"/tmp/plain-1.2_3", "nice /usr/bin/povray /tmp/plain-1.2_3/povsnap0001.ini"}}) {
        PovRayCtrl_cls control;
        control.mPathPovWork.SetText(FromBytes(c.folder));
        control.GetFormat().mFileAbsolute.mValue = true;
        const wxString name = control.GetFileStr(1, Series::Snap);
        EXPECT_EQ(ToBytes(control.GetPovRayCommand(name)), c.command) << c.folder;
        const bool isPlain = std::string(c.folder).find("plain") != std::string::npos;
        EXPECT_EQ(Ini(control).find("Input_File_Name=\"pov") == std::string::npos, isPlain) << c.folder;
    }
    PovRayCtrl_cls control;
    control.mPathPovRay.SetText("/opt/it's mine/povray");
    control.mPathPovWork.SetText("/tmp");
    EXPECT_EQ(control.GetPovRayCommand("/tmp/x"), "nice '/opt/it'\\''s mine/povray' /tmp/x.ini");
}

TEST(PovRayCtrlTest, EveryFrameHasItsOwnName) {
    struct Case {
        const char* pattern;
        const char* name;
    };
    for (const Case& c :
         {Case{"a%04d", "/w/a0012"}, Case{"a%02d_b", "/w/a12_b"}, Case{"plain", "/w/plain0012"},
          Case{"take2", "/w/take20012"}, Case{"%s%n", "/w/%s%n0012"}}) {
        PovRayCtrl_cls control;
        control.mPathPovWork.SetText("/w");
        control.mFilePovAnim.SetText(c.pattern);
        EXPECT_EQ(control.GetFileStr(12, Series::Anim), c.name);
    }
}

TEST(PovRayCtrlTest, MissingPathsAreAskedAbout) {
    const TempFolder_cls folder;
    RecordingMessage_cls message;
    PovRayCtrl_cls control;
    control.mPathPovRay.SetText("/bin/sh");
    control.mPathPovWork.SetText(FromBytes(folder.Path()));
    EXPECT_TRUE(control.ConfirmPaths());
    EXPECT_TRUE(message.mSaid.empty());

    control.mPathPovRay.SetText("/nowhere/povray");
    control.mPathPovWork.SetText("");
    EXPECT_FALSE(control.ConfirmPaths());
    message.mAnswerYes = true;
    EXPECT_TRUE(control.ConfirmPaths());
    ASSERT_EQ(message.mSaid.size(), 2U);
    EXPECT_EQ(message.mSaid[0].title, "Warning");
    EXPECT_EQ(message.mSaid[0].text,
              "Path discrepancy.\nPath discrepancy.\nAbove warnings detected. Continue?");
}

}  // namespace
