#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <thread>

#include "output/clsImageFile.h"
#include "output/clsSampleAverage.h"
#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

/// A particle that walks to the right, one snapshot a file.
void WriteSeries(const TempFolder_cls& folder, int files) {
    for (int i = 0; i < files; ++i) {
        const SampleParticle_cls walker{{0.1F * static_cast<float>(i), 0, 0}, {0, 0, 0}, 1, 1, 0, 0};
        const SampleParticle_cls still{{0, 1, 0}, {0, 0, 0}, 1, 1, 1, 1};
        folder.Write(std::string(wxString::Format("s%04d.dat", i)),
                     DefaultSnapshot(static_cast<float>(i), 2, {walker, still}));
    }
}

std::vector<std::string> Names(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

TEST(FilmGLTest, ResumeKeepsWholePicturesAndDrawsTheRest) {
    const TempFolder_cls folder;
    WriteSeries(folder, 4);
    const auto render = [&](const std::vector<std::string>& more) {
        std::vector<std::string> arguments = {"--no-config", "--render", "p%01d.png",
                                              "s0000.dat",   "--size",   "64x48"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const auto run = RunProgram(arguments, folder.Path());
        EXPECT_EQ(run.status, 0) << run.err;
    };
    render({});
    const std::string whole = ReadWholeFile(folder.File("p0.png"));
    const auto picture = [&](int i) { return ReadWholeFile(folder.File("p" + std::to_string(i) + ".png")); };
    const std::vector<std::string> before = {picture(0), picture(1), picture(2), picture(3)};
    folder.Write("p0.png", before[3]);                 // whole: kept, whatever it shows
    folder.Write("p1.png", before[1].substr(0, 100));  // torn
    folder.Write("p2.png", "");
    std::filesystem::remove(folder.File("p3.png"));
    render({"--resume"});
    EXPECT_EQ(picture(0), before[3]);
    for (int i = 1; i < 4; ++i) EXPECT_TRUE(picture(i) == before[static_cast<size_t>(i)]) << i;
    render({"--resume", "--size", "32x32"});
    EXPECT_FALSE(picture(2) == before[2]) << "another size is drawn anew";
}

TEST(FilmGLTest, AnInterruptLeavesWholePicturesOnly) {
    struct Case {
        int signal;
        bool isEncoderStanding;
    };
    ImageFile_cls::InitHandlers();
    for (const Case& c : {Case{SIGINT, false}, Case{SIGHUP, true}}) {
        const TempFolder_cls folder;
        WriteSeries(folder, 400);
        std::filesystem::create_directory(folder.File("out"));
        if (c.isEncoderStanding) chmod(folder.Write("ffmpeg", "#!/bin/sh\n/bin/sleep 1000\n").c_str(), 0755);
        const pid_t child = fork();
        if (child == 0) {
            if (chdir(folder.Path().c_str()) != 0) _exit(99);
            signal(SIGHUP, SIG_DFL);
            setenv("PATH", (folder.Path().string() + ":" + getenv("PATH")).c_str(), 1);
            execl(VARNHOLT_PROGRAM, "varnholt3", "--no-config", "--quiet", "--render", "out/p%04d.png",
                  "s0000.dat", "--movie", "out/f.mp4", "--size", "640x480", nullptr);
            _exit(98);
        }
        // An encoder that reads nothing takes one frame, and the next is awaited.
        const std::string last = folder.File(c.isEncoderStanding ? "out/p0001.png" : "out/p0003.png");
        for (int i = 0; i < 500 && !std::filesystem::exists(last); ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        kill(child, c.signal);
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status));
        EXPECT_EQ(WEXITSTATUS(status), 130);
        const auto names = Names(folder.File("out"));
        EXPECT_GE(names.size(), 2U);
        EXPECT_LT(names.size(), 400U);
        for (const std::string& name : names)
            EXPECT_TRUE(ImageFile_cls::Read(wxString::FromUTF8(folder.File("out/" + name)), 640, 480))
                << name;
    }
}

TEST(ImageFileTest, ACutPictureOfAnyFormatIsNone) {
    const TempFolder_cls folder;
    ImageFile_cls::InitHandlers();
    const Picture_cls picture{64, 48, std::vector<uint8_t>(3 * 64 * 48, 77)};
    for (const char* name : {"p.png", "p.jpg", "p.tif", "p.bmp"}) {
        const wxString path = wxString::FromUTF8(folder.File(name));
        ASSERT_EQ(ImageFile_cls::Write(path, picture), "");
        EXPECT_TRUE(ImageFile_cls::Read(path, 64, 48)) << name;
        const std::string bytes = ReadWholeFile(folder.File(name));
        folder.Write(name, bytes.substr(0, bytes.size() / 2));
        EXPECT_FALSE(ImageFile_cls::Read(path, 64, 48)) << name;
    }
}

TEST(FilmGLTest, TheMovieHoldsEveryFrameAndItsFaultsAreTold) {
    const TempFolder_cls folder;
    WriteSeries(folder, 3);
    const auto render = [&](const std::string& movie, const std::vector<std::string>& environment) {
        return RunProgram({"--no-config", "--render", "p%01d.png", "s0000.dat", "--size", "65x49", "--movie",
                           movie, "--fps", "25"},
                          folder.Path(), environment);
    };
    const auto missing = render("f.mp4", {"PATH=/nowhere"});
    EXPECT_EQ(missing.status, 1);
    EXPECT_NE(missing.err.find("apt install ffmpeg"), std::string::npos) << missing.err;
    const auto unwritable = render("nowhere/f.mp4", {});
    EXPECT_EQ(unwritable.status, 1);
    EXPECT_NE(unwritable.err.find("nowhere/f.mp4"), std::string::npos) << unwritable.err;
    if (std::system("ffprobe -version >/dev/null 2>&1") != 0) GTEST_SKIP() << "ffmpeg is not installed";
    const auto made = render("f.mp4", {});
    EXPECT_EQ(made.status, 0) << made.err;
    const std::string count =
        "ffprobe -v error -count_frames -show_entries stream=r_frame_rate,nb_read_frames -of csv=p=0 " +
        folder.File("f.mp4") + " >" + folder.File("count");
    ASSERT_EQ(std::system(count.c_str()), 0);
    EXPECT_EQ(ReadWholeFile(folder.File("count")), "25/1,3\n");
}

TEST(FilmGLTest, MotionBlurSpreadsWhatMovesOverItsWay) {
    const TempFolder_cls folder;
    WriteSeries(folder, 10);
    const std::string remap =
        "TimeUseTimeRemap=1\n---TimeRemap\n-ParamGroup=Time\nStart\nParameter_Time Remap\nitemnum 2\n"
        "0 0 0 0 0\n1 0 9 0 0\n";
    const auto lit = [&](const std::string& blur) {
        EXPECT_EQ(RunProgram({"--no-config", "--save", "plain.vhp", "s0000.dat"}, folder.Path()).status, 0);
        folder.Write("blur.vhp",
                     ReadWholeFile(folder.File("plain.vhp")) + remap + "TimeUseMotionBlur=" + blur + "\n");
        const auto run =
            RunProgram({"--no-config", "--render", "p.png", "blur.vhp", "--frames", "2", "--size", "300x200",
                        "--set", "Panel0ShowMessage=0", "--set", "InterpolateType=0"},
                       folder.Path());
        EXPECT_EQ(run.status, 0) << run.err;
        ImageFile_cls::InitHandlers();
        const auto picture = ImageFile_cls::Read(wxString::FromUTF8(folder.File("p.png")), 300, 200);
        int columns = 0;
        for (int x = 0; x < 300; ++x) {
            bool any = false;
            for (int y = 0; y < 200; ++y)
                any = any || picture->mRGB[static_cast<size_t>(3 * (y * 300 + x))] > 60;
            columns += any ? 1 : 0;
        }
        return columns;
    };
    EXPECT_GT(lit("1"), lit("0") + 3);
}

TEST(SampleAverageTest, LightIsAveragedNotNumbers) {
    const auto mean = [](uint8_t one, uint8_t other) {
        SampleAverage_cls average;
        average.Add({1, 1, {one, one, one}});
        average.Add({1, 1, {other, other, other}});
        return static_cast<int>(average.Take().mRGB[0]);
    };
    EXPECT_EQ(mean(0, 255), 188) << "half the light of white";
    for (int i = 0; i < 256; ++i) EXPECT_EQ(mean(static_cast<uint8_t>(i), static_cast<uint8_t>(i)), i);
}

}  // namespace
