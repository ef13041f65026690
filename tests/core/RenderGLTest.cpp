#include <gtest/gtest.h>
#include <wx/image.h>

#include <filesystem>

#include "output/clsImageFile.h"
#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

wxImage ReadPicture(const std::string& name) {
    ImageFile_cls::InitHandlers();
    wxImage image;
    image.LoadFile(wxString::FromUTF8(name));
    return image;
}

int Brightest(const wxImage& image, int x, int y) {
    return std::max({image.GetRed(x, y), image.GetGreen(x, y), image.GetBlue(x, y)});
}

SampleParticle_cls At(float x, float y, int32_t type) {
    return {{x, y, 0}, {0, 0, 0}, 1, 1, type, 0};
}

/// The corners of a square in the x-y plane, each of another type, and a particle that cannot be drawn.
std::string Square(float time) {
    return DefaultSnapshot(time, 5,
                           {At(-1, -1, 0), At(1, -1, 1), At(-1, 1, 2), At(1, 1, 3), At(NAN, INFINITY, 4)});
}

TEST(RenderGLTest, ParticlesStandWhereTheyShouldInTheColourOfTheirType) {
    const TempFolder_cls folder;
    folder.Write("s0000.dat", Square(0));
    const ProgramRun_cls run =
        RunProgram({"--render", "p.png", "s0000.dat", "--size", "300x200", "--set", "Panel0ShowMessage=0"},
                   folder.Path());
    EXPECT_EQ(run.status, 1) << "one particle has no place";
    EXPECT_NE(run.err.find("1 of 5 particles"), std::string::npos) << run.err;

    const wxImage image = ReadPicture(folder.File("p.png"));
    ASSERT_TRUE(image.IsOk());
    ASSERT_EQ(image.GetSize(), wxSize(300, 200));
    // The circle through the corners fills the height but for a margin of 5 %: they are 0.707 * 95 pixels
    // from the middle (seen a little smaller, for the sphere's rim is nearer to the camera).
    int minX = 300;
    int maxX = 0;
    int minY = 200;
    int maxY = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 300; ++x) {
            if (Brightest(image, x, y) < 100) continue;
            minX = std::min(minX, x);
            maxX = std::max(maxX, x);
            minY = std::min(minY, y);
            maxY = std::max(maxY, y);
        }
    }
    EXPECT_NEAR((minX + maxX) / 2.0, 149.5, 1.0);
    EXPECT_NEAR((minY + maxY) / 2.0, 99.5, 1.0);
    EXPECT_NEAR(maxX - minX, maxY - minY, 1) << "pixels are square in a wide picture";
    constexpr int kBall = 23;  // radius of the balls that few particles are shown as
    EXPECT_NEAR((maxX - minX) / 2.0, 0.707 * 95 * 0.95 + kBall, 5.0);

    // y grows upwards: the lower left particle is of type 0, which is drawn warm, its right neighbour cold.
    EXPECT_GT(image.GetRed(minX + kBall, maxY - kBall), image.GetBlue(minX + kBall, maxY - kBall));
    EXPECT_GT(image.GetBlue(maxX - kBall, maxY - kBall), image.GetRed(maxX - kBall, maxY - kBall));
}

TEST(RenderGLTest, PartsOfAFilmRenderedApartAreTheSameFiles) {
    const TempFolder_cls folder;
    for (int i = 0; i < 4; ++i) {
        folder.Write("s000" + std::to_string(i) + ".dat",
                     DefaultSnapshot(0, 2, {At(static_cast<float>(i), 0, 0), At(0, 1, 1)}));
    }
    std::filesystem::create_directory(folder.File("a"));
    std::filesystem::create_directory(folder.File("b"));
    const auto render = [&](const std::string& pattern, const std::string& frames) {
        const auto run = RunProgram({"--render", pattern, "s0000.dat", "--frames", frames, "--size", "64x48"},
                                    folder.Path());
        EXPECT_EQ(run.status, 0) << run.err;
    };
    render("a/%04d.png", "0:3");
    render("b/%04d.png", "0:1");
    render("b/%04d.png", "2:3");
    for (const char* name : {"0000.png", "0001.png", "0002.png", "0003.png"}) {
        const std::string bytes = ReadWholeFile(folder.File(std::string("a/") + name));
        EXPECT_GT(bytes.size(), 100U);
        EXPECT_EQ(bytes, ReadWholeFile(folder.File(std::string("b/") + name))) << name;
    }
}

TEST(RenderGLTest, AProjectSavedByOneRunLooksTheSameInAnother) {
    const TempFolder_cls folder;
    for (int i = 0; i < 4; ++i) {
        const auto x = 0.2F * static_cast<float>(i);
        folder.Write("s000" + std::to_string(i) + ".dat", DefaultSnapshot(x, 2, {At(x, 0, 0), At(0, 1, 0)}));
    }
    const auto run = [&](const std::vector<std::string>& arguments) {
        const auto result = RunProgram(arguments, folder.Path());
        EXPECT_EQ(result.status, 0) << result.err;
    };
    const auto picture = [&](const std::string& project) {
        run({"--no-config", "--render", "p.png", project, "--frames", "2", "--size", "64x48"});
        return ReadWholeFile(folder.File("p.png"));
    };
    run({"--no-config", "--save", "plain.vhp", "s0000.dat"});
    const std::string remap =
        "TimeUseTimeRemap=1\n---TimeRemap\n-ParamGroup=Time\nStart\nParameter_Time Remap\nitemnum 2\n"
        "0 0 0 0 0\n1 0 1.5 0 0\n";
    const std::string curve =
        "SEQ0TYPE0ColUseColorCurve=1\n-ParamGroup=SEQ0TYPE0Col ColorCurve\nStart\nParameter_R\nitemnum 1\n"
        "0 0 0 0 0\nParameter_G\nitemnum 2\n0 0 0 0 0\n1 0 1 0 0\n";
    const std::string camera =
        "---CameraPath\n-ParamGroup=Camera Position\nStart\nParameter_CameraPositionX\ntimeDepend=1\n"
        "itemnum 2\n0 0 0 0 0\n1 1 5 0 0\n---CameraPath\n";
    folder.Write("keys.vhp", ReadWholeFile(folder.File("plain.vhp")) + remap + curve + camera);
    const std::string before = picture("keys.vhp");
    EXPECT_FALSE(before == picture("plain.vhp")) << "the remap shows another instant";
    run({"--no-config", "--save", "saved.vhp", "keys.vhp"});
    EXPECT_TRUE(before == picture("saved.vhp"));
    EXPECT_NE(ReadWholeFile(folder.File("saved.vhp")).find("1.000000000 1 5.000000"), std::string::npos);
}

TEST(RenderGLTest, TheDemosFormatsHoldTheSamePicture) {
    const TempFolder_cls folder;
    const auto make = [&](const std::string& options) {
        return std::system((VARNHOLT_GENERATOR " --particles 3000 --snapshots 2 " + options + " " +
                            folder.Path().string() + " >" + folder.File("log"))
                               .c_str());
    };
    ASSERT_EQ(make("--format binary --name bin"), 0);
    ASSERT_EQ(make("--format text --name txt"), 0);
    ASSERT_EQ(make("--format binary --shuffle --name shuffled"), 0);
    const auto picture = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.end(), {"--render", "p.png", "--frames", "1", "--size", "200x100"});
        const auto run = RunProgram(arguments, folder.Path());
        EXPECT_EQ(run.status, 0) << run.err;
        return ReadWholeFile(folder.File("p.png"));
    };
    const std::string fromBinary = picture({"bin0000.dat"});
    EXPECT_GT(fromBinary.size(), 500U);
    EXPECT_EQ(fromBinary, picture({"txt0000.txt", "--set", "DataLoadDataType=1"}));
    EXPECT_NE(ReadWholeFile(folder.File("bin0001.dat")), ReadWholeFile(folder.File("shuffled0001.dat")));
}

TEST(RenderGLTest, WhatCannotBeWrittenLeavesNothingBehind) {
    const TempFolder_cls folder;
    for (const char* name : {"s0000.dat", "s0001.dat"})
        folder.Write(name, DefaultSnapshot(0, 1, {At(0, 0, 0)}));
    struct Case {
        std::vector<std::string> arguments;
        int status;
        const char* said;
    };
    const Case cases[] = {
        {{"--render", "gone/p%04d.png", "s0000.dat"}, 1, "gone/p"},
        {{"--render", "p.png", "s0000.dat"}, 2, "several frames"},
        {{"--render", "/dev/full/p.png", "s0000.dat", "--frames", "0"}, 1, "/dev/full/p.png"},
    };
    for (const Case& c : cases) {
        const auto run = RunProgram(c.arguments, folder.Path());
        EXPECT_EQ(run.status, c.status) << run.err;
        EXPECT_NE(run.err.find(c.said), std::string::npos) << run.err;
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2);
}

TEST(RenderGLTest, AMachineWithoutEGLIsTold) {
    const TempFolder_cls folder;
    folder.Write("s0000.dat", DefaultSnapshot(0, 1, {At(0, 0, 0)}));
    // No vendor library, no EGL.
    const auto run = RunProgram({"--render", "p.png", "s0000.dat"}, folder.Path(),
                                {"__EGL_VENDOR_LIBRARY_FILENAMES=/nowhere"});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("EGL"), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(folder.File("p.png")));
}

TEST(RenderGLTest, JpegPicturesHaveThePreferredQuality) {
    const TempFolder_cls folder;
    folder.Write("s0000.dat", Square(0));
    std::vector<std::uintmax_t> bytes;
    for (const char* quality : {"5", "50", "100"}) {
        RunProgram({"--render", "p.jpg", "s0000.dat", "--size", "300x200", "--set",
                    std::string("PREF_JPEG_QUALITY=") + quality},
                   folder.Path());
        ASSERT_TRUE(ReadPicture(folder.File("p.jpg")).IsOk()) << quality;
        bytes.push_back(std::filesystem::file_size(folder.File("p.jpg")));
    }
    EXPECT_LT(bytes[0] * 5 / 4, bytes[1]);
    EXPECT_LT(bytes[1] * 5 / 4, bytes[2]);
}

}  // namespace
