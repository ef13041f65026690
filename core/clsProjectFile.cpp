#include "core/clsProjectFile.h"

#include <algorithm>

#include "core/clsMain.h"
#include "seam/clsInputFile.h"
#include "seam/clsOutputFile.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"
#include "timeline/clsUndoManager.h"

std::atomic<bool> GbGLLockProjectLoading{false};

namespace {

/// Longer files are no projects; what stands behind this is not read.
constexpr uint64_t kMaxProjectByte = 256U << 20;

class ProjectLoadingLock_cls {
  public:
    ProjectLoadingLock_cls() { GbGLLockProjectLoading.store(true, std::memory_order_release); }
    ~ProjectLoadingLock_cls() { GbGLLockProjectLoading.store(false, std::memory_order_release); }
    ProjectLoadingLock_cls(const ProjectLoadingLock_cls&) = delete;
    ProjectLoadingLock_cls& operator=(const ProjectLoadingLock_cls&) = delete;
};

bool IsConfigFile(const wxString& path) {
    return path.EndsWith(ProjectFile_cls::kConfigName);
}

/// A section of plain key=value lines.
template <class Object>
std::function<bool(LineStream_cls&, const wxString&)> PlainReader(Object& object) {
    return [&object](LineStream_cls&, const wxString& line) { return object.ReadStrLine(line); };
}

/// A section with blocks that are read from the stream.
template <class Object>
std::function<bool(LineStream_cls&, const wxString&)> BlockReader(Object& object) {
    return
        [&object](LineStream_cls& stream, const wxString& line) { return object.ReadStrLine(stream, line); };
}

template <class Object>
std::function<wxString()> Writer(const Object& object) {
    return [&object] { return object.Serialize(); };
}

}  // namespace

ProjectFile_cls::ProjectFile_cls(Main_cls& main) : mMain(main) {
    DataLoader_cls& loader = main.GetDataLoader();
    FrameSettings_cls& frame = main.GetFrameSettings();
    mSections = {
        {1, true, Writer(loader), PlainReader(loader)},
        {3, true, [&frame] { return frame.SerializeForConfigure(); }, PlainReader(frame)},
        {6, false, Writer(main.GetTimeCtrl()), BlockReader(main.GetTimeCtrl())},
        {7, false, Writer(main.GetDrawOption()), PlainReader(main.GetDrawOption())},
        {10, false, Writer(main.GetSeqCtrl()), BlockReader(main.GetSeqCtrl())},
        {11, false, Writer(main.GetPeriodicBoundary()), PlainReader(main.GetPeriodicBoundary())},
        {17, false, Writer(main.GetPreference()), PlainReader(main.GetPreference())},
    };
}

wxString ProjectFile_cls::Serialize(bool full) const {
    wxString text;
    for (const Section& section : mSections) {
        if (full || section.configuration) text += section.serialize();
    }
    return text;
}

int ProjectFile_cls::SaveProjectFile(const wxString& path, bool full) {
    if (mMain.GetSeqCtrl().GetActive().GetFiles().GetPath().Contains("\n")) {
        mError = path + ": cannot be written: the data's name holds a line feed";
        return 0;
    }
    // The name goes into this very file, and into the configuration at quit.
    if (!IsConfigFile(path)) mMain.GetFrameSettings().mLastOpenedFileVHP.SetText(path);
    mError = OutputFile_cls::WriteWhole(path, ToBytes(Serialize(full)), OutputFile_cls::Sync::Durable);
    if (!mError.empty()) return 0;
    if (full) GCUndoList.MarkSaved();
    return 1;
}

bool ProjectFile_cls::Offer(LineStream_cls& stream, const wxString& line) {
    bool taken = false;
    for (const Section& section : mSections) taken = section.read(stream, line) || taken;
    return taken;
}

bool ProjectFile_cls::ReadProjectFile(const wxString& path) {
    const auto file = InputFile_cls::Open(path);
    if (!file) {
        // Without a blank between words and name, as it has always been.
        if (!IsConfigFile(path)) UserMessage_cls::Tell("Warning", "Read Configure Fails" + path);
        return false;
    }
    const ProjectLoadingLock_cls lock;
    std::string bytes(std::min(file->GetSize(), kMaxProjectByte), '\0');
    bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    LineStream_cls stream(std::move(bytes));
    mUnknownLines = 0;
    wxString line;
    while (stream.ReadLine(line)) mUnknownLines += Offer(stream, line) ? 0 : 1;
    mMain.ApplyPreferences();
    GCUndoList.Clear();
    return true;
}

bool ProjectFile_cls::ApplySetting(const wxString& line) {
    if (mKeys.empty()) {
        const wxString text = Serialize(true);
        for (size_t begin = 0; begin < text.length();) {
            const size_t end = std::min(text.find('\n', begin), text.length());
            const size_t equals = text.find('=', begin);
            if (equals < end) mKeys.insert(text.substr(begin, equals + 1 - begin));
            begin = end + 1;
        }
    }
    // Readers look for their key anywhere in the line; by hand it has to stand at the beginning.
    if (!mKeys.count(line.BeforeFirst('=') + "=")) return false;
    LineStream_cls nothing{std::string()};
    const bool taken = Offer(nothing, line);
    mMain.ApplyPreferences();
    return taken;
}
