#include <gtest/gtest.h>
#include <wx/image.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <random>

#include "output/clsImageFile.h"
#include "support/Program.h"
#include "support/SampleData.h"
#include "support/TempFolder.h"

namespace {

constexpr const char* kPovRay = "/usr/bin/povray";
/// What is drawn: a file in the test's folder, and of which frame at which size.
struct Scene {
    std::string file = "s0000.dat";
    int frame = 0;
    std::string size = "320x240";
};

struct Blob {
    double x, y;
};

/// Middles of the connected bright spots.
std::vector<Blob> Blobs(const wxImage& image) {
    const int width = image.GetWidth();
    const int height = image.GetHeight();
    std::vector<bool> bright(static_cast<size_t>(width * height));
    for (int i = 0; i < width * height; ++i) {
        const unsigned char* pixel = image.GetData() + 3 * i;
        bright[static_cast<size_t>(i)] = std::max({pixel[0], pixel[1], pixel[2]}) > 90;
    }
    std::vector<Blob> blobs;
    for (int start = 0; start < width * height; ++start) {
        if (!bright[static_cast<size_t>(start)]) continue;
        std::vector<int> stack = {start};
        bright[static_cast<size_t>(start)] = false;
        double x = 0.0;
        double y = 0.0;
        double count = 0.0;
        while (!stack.empty()) {
            const int pixel = stack.back();
            stack.pop_back();
            x += pixel % width;
            y += pixel / width;
            ++count;
            for (const int next : {pixel - 1, pixel + 1, pixel - width, pixel + width}) {
                if (next < 0 || next >= width * height || !bright[static_cast<size_t>(next)]) continue;
                bright[static_cast<size_t>(next)] = false;
                stack.push_back(next);
            }
        }
        blobs.push_back({x / count, y / count});
    }
    return blobs;
}

/// The colours between two columns, above the background, added up.
std::array<double, 3> SumOfColours(const wxImage& image, int left, int right) {
    std::array<double, 3> sum{};
    for (int y = 0; y < image.GetHeight(); ++y) {
        for (int x = left; x < right; ++x) {
            const unsigned char* pixel = image.GetData() + 3 * (y * image.GetWidth() + x);
            for (size_t c = 0; c < 3; ++c) sum[c] += pixel[c] - image.GetData()[c];
        }
    }
    return sum;
}

/// One frame drawn by the view and by POV-Ray, without anything but the particles.
class PovPictureGLTest : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!std::filesystem::exists(kPovRay))
            GTEST_SKIP() << kPovRay << " is not installed (Debian's package povray)";
        if (!wxImage::FindHandler(wxBITMAP_TYPE_PNG)) ImageFile_cls::InitHandlers();
    }
    void Draw(const std::vector<SampleParticle_cls>& particles, const std::vector<std::string>& settings) {
        mFolder.Write("s0000.dat", DefaultSnapshot(0, static_cast<int>(particles.size()), particles));
        Draw(Scene(), settings);
    }
    void Draw(const Scene& scene, const std::vector<std::string>& settings) {
        const std::string frame = std::to_string(scene.frame);
        std::vector<std::string> common = {"--no-config", "--quiet", scene.file, "--frames",
                                           frame,         "--size",  scene.size};
        for (const char* off : {"ShowMessage", "ShowItems", "ShowGrid"})
            common.insert(common.end(), {"--set", std::string("Panel0") + off + "=0"});
        for (const std::string& setting : settings) common.insert(common.end(), {"--set", setting});
        const auto run = [&](std::vector<std::string> arguments) {
            arguments.insert(arguments.end(), common.begin(), common.end());
            const auto result = RunProgram(arguments, mFolder.Path());
            EXPECT_EQ(result.status, 0) << result.err;
        };
        run({"--render", "view.png"});
        run({"--pov", ".", "--run"});
        mView.LoadFile(wxString::FromUTF8(mFolder.File("view.png")));
        mPov.LoadFile(wxString::Format("%s/povanim%04d.png", mFolder.Path().c_str(), scene.frame));
        ASSERT_TRUE(mView.IsOk() && mPov.IsOk() && mView.GetSize() == mPov.GetSize());
        if (const char* keep = std::getenv("SHOTS")) {
            mView.SaveFile(wxString(keep) + "/view.png");
            mPov.SaveFile(wxString(keep) + "/pov.png");
        }
    }

    /// Twenty particles.
    void ExpectSamePlaces(const std::string& name) {
        const std::vector<Blob> view = Blobs(mView);
        const std::vector<Blob> pov = Blobs(mPov);
        EXPECT_EQ(view.size(), 20U) << name;
        EXPECT_EQ(pov.size(), 20U) << name;
        double worst = 0.0;
        for (const Blob& a : view) {
            double nearest = 1e9;
            for (const Blob& b : pov) nearest = std::min(nearest, std::hypot(a.x - b.x, a.y - b.y));
            worst = std::max(worst, nearest);
        }
        EXPECT_LT(worst, 1.5) << name;
        std::cout << name << ": " << worst << " pixels\n";
    }
    /// Within a tenth of the brightness, in all channels together.
    void ExpectSameColours(const std::string& name, int left, int right) {
        const auto view = SumOfColours(mView, left, right);
        const auto pov = SumOfColours(mPov, left, right);
        const double brightness = view[0] + view[1] + view[2];
        for (size_t k = 0; k < 3; ++k)
            EXPECT_NEAR(pov[k] / brightness, view[k] / brightness, 0.1 / 3.0) << name << ", channel " << k;
    }

    TempFolder_cls mFolder;
    wxImage mView;
    wxImage mPov;
};

TEST_F(PovPictureGLTest, ParticlesStandWhereTheViewHasThem) {
    struct Case {
        const char* name;
        std::vector<std::string> settings;
        float scale;
        float offset;
    };
    const Case cases[] = {
        {"perspective", {}, 1.0F, 0.0F},
        {"wide angle", {"Panel0GLPersAngle=90"}, 1.0F, 0.0F},
        {"large lengths", {}, 1e12F, 0.0F},
        {"small lengths, far from 0", {}, 1e-4F, 100.0F * 1e-4F},
        {"far from 0", {}, 1.0F, 1e5F},
        {"orthographic", {"Panel0GLGeometry=1"}, 1.0F, 0.0F},
        {"orthographic, scaled", {"Panel0GLGeometry=1", "Panel0GLOrthoScale=0.7"}, 1.0F, 0.0F},
        {"fisheye", {"Panel0GLGeometry=2", "Panel0GLPersAngle=100"}, 1.0F, 0.0F},
        {"panoramic", {"Panel0GLGeometry=3", "Panel0GLPersAngle=90"}, 1.0F, 0.0F},
    };
    for (const Case& c : cases) {
        std::mt19937 random(7);
        std::uniform_real_distribution<float> shift(-0.25F, 0.25F);
        std::vector<SampleParticle_cls> particles;
        for (int i = 0; i < 20; ++i) {
            const float x = static_cast<float>(i % 5) - 2.0F + shift(random);
            const float y = static_cast<float>(i / 5) - 1.5F + shift(random);
            const float z = 4.0F * shift(random);
            particles.push_back({{x * c.scale + c.offset, y * c.scale, z * c.scale - c.offset},
                                 {0, 0, 0},
                                 0.02F * c.scale,
                                 i,
                                 0,
                                 0});
        }
        std::vector<std::string> settings = {"SEQ0TYPE0DrawType=0", "SEQ0TYPE0PointSize=4",
                                             "SEQ0TYPE0BlendType=0", "SEQ0TYPE0AlphaFactro=1",
                                             "SEQ0TYPE0ColConstantColor=1 1 1 1"};
        settings.insert(settings.end(), c.settings.begin(), c.settings.end());
        Draw(particles, settings);
        ExpectSamePlaces(c.name);
    }
}

TEST_F(PovPictureGLTest, TwoCloudsHaveTheColoursOfTheView) {
    struct Case {
        const char* name;
        std::vector<std::string> settings;
    };
    const auto both = [](const std::vector<std::string>& own) {
        std::vector<std::string> settings = {"SortOrder=1"};
        for (const char* type : {"SEQ0TYPE0", "SEQ0TYPE1"}) {
            for (const std::string& setting : own) settings.push_back(type + setting);
        }
        settings.push_back("SEQ0TYPE1ColConstantColor=0.2 0.5 1 1");
        settings.push_back("SEQ0TYPE1DiffuseConstantColor=0.2 0.5 1 1");
        return settings;
    };
    const Case cases[] = {
        {"points", both({"DrawType=0", "PointSize=5"})},
        {"faint points", both({"DrawType=0", "PointSize=9", "AlphaFactro=0.2"})},
        {"adding points", both({"DrawType=0", "PointSize=9", "AlphaFactro=0.1", "BlendType=1"})},
        {"billboards", both({"DrawType=1", "AlphaFactro=0.5"})},
        {"adding billboards", both({"DrawType=1", "AlphaFactro=0.3", "BlendType=1"})},
        {"spheres", both({"DrawType=2", "DrawQuality=2", "AlphaFactro=1", "BlendType=0"})},
        {"adding spheres", both({"DrawType=2", "DrawQuality=3", "AlphaFactro=0.2", "BlendType=1"})},
    };
    std::mt19937 random(3);
    std::normal_distribution<float> shift(0.0F, 0.7F);
    std::vector<SampleParticle_cls> particles;
    for (int i = 0; i < 400; ++i) {
        particles.push_back({{(i % 2 ? 3.0F : -3.0F) + shift(random), shift(random), shift(random)},
                             {0, 0, 0},
                             0.12F,
                             i,
                             i % 2,
                             0});
    }
    for (const Case& c : cases) {
        Draw(particles, c.settings);
        const int width = mView.GetWidth();
        ExpectSameColours(std::string(c.name) + ", left", 0, width / 2);
        ExpectSameColours(std::string(c.name) + ", right", width / 2, width);
    }
}

/// The example project with few particles: its camera moves, its colours and its light are real work.
class PovDemoGLTest : public PovPictureGLTest {
  protected:
    void DrawDemo(int particles, const std::vector<std::string>& settings) {
        const std::string command = VARNHOLT_GENERATOR " --seed 7 --particles " + std::to_string(particles) +
                                    " '" + mFolder.Path().string() + "' >/dev/null";
        ASSERT_EQ(std::system(command.c_str()), 0);
        std::filesystem::copy_file(VARNHOLT_SOURCE_DIR "/examples/galaxies.vhp", mFolder.File("galaxies.vhp"),
                                   std::filesystem::copy_options::overwrite_existing);
        Draw(Scene{"galaxies.vhp", 120, "640x480"}, settings);
    }
};

TEST_F(PovDemoGLTest, MarkedParticlesStandWhereTheViewHasThem) {
    std::vector<std::string> settings;
    for (const std::string type : {"SEQ0TYPE0", "SEQ0TYPE1", "SEQ0TYPE2", "SEQ0TYPE3"}) {
        for (const char* own : {"DrawType=0", "PointSize=3", "BlendType=0", "AlphaFactro=1",
                                "ColUseColorCurve=0", "ColConstantColor=1 1 1 1"})
            settings.push_back(type + own);
    }
    for (const std::string geometry : {"0", "1"}) {
        settings.push_back("Panel0GLGeometry=" + geometry);
        DrawDemo(20, settings);
        ExpectSamePlaces("geometry " + geometry);
    }
}

TEST_F(PovDemoGLTest, EachGalaxyHasTheColourOfTheView) {
    for (const bool second : {false, true}) {
        std::vector<std::string> settings;
        for (const char* other : {"0", "2"})
            settings.push_back("SEQ0TYPE" + std::to_string(other[0] - '0' + (second ? 0 : 1)) +
                               "AlphaFactro=0");
        DrawDemo(10000, settings);
        ExpectSameColours(second ? "the second galaxy" : "the first galaxy", 0, mView.GetWidth());
    }
}

}  // namespace
