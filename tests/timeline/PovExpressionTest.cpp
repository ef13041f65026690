#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
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

wxString NumberText(double number) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(17);
    text << number;
    return text.str();
}

/// Steps and unknown types are exported as a declaration without a value.
bool IsLeftWithoutValue(const Case& c, double t) {
    if (!c.timeDependent || c.keys.size() < 2 || t > c.keys.back().mTime) return false;
    if (t <= c.keys.front().mTime && c.keys.front().mTime != 0.0) return false;
    return c.keys[KeyCurve_cls(c.keys, c.period).FindSegment(t, 0.0)].mType >= K::kStep;
}

double LargestCoefficient(const std::vector<K>& keys, int period) {
    double largest = 0.0;
    for (size_t i = 0; i < keys.size(); ++i) {
        largest = std::max(largest, std::abs(keys[i].mValue));
        if (i + 1 == keys.size() || keys[i].mType == K::kLinear || keys[i].mType >= K::kStep) continue;
        const KeyCurve_cls::Cubic c = KeyCurve_cls(keys, period).GetCubic(i);
        for (const double number : {c.c0, c.c1, c.c2, c.c3}) largest = std::max(largest, std::abs(number));
    }
    return largest;
}

/// Lets POV-Ray parse the scene; the numbers that its lines "value <case> <clock> <number>" give.
std::map<std::pair<size_t, int>, double> RunPovRay(const std::string& scene, std::string& output) {
    const TempFolder_cls folder;
    const std::string command = "HOME=" + folder.Path().string() + " " + kPovRay + " +I" +
                                folder.Write("scene.pov", scene) + " -D -F +W1 +H1 2>&1";
    std::map<std::pair<size_t, int>, double> values;
    FILE* pipe = popen(command.c_str(), "r");
    char line[4096];
    while (pipe && std::fgets(line, sizeof line, pipe)) {
        output += line;
        std::istringstream words(line);
        words.imbue(std::locale::classic());
        std::string word;
        std::pair<size_t, int> at;
        double number = 0.0;
        if (words >> word >> at.first >> at.second >> number && word == "value") values[at] = number;
    }
    if (pipe) pclose(pipe);
    return values;
}

TEST(PovExpressionTest, PovRayComputesTheProgramsValues) {
    if (!std::filesystem::exists(kPovRay))
        GTEST_SKIP() << kPovRay << " is not installed (Debian's package povray)";

    // Linear segments lack the ";" that POV-Ray asks for from version 3.5 on.
    wxString scene = "#version 3.0;\n";
    std::vector<std::vector<double>> expected;
    for (size_t i = 0; i < Cases().size(); ++i) {
        const Case& c = Cases()[i];
        Parameters_cls parameter;
        parameter.SetState({c.keys, c.timeDependent, c.period});
        expected.emplace_back();
        for (int clock = 0; clock < 50; ++clock) {
            const double t = ClockAt(clock);
            const bool without = IsLeftWithoutValue(c, t);
            expected.back().push_back(without ? kNoValue : parameter.Evaluate(t, 0.0));
            scene += "#declare t0 = " + NumberText(t) + ";\n" + parameter.GetStrExpression("animated");
            if (without) scene += NumberText(kNoValue) + ";\n";
            scene += wxString::Format("#debug concat(\"value %d %d \", str(animated,0,9), \"\\n\")\n",
                                      static_cast<int>(i), clock);
        }
    }

    std::string output;
    const auto values = RunPovRay(ToBytes(scene), output);
    ASSERT_EQ(values.size(), 50 * Cases().size()) << output;
    for (const auto& [at, value] : values) {
        const Case& c = Cases()[at.first];
        Parameters_cls parameter;
        parameter.SetState({c.keys, c.timeDependent, c.period});
        const double tolerance = 1e-5 * LargestCoefficient(parameter.GetKeys(), c.period);
        const double wanted = expected[at.first][static_cast<size_t>(at.second)];
        EXPECT_NEAR(value, wanted, tolerance) << c.name << " at " << ClockAt(at.second);
    }
}

TEST(PovExpressionTest, TheTextIsKeptToTheLetter) {
    Parameters_cls parameter;
    parameter.SetState({{Key(0.25, 2, 0), Key(0.5, 1, 4), Key(0.75, 3, 3, 4)}, true, 0});
    EXPECT_EQ(parameter.GetStrExpression("a"),
              "#if (t0 <= 0.25)\n\t#declare a = 2;\n"
              "#elseif (t0 <= 0.5)\n\t#declare rate = (t0 - 0.25)/0.25;\n\t#declare a = 2+ rate * -1"
              "#elseif (t0 <= 0.75)\n\t#declare rate = (t0 - 0.5)/0.25;\n\t#declare a = "
              "#else\n\t#declare a = 3;\n#end\n");
    parameter.SetState({{Key(0, 2, 3, 4), Key(1, 1, 3, -4)}, true, 0});
    EXPECT_EQ(parameter.GetStrExpression("a"),
              "#if (t0 <= 1)\n\t#declare rate = (t0 - 0)/1;\n"
              "\t#declare a = 2 + 4*rate + -7*rate*rate + 2*rate*rate*rate;\n#end\n");
    parameter.SetState({});
    EXPECT_EQ(parameter.GetStrExpression("a"), "#declare a = 0;\n") << "no keys";
}

}  // namespace
