// Writing of ray tracer scenes: spheres of two looks and of many, and billboards, each beside a plain
// buffered write of the same bytes.

#include <wx/init.h>

#include <filesystem>
#include <fstream>
#include <random>

#include "pov/clsPovParticles.h"
#include "pov/clsPovSceneFile.h"
#include "render/clsDrawOption.h"
#include "scene/clsScenePass.h"
#include "support/Beside.h"

namespace {

namespace fs = std::filesystem;

constexpr int kParticles = 1000000;

/// A cloud of particles with values from 0 to 1.
struct Cloud_cls {
    Cloud_cls() : position(3 * kParticles), value(kParticles), radius(kParticles), type(kParticles) {
        std::mt19937 random(1);
        std::normal_distribution<float> place;
        std::uniform_real_distribution<float> share;
        for (float& x : position) x = place(random);
        for (float& v : value) v = share(random);
        for (float& r : radius) r = 0.002F + 0.004F * share(random);
    }
    SnapSource_cls Source() const {
        SnapSource_cls source;
        source.count = kParticles;
        source.position = position.data();
        source.velocity = position.data();
        source.radius = radius.data();
        source.value1 = value.data();
        source.radiusWork = value.data();
        source.value1Work = value.data();
        source.type = type.data();
        return source;
    }

    std::vector<float> position, value, radius;
    std::vector<uint8_t> type;
};

void WritesLikeAPlainFile(benchmark::State& state, unsigned int drawType, bool byValue) {
    static const Cloud_cls cloud;
    std::array<std::unique_ptr<GLAttribute_cls>, 4> own;
    DrawAttributes_cls attributes{};
    SnapAttributes_cls snaps;
    for (size_t i = 0; i < own.size(); ++i) {
        own[i] = std::make_unique<GLAttribute_cls>(0, static_cast<int>(i));
        own[i]->mDrawType.mValue = drawType;
        for (const int curve : {SnapAttribute_cls::kColor, SnapAttribute_cls::kDiffuse})
            own[i]->GetCurve(curve).mUseColorCurve.mValue = byValue;
        attributes[i] = own[i].get();
        snaps[i] = own[i]->GetSnapAttribute();
    }
    const SnapData_cls snap(cloud.Source(), snaps, 0.0, 1);
    const DrawOption_cls option;
    const PanelSettings_cls panel(0);
    const SceneView_cls view{.mPanel = panel, .mCamera = {}, .mWidth = 640, .mHeight = 480};
    const PovSpace_cls space = PovSpace_cls::Of(view.mCamera.mPose);
    const PovCamera_cls camera(view, space);
    const fs::path folder = fs::temp_directory_path();
    const std::string name = (folder / "varnholt-bench.pov").string();
    const auto ours = [&] {
        PovSceneFile_cls::Content content;
        content.cloud = PovParticles_cls(snap, attributes, option, false).Gather(camera, space);
        PovSceneFile_cls file(wxString::FromUTF8(name), std::move(content));
        while (file.Step()) {
        }
    };
    ours();
    std::ifstream stream(name, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(stream)), {});
    const std::string plainName = (folder / "varnholt-bench.txt").string();
    const auto plain = [&] {
        std::FILE* file = std::fopen(plainName.c_str(), "wb");
        for (size_t done = 0; done < bytes.size(); done += 50)
            std::fwrite(bytes.data() + done, 1, std::min<size_t>(50, bytes.size() - done), file);
        std::fclose(file);
    };
    MeasureBeside(state, plain, ours, [&] {
        fs::remove(name);
        fs::remove(plainName);
    });
    state.counters["MB"] = static_cast<double>(bytes.size()) / 1e6;
    fs::remove(name);
    fs::remove(plainName);
}

BENCHMARK_CAPTURE(WritesLikeAPlainFile, spheres, SnapAttribute_cls::kSphere, false)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritesLikeAPlainFile, spheres_by_value, SnapAttribute_cls::kSphere, true)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritesLikeAPlainFile, points_by_value, SnapAttribute_cls::kPoint, true)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WritesLikeAPlainFile, billboards, SnapAttribute_cls::kBillboard, true)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    // Threads of the toolkit need it.
    const wxInitializer toolkit;
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
