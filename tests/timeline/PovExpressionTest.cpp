#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "seam/clsTextCoding.h"
#include "support/Keys.h"
#include "support/TempFolder.h"
#include "timeline/clsParameters.h"

namespace {

using K = KeyFrame_cls;
constexpr const char* kPovRay = "/usr/bin/povray";
/// Completes a declaration that has been left without a value.
constexpr double kNoValue = -987654.0;

struct Case {
    const char* name;
    std::vector<K> keys;
    int period = 0;
    bool timeDependent = true;
};

const std::vector<Case>& Cases() {
    static const std::vector<Case> kCases = {
        {"constant", {Key(0, -12.75, K::kLinear), Key(1, 3, K::kLinear)}, 0, false},
        {"one key", {Key(0.3, 4.5, K::kHermite, 7)}},
        {"linear", {Key(0, 1, K::kLinear), Key(0.4, -2.5, K::kLinear), Key(1, 3.75, K::kLinear)}},
        {"linear, keys inside the scene", {Key(-0.05, 1, 0), Key(0.1, 7, 0), Key(0.7, 2, 0), Key(0.9, 5, 0)}},
        {"linear angle", {Key(0, 350, 0), Key(0.5, 10, 0), Key(1, 150, 0)}, 360},
        {"automatic", {Key(0, 1, 1), Key(0.3, 5.5, 1), Key(0.35, -2, 1), Key(1, 1, 1)}},
        {"semi-automatic", {Key(0.2, 1, 2, 0, 0.5), Key(0.5, 3, 2, 0, 2), Key(0.8, 2, 2, 0, -1)}},
        {"hermite", {Key(0, 1000, 3, 40), Key(0.25, 1001.5, 3, -70), Key(1, 999, 3, 12.5)}},
        {"hermite angle", {Key(0, 350, 3, 30), Key(0.5, 10, 3, -30), Key(0.75, 300, 3, 8)}, 360},
        {"step", {Key(0.1, 5, K::kStep), Key(0.5, 7, K::kStep), Key(0.9, 9, K::kStep)}},
        {"unknown type", {Key(0, 5, 9), Key(0.9, 7, 9)}},
        {"all",
         {Key(0, 1, 1), Key(0.2, 3, 2, 0, 1), Key(0.4, 0, 3, 5), Key(0.6, 9, 4), Key(0.8, 2, 0),
          Key(1, 1, 1)}},
        {"two keys at the start", {Key(0, 3, 1), Key(0, 3, 1), Key(1, 1, 1)}},
    };
    return kCases;
}

/// 50 times over the scene. None but the ends is a key's: there a step or an angle is already the next one's.
double ClockAt(int i) {
    return i == 49 ? 1.0 : (i == 0 ? 0.0 : (i + 0.137) / 50.0);
}

/// Steps and unknown types are exported as a declaration without a value.
bool IsLeftWithoutValue(const Case& c, double t) {
    if (!c.timeDependent || c.keys.size() < 2 || t > c.keys.back().mTime) return false;
    if (t <= c.keys.front().mTime && c.keys.front().mTime != 0.0) return false;
    return c.keys[KeyCurve_cls(c.keys, c.period).FindSegment(t, 0.0)].mType >= K::kStep;
}

/// Lets POV-Ray parse the scene; the numbers that it says to be animated.
std::vector<double> RunPovRay(const std::string& scene, std::string& output) {
    const TempFolder_cls folder;
    const std::string command = "HOME=" + folder.Path().string() + " " + kPovRay + " +I" +
                                folder.Write("scene.pov", scene) + " -D -F +W1 +H1 >" + folder.File("out") +
                                " 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0);
    output = ReadWholeFile(folder.File("out"));
    std::istringstream words(output);
    words.imbue(std::locale::classic());
    std::vector<double> values;
    for (std::string word; words >> word;) {
        if (word == "animated=") words >> values.emplace_back();
    }
    return values;
}

TEST(PovExpressionTest, PovRayComputesTheProgramsValues) {
    if (!std::filesystem::exists(kPovRay))
        GTEST_SKIP() << kPovRay << " is not installed (Debian's package povray)";

    struct Expected {
        const char* name;
        double t, value, tolerance;
    };
    std::vector<Expected> expected;
    // Linear segments lack the ";" that POV-Ray asks for from version 3.5 on.
    wxString scene = "#version 3.0;\n";
    for (const Case& c : Cases()) {
        Parameters_cls parameter;
        parameter.SetState({c.keys, c.timeDependent, c.period});
        double largest = 0.0;
        for (const K& key : parameter.GetKeys())
            largest = std::max({largest, std::abs(key.mValue), std::abs(key.GetHermiteVelocity())});
        for (int clock = 0; clock < 50; ++clock) {
            const double t = ClockAt(clock);
            const bool without = IsLeftWithoutValue(c, t);
            expected.push_back({c.name, t, without ? kNoValue : parameter.Evaluate(t, 0.0), 1e-5 * largest});
            scene += "#declare t0 = " + wxString::FromCDouble(t, 17) + ";\n" +
                     parameter.GetStrExpression("animated");
            if (without) scene += wxString::FromCDouble(kNoValue) + ";\n";
            scene += "#debug concat(\"animated= \", str(animated,0,9), \"\\n\")\n";
        }
    }
    std::string output;
    const std::vector<double> values = RunPovRay(ToBytes(scene), output);
    ASSERT_EQ(values.size(), expected.size()) << output;
    for (size_t i = 0; i < values.size(); ++i)
        EXPECT_NEAR(values[i], expected[i].value, expected[i].tolerance)
            << expected[i].name << " at " << expected[i].t;
}

TEST(PovExpressionTest, TheTextIsKeptToTheLetter) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0.25, 2, 0), Key(0.5, 1, 4), Key(0.75, 3, 3, 4)}, true, 0});
    EXPECT_EQ(parameter.GetStrExpression("a"),
              "#if (t0 <= 0.25)\n\t#declare a = 2;\n"
              "#elseif (t0 <= 0.5)\n\t#declare rate = (t0 - 0.25)/0.25;\n\t#declare a = 2+ rate * -1"
              "#elseif (t0 <= 0.75)\n\t#declare rate = (t0 - 0.5)/0.25;\n\t#declare a = "
              "#else\n\t#declare a = 3;\n#end\n");
    parameter.SetState({});
    EXPECT_EQ(parameter.GetStrExpression("a"), "#declare a = 0;\n") << "no keys";
}

}  // namespace
