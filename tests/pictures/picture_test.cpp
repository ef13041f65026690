// Draws one picture by the program itself and compares it with the one that is expected. A mismatch leaves
// the actual picture, the expected one and their difference side by side.
// usage: picture_test NAME EXPECTED-FOLDER OUTPUT-FOLDER ARGUMENTS...
// With UPDATE_PICTURES=1 in the environment the actual picture becomes the expected one.

#include <wx/image.h>
#include <wx/init.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "support/Program.h"

namespace {

/// Other versions of the software renderer round edges and blending differently.
constexpr double kMeanAllowed = 0.5;
constexpr int kLargestAllowed = 96;
/// The difference is shown so much brighter.
constexpr int kShown = 8;

struct Difference_cls {
    double mean = 0.0;
    int largest = 0;
};

Difference_cls Compare(const wxImage& actual, const wxImage& expected, wxImage& difference) {
    Difference_cls found;
    const int bytes = 3 * expected.GetWidth() * expected.GetHeight();
    for (int i = 0; i < bytes; ++i) {
        const int d = std::abs(actual.GetData()[i] - expected.GetData()[i]);
        found.mean += static_cast<double>(d) / bytes;
        found.largest = std::max(found.largest, d);
        difference.GetData()[i] = static_cast<unsigned char>(std::min(kShown * d, 255));
    }
    return found;
}

int Fail(const std::string& words) {
    std::fprintf(stderr, "%s\n", words.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) return Fail("usage: picture_test NAME EXPECTED-FOLDER OUTPUT-FOLDER ARGUMENTS...");
    const wxInitializer toolkit;
    wxImage::AddHandler(new wxPNGHandler);
    const std::string name = argv[1];
    const std::string expectedPath = std::string(argv[2]) + "/" + name + ".png";
    const std::string output = argv[3];
    std::filesystem::create_directories(output);
    const std::string actualPath = output + "/" + name + ".png";
    std::vector<std::string> arguments = {"--no-config", "--quiet", "--size",   "320x240",
                                          "--frames",    "0",       "--render", actualPath};
    arguments.insert(arguments.end(), argv + 4, argv + argc);
    const ProgramRun_cls run = RunProgram(arguments);
    if (run.status != 0) return Fail("the program ended with " + std::to_string(run.status) + ": " + run.err);

    if (std::getenv("UPDATE_PICTURES")) {
        std::filesystem::copy_file(actualPath, expectedPath,
                                   std::filesystem::copy_options::overwrite_existing);
        return 0;
    }
    wxImage actual(wxString::FromUTF8(actualPath));
    wxImage expected(wxString::FromUTF8(expectedPath));
    if (!actual.IsOk() || !expected.IsOk()) return Fail(expectedPath + ": no picture to compare with");
    if (actual.GetSize() != expected.GetSize()) return Fail("the picture has another size");
    wxImage difference(expected.GetWidth(), expected.GetHeight());
    const Difference_cls found = Compare(actual, expected, difference);
    if (found.mean <= kMeanAllowed && found.largest <= kLargestAllowed) return 0;

    wxImage three(3 * expected.GetWidth(), expected.GetHeight());
    three.Paste(actual, 0, 0);
    three.Paste(expected, expected.GetWidth(), 0);
    three.Paste(difference, 2 * expected.GetWidth(), 0);
    const std::string shown = output + "/" + name + "-actual-expected-difference.png";
    three.SaveFile(wxString::FromUTF8(shown));
    return Fail("mean difference " + std::to_string(found.mean) + ", largest " +
                std::to_string(found.largest) + ": see " + shown);
}
