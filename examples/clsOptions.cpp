#include "clsOptions.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string_view>

namespace {

// The file names have four digits.
constexpr std::uint64_t kMostSnapshots = 10000;
constexpr std::uint64_t kMostParticles = std::numeric_limits<std::int32_t>::max();

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

/// Hands out the arguments one after the other; an option's value stands behind '=' or comes next.
class Arguments_cls {
  public:
    Arguments_cls(int count, const char* const* arguments) : mCount(count), mArguments(arguments) {}

    bool Next() {
        if (mNext >= mCount) {
            return false;
        }
        mText = mArguments[mNext++];
        mValue.reset();
        mIsOption = !mOptionsEnded && mText.size() > 1 && mText.front() == '-';
        const std::size_t equals = mText.find('=');
        if (mIsOption && equals != std::string_view::npos) {
            mValue = mText.substr(equals + 1);
            mText = mText.substr(0, equals);
        }
        return true;
    }

    std::string_view Text() const { return mText; }
    bool IsOption() const { return mIsOption; }
    void EndOptions() { mOptionsEnded = true; }

    std::string_view Value() {
        if (!mValue && mNext < mCount) {
            mValue = mArguments[mNext++];
        }
        if (!mValue) {
            throw UsageError_cls("the option " + std::string(mText) + " needs a value");
        }
        return *mValue;
    }

    std::uint64_t Number(std::uint64_t least, std::uint64_t most) {
        const std::string_view value = Value();
        const char* end = value.data() + value.size();
        std::uint64_t number = 0;
        const auto [stop, error] = std::from_chars(value.data(), end, number);
        if (error != std::errc() || stop != end || number < least || number > most) {
            throw UsageError_cls("the option " + std::string(mText) + " needs a whole number from " +
                                 std::to_string(least) + " to " + std::to_string(most) + ", not " +
                                 Quoted(value));
        }
        return number;
    }

    /// For options that are either there or not.
    bool Flag() const {
        if (mValue) {
            throw UsageError_cls("the option " + std::string(mText) + " takes no value");
        }
        return true;
    }

  private:
    int mCount;
    const char* const* mArguments;
    int mNext = 1;
    std::string_view mText;
    std::optional<std::string_view> mValue;
    bool mIsOption = false;
    bool mOptionsEnded = false;
};

SnapshotFormat ParseFormat(std::string_view text) {
    if (text == "binary") {
        return SnapshotFormat::kBinary;
    }
    if (text == "text") {
        return SnapshotFormat::kText;
    }
    if (text == "dump") {
        return SnapshotFormat::kDump;
    }
    throw UsageError_cls("the option --format needs binary, text or dump, not " + Quoted(text));
}

std::string ParseName(std::string_view text) {
    if (text.empty() || text.find('/') != std::string_view::npos) {
        throw UsageError_cls("the option --name needs the beginning of a file name without '/', not " +
                             Quoted(text));
    }
    return std::string(text);
}

void ParseOption(Arguments_cls& arguments, Options_cls& options) {
    const std::string_view name = arguments.Text();
    if (name == "--particles") {
        options.mParticleCount = arguments.Number(1, kMostParticles);
    } else if (name == "--snapshots") {
        options.mSnapshotCount = arguments.Number(1, kMostSnapshots);
    } else if (name == "--seed") {
        options.mSeed = arguments.Number(0, std::numeric_limits<std::uint64_t>::max());
    } else if (name == "--format") {
        options.mFormat = ParseFormat(arguments.Value());
    } else if (name == "--name") {
        options.mName = ParseName(arguments.Value());
    } else if (name == "--shuffle") {
        options.mShuffle = arguments.Flag();
    } else if (name == "--vary") {
        options.mVary = arguments.Flag();
    } else if (name == "--help") {
        options.mHelp = arguments.Flag();
    } else if (name == "--") {
        arguments.EndOptions();
    } else {
        throw UsageError_cls("unknown option " + Quoted(name));
    }
}

}  // namespace

Options_cls ParseOptions(int argumentCount, const char* const* arguments) {
    Options_cls options;
    Arguments_cls list(argumentCount, arguments);
    while (list.Next()) {
        if (list.IsOption()) {
            ParseOption(list, options);
            if (options.mHelp) {
                return options;
            }
        } else if (list.Text().empty()) {
            throw UsageError_cls("the name of the folder is empty");
        } else if (!options.mFolder.empty()) {
            throw UsageError_cls("more than one folder: " + Quoted(options.mFolder.native()) + " and " +
                                 Quoted(list.Text()));
        } else {
            options.mFolder = list.Text();
        }
    }
    if (options.mFolder.empty()) {
        throw UsageError_cls("no folder given");
    }
    if (options.mName.empty()) {
        options.mName = options.mFormat == SnapshotFormat::kDump ? "dump" : "galaxies";
    }
    return options;
}

const char* HelpText() {
    return R"(Usage: makegalaxies [options] FOLDER

Computes how two galaxies pass each other and writes the snapshots of it to FOLDER, which is made
if it is missing. Files of the same name are replaced.

  --particles N    number of particles (default 100000)
  --snapshots N    number of snapshots, numbered from 0000, at most 10000 (default 101); the story
                   always takes the same time, more snapshots show it in finer steps
  --seed N         another seed places the particles differently (default 1)
  --format F       binary, text or dump (default binary)
  --shuffle        the order of the particles changes from snapshot to snapshot
  --vary           about one particle in twenty appears later or disappears earlier
  --name STEM      beginning of the file names (default galaxies, for dump: dump)
  --help           show this text

Formats:
  binary  STEM0000.dat   native byte order; header: time (float32), count (int32); 40 bytes for each
                         particle: x y z vx vy vz radius (float32), id type (int32), value1 (float32)
  text    STEM0000.txt   a line with the time, a line with the count, a line for each particle:
                         x y z vx vy vz radius id type value1
  dump    STEM.0000.txt  as LAMMPS writes it: id type x y z, the types counted from 1

Types: 0 disc of the first galaxy, 1 disc of the second, 2 bulge of the first, 3 bulge of the second.
value1 is the speed of the particle relative to the centre of its own galaxy: 0 to 2.7 at first, later
a few are faster, up to about 6. Lengths are like kpc, speeds like 100 km/s, G is 1.
)";
}
