#include "core/clsCommandLine.h"

#include <getopt.h>

#include "output/clsImageFile.h"
#include "output/clsMovie.h"
#include "output/clsPicture.h"
#include "seam/clsProjectName.h"
#include "seam/clsTextCoding.h"

namespace {

enum Option : int {
    kInfo = 1000,
    kRender,
    kExport,
    kAt,
    kSave,
    kPov,
    kRun,
    kPlay,
    kFrames,
    kSize,
    kMovie,
    kFps,
    kResume,
    kSet,
    kConfig,
    kNoConfig,
    kQuiet,
    kVerbose,
    kHelp,
    kVersion
};

const option kOptions[] = {{"info", no_argument, nullptr, kInfo},
                           {"render", required_argument, nullptr, kRender},
                           {"export", required_argument, nullptr, kExport},
                           {"at", required_argument, nullptr, kAt},
                           {"save", required_argument, nullptr, kSave},
                           {"pov", required_argument, nullptr, kPov},
                           {"run", no_argument, nullptr, kRun},
                           {"play", no_argument, nullptr, kPlay},
                           {"frames", required_argument, nullptr, kFrames},
                           {"size", required_argument, nullptr, kSize},
                           {"movie", required_argument, nullptr, kMovie},
                           {"fps", required_argument, nullptr, kFps},
                           {"resume", no_argument, nullptr, kResume},
                           {"set", required_argument, nullptr, kSet},
                           {"config", required_argument, nullptr, kConfig},
                           {"no-config", no_argument, nullptr, kNoConfig},
                           {"quiet", no_argument, nullptr, kQuiet},
                           {"verbose", no_argument, nullptr, kVerbose},
                           {"help", no_argument, nullptr, kHelp},
                           {"version", no_argument, nullptr, kVersion},
                           {nullptr, 0, nullptr, 0}};

/// A whole number without sign or blanks.
bool ParseNumber(const wxString& text, int* number) {
    unsigned long value = 0;
    if (text.empty() || text.length() > 9 || !text.ToULong(&value, 10) || !(text[0] >= '0' && text[0] <= '9'))
        return false;
    *number = static_cast<int>(value);
    return true;
}

/// A data position, 0 or above.
std::optional<double> ParsePosition(const wxString& text) {
    double position = 0.0;
    if (!text.ToCDouble(&position) || !(position >= 0.0 && position < 1e9)) return std::nullopt;
    return position;
}

bool ParseSize(const wxString& text, int* width, int* height) {
    return ParseNumber(text.BeforeFirst('x'), width) && ParseNumber(text.AfterFirst('x'), height) &&
           *width > 0 && *height > 0 && *width <= Picture_cls::kLargestSide &&
           *height <= Picture_cls::kLargestSide;
}

/// Wrong combinations that only show once everything is read. Empty when all is well.
wxString FindConflict(const CommandLine_cls& line) {
    using Action = CommandLine_cls::Action;
    const bool needsFile = line.mAction == Action::Info || line.mAction == Action::Render ||
                           line.mAction == Action::Export || line.mAction == Action::Save ||
                           line.mAction == Action::Pov;
    if (needsFile && line.mFile.empty()) return "no data file or project is named";
    if (line.mAction == Action::Render && !ImageFile_cls::IsKnownFormat(line.mPattern)) {
        return line.mPattern + ": the picture's name must end in .png, .jpg, .tif or .bmp";
    }
    if (line.mAction == Action::Save && !ProjectName::IsProject(line.mProject)) {
        // A mixed-up order of the names must not write over data.
        return line.mProject + ": a project's name must end in .vhp";
    }
    if (line.mRunRenderer && line.mAction != Action::Pov) return "--run goes with --pov";
    if (line.mPlay && line.mAction != Action::Window) return "--play goes with the window";
    if (line.mAt && line.mAction != Action::Export) return "--at goes with --export";
    if ((line.mResume || !line.mMovie.empty()) && line.mAction != Action::Render)
        return "--movie and --resume go with --render";
    if (line.mRate && line.mMovie.empty()) return "--fps goes with --movie";
    // It might write over the pictures.
    if (ImageFile_cls::IsKnownFormat(line.mMovie))
        return "--movie " + line.mMovie + ": that is the name of a picture";
    return {};
}

}  // namespace

std::optional<FrameSelection_cls> FrameSelection_cls::Parse(const wxString& text) {
    FrameSelection_cls range;
    const wxString first = text.BeforeFirst(':');
    wxString last = text.AfterFirst(':');
    wxString step = last.AfterFirst(':');
    last = last.BeforeFirst(':');
    if (!ParseNumber(first, &range.mFirst)) return std::nullopt;
    range.mLast = range.mFirst;
    if (text.Contains(":") && !ParseNumber(last, &range.mLast)) return std::nullopt;
    if (text.Freq(':') > 2 || (text.Freq(':') == 2 && !ParseNumber(step, &range.mStep))) return std::nullopt;
    if (range.mLast < range.mFirst || range.mStep < 1) return std::nullopt;
    return range;
}

std::optional<CommandLine_cls> CommandLine_cls::Parse(int argc, char** argv, wxString* error) {
    CommandLine_cls line;
    const auto fail = [error](const wxString& text) {
        *error = text;
        return std::nullopt;
    };
    int actions = 0;
    const auto setAction = [&](Action action) {
        line.mAction = action;
        ++actions;
    };
    optind = 0;  // getopt starts anew
    opterr = 0;
    for (int code = 0; (code = getopt_long(argc, argv, ":", kOptions, nullptr)) != -1;) {
        const wxString value = optarg ? FromBytes(optarg) : wxString();
        switch (code) {
            case kInfo:
                setAction(Action::Info);
                break;
            case kRender:
                setAction(Action::Render);
                line.mPattern = value;
                break;
            case kExport:
                if (value.empty()) return fail("--export: the file's name is missing");
                setAction(Action::Export);
                line.mPattern = value;
                break;
            case kAt:
                line.mAt = ParsePosition(value);
                if (!line.mAt) return fail("--at " + value + ": expected a data position such as 3.25");
                break;
            case kPov:
                setAction(Action::Pov);
                line.mFolder = value;
                line.mPattern = "%04d";
                break;
            case kRun:
                line.mRunRenderer = true;
                break;
            case kPlay:
                line.mPlay = true;
                break;
            case kSave:
                setAction(Action::Save);
                line.mProject = value;
                break;
            case kFrames:
                line.mFrames = FrameSelection_cls::Parse(value);
                if (!line.mFrames) return fail("--frames " + value + ": expected A, A:B or A:B:STEP");
                break;
            case kSize:
                if (!ParseSize(value, &line.mWidth, &line.mHeight)) {
                    return fail(wxString::Format("--size %s: expected WIDTHxHEIGHT, each 1 to %d", value,
                                                 Picture_cls::kLargestSide));
                }
                line.mIsSizeGiven = true;
                break;
            case kMovie:
                if (value.empty()) return fail("--movie: the file's name is missing");
                line.mMovie = value;
                break;
            case kFps:
                line.mRate = 0;
                if (!ParseNumber(value, &*line.mRate) || *line.mRate < 1 ||
                    *line.mRate > Movie_cls::kHighestRate)
                    return fail(wxString::Format("--fps %s: expected 1 to %d frames a second", value,
                                                 Movie_cls::kHighestRate));
                break;
            case kResume:
                line.mResume = true;
                break;
            case kSet:
                if (!value.Contains("=")) return fail("--set " + value + ": expected KEY=VALUE");
                line.mSettings.push_back(value);
                break;
            case kConfig:
                line.mConfig = value;
                break;
            case kNoConfig:
                line.mConfig = wxString();
                break;
            case kQuiet:
                line.mQuiet = true;
                break;
            case kVerbose:
                line.mVerbose = true;
                break;
            case kHelp:
                line.mAction = Action::Help;
                return line;
            case kVersion:
                line.mAction = Action::Version;
                return line;
            case ':':
                return fail(FromBytes(argv[optind - 1]) + ": a value is missing");
            default:
                return fail(FromBytes(argv[optind - 1]) + ": no such option");
        }
    }
    if (actions > 1) return fail("more than one of --info, --render, --export, --save and --pov");
    if (argc - optind > 1) return fail(FromBytes(argv[optind + 1]) + ": only one file can be named");
    if (optind < argc) line.mFile = FromBytes(argv[optind]);
    const wxString conflict = FindConflict(line);
    if (!conflict.empty()) return fail(conflict);
    return line;
}

const char* CommandLine_cls::HelpText() {
    return R"(Varnholt 3 turns snapshots of particle simulations into animations.

usage: varnholt3 [FILE] [--play]           open FILE in the window, and play it
       varnholt3 --info DATA               one line per snapshot: number, time, particles, file; then the total
       varnholt3 --render PATTERN FILE     draw the frames into numbered pictures (out%04d.png; .jpg, .tif, .bmp)
       varnholt3 --export PATTERN FILE     write the particles of each frame (text columns; .bin: 40-byte records)
       varnholt3 --save PROJECT FILE       write the whole state, after FILE and --set, as a project
       varnholt3 --pov DIR FILE [--run]    write POV-Ray scenes and options of the frames, and render them

FILE is a project (.vhp) or the first file of a data series, for example snap0000.dat.

  --frames A[:B[:STEP]]      frames to do; default: the work area
  --at POSITION              with --export: one data position (snapshot number with fraction, e.g. 3.25) instead;
                             the pattern is then the file's name as it stands
  --size WxH                 picture size; default 1280x720, with --pov what the project says
  --movie FILE               with --render: also make a film of the frames (needs ffmpeg)
  --fps N                    with --movie: frames a second; default 30
  --resume                   with --render: keep the pictures that are complete
  --set KEY=VALUE            any line of a project file, applied after FILE; may be repeated
  --config PATH              another per-user configuration file
  --no-config                no configuration file
  --quiet                    no progress and no diagnostic lines
  --verbose                  say more
  --help                     this text
  --version                  the version

Exit status: 0 done, 1 something failed (said on standard error), 2 wrong usage, 130 interrupted.
)";
}
