// Makes the demo data: two galaxies that pass each other, as a series of snapshots.

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <exception>
#include <iomanip>
#include <iostream>
#include <limits>
#include <new>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "clsGalaxyModel.h"
#include "clsOptions.h"
#include "clsSelection.h"
#include "clsSnapshotWriter.h"

namespace {

constexpr unsigned kThreadCount = 2;

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

/// A line on standard error that says how far things are, for a person who watches.
class Progress_cls {
  public:
    ~Progress_cls() { Show(""); }

    void Show(const std::string& text) {
        if (mIsWatched) {
            // Back to the start of the line, clear it.
            std::cerr << "\r\x1b[K" << text << std::flush;
        }
    }

  private:
    bool mIsWatched = isatty(STDERR_FILENO) != 0;
};

template <typename Number>
class Range_cls {
  public:
    void Add(Number number) {
        mLeast = std::min(mLeast, number);
        mMost = std::max(mMost, number);
    }

    void Print(std::ostream& stream) const {
        stream << mLeast;
        if (mMost > mLeast) {
            stream << " to " << mMost;
        }
    }

  private:
    Number mLeast = std::numeric_limits<Number>::max();
    Number mMost = std::numeric_limits<Number>::lowest();
};

Selection_cls MakeSelection(const Options_cls& options) {
    Selection_cls selection(options.mParticleCount, options.mSnapshotCount, options.mSeed);
    if (options.mVary) {
        selection.Vary();
    }
    if (options.mShuffle) {
        selection.Shuffle();
    }
    return selection;
}

void TakeParticles(const GalaxyModel_cls& model, const Selection_cls& selection, Snapshot_cls& snapshot) {
    const std::vector<std::uint32_t> indices = selection.Indices(snapshot.mNumber);
    snapshot.mParticles.clear();
    snapshot.mParticles.reserve(indices.size());
    for (const std::uint32_t index : indices) {
        snapshot.mParticles.push_back(model.Particle(index));
    }
}

/// Returns the line that sums up what was written.
std::string MakeSnapshots(const Options_cls& options) {
    const auto start = std::chrono::steady_clock::now();
    const SnapshotWriter_cls writer(options.mFolder, options.mName, options.mFormat);
    const Selection_cls selection = MakeSelection(options);
    GalaxyModel_cls model(options.mParticleCount, options.mSeed);

    const auto intervalCount = static_cast<double>(std::max<std::size_t>(options.mSnapshotCount - 1, 1));
    const double interval = GalaxyModel_cls::kDuration / intervalCount;
    const std::size_t stepCount = GalaxyModel_cls::StepsFor(interval);
    Range_cls<std::size_t> counts;
    Range_cls<float> values;
    Progress_cls progress;
    Snapshot_cls snapshot;
    for (std::size_t i = 0; i < options.mSnapshotCount; ++i) {
        progress.Show("snapshot " + std::to_string(i + 1) + " of " + std::to_string(options.mSnapshotCount));
        if (i > 0) {
            model.Advance(interval, stepCount, kThreadCount);
        }
        snapshot.mNumber = i;
        snapshot.mStep = i * stepCount;
        snapshot.mTime = static_cast<float>(static_cast<double>(i) * interval);
        TakeParticles(model, selection, snapshot);
        writer.Write(snapshot);
        counts.Add(snapshot.mParticles.size());
        for (const Particle_cls& particle : snapshot.mParticles) {
            values.Add(particle.mValue1);
        }
    }

    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
    std::ostringstream line;
    line << "folder: '" << options.mFolder.native() << "', snapshots: " << options.mSnapshotCount
         << ", particles: ";
    counts.Print(line);
    line << ", value1: " << std::fixed << std::setprecision(3);
    values.Print(line);
    line << ", seconds: " << std::setprecision(1) << elapsed.count();
    return line.str();
}

int Complain(const std::string& message, int status) {
    std::cerr << "makegalaxies: " << message << std::endl;
    return status;
}

int Run(int argumentCount, const char* const* arguments) {
    const Options_cls options = ParseOptions(argumentCount, arguments);
    if (options.mHelp) {
        std::cout << HelpText() << std::flush;
    } else {
        try {
            std::cout << MakeSnapshots(options) << std::endl;
        } catch (const std::bad_alloc&) {
            throw std::runtime_error("not enough memory for " + std::to_string(options.mParticleCount) +
                                     " particles");
        }
    }
    if (!std::cout) {
        throw std::runtime_error("cannot write to standard output");
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    // A limit on the size of files is to be reported like a full disk.
    std::signal(SIGXFSZ, SIG_IGN);
    try {
        return Run(argc, argv);
    } catch (const UsageError_cls& error) {
        return Complain(std::string(error.what()) + "; --help lists the options", kExitUsage);
    } catch (const std::exception& error) {
        return Complain(error.what(), kExitFailure);
    }
}
