#include "core/clsProjectFile.h"

#include <algorithm>

#include "core/clsMain.h"
#include "data/clsSplitPath.h"
#include "render/clsGLAttribute.h"
#include "seam/clsInputFile.h"
#include "seam/clsOutputFile.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"
#include "timeline/clsUndoManager.h"

std::atomic<bool> GbGLLockProjectLoading{false};

namespace {

constexpr int kConfigurationSections = 4;
/// Longer files are no projects; what stands behind this is not read.
constexpr uint64_t kMaxProjectByte = 256U << 20;
/// So many lines outside of blocks mean the same: the rest is not looked at.
constexpr int kMaxLines = 1000000;

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

/// Settings begin with a key and blocks with a marker: most lines of files that are no projects do neither.
bool MayBelongToSomeone(const wxString& line) {
    return line.StartsWith("-") || line.find('=') != wxString::npos;
}

template <class Object>
std::function<wxString()> Writer(const Object& object) {
    return [&object] { return object.Serialize(); };
}

/// Reads plain key=value lines.
template <class Object>
std::function<bool(LineStream_cls&, const wxString&)> Plain(Object& object) {
    return [&object](LineStream_cls&, const wxString& line) { return object.ReadStrLine(line); };
}

/// Reads blocks from the stream.
template <class Object>
std::function<bool(LineStream_cls&, const wxString&)> Block(Object& object) {
    return
        [&object](LineStream_cls& stream, const wxString& line) { return object.ReadStrLine(stream, line); };
}

}  // namespace

ProjectFile_cls::ProjectFile_cls(Main_cls& main) : mMain(main) {
    SetUpSections();
    SetUpReaders();
}

void ProjectFile_cls::SetUpSections() {
    Main_cls& main = mMain;
    // Users' projects are of this order. The numbers left out are blocks that other versions write; here they
    // are passed over when they are read.
    mSections = {
        {1, Writer(main.GetDataLoader())},
        {2, Writer(main.GetDataExporter())},
        {3, [&main] { return main.GetFrameSettings().SerializeForConfigure(); }},
        {4, [&main] { return main.GetPovRayCtrl().SerializeForConfigure(); }},
        {6, Writer(main.GetTimeCtrl())},
        {7, Writer(main.GetDrawOption())},
        {10, Writer(main.GetSeqCtrl())},
        {11, Writer(main.GetPeriodicBoundary())},
        {12, Writer(main.GetCameraPath())},
        {14, Writer(main.GetLightSRCCtrl())},
        {16, Writer(main.GetPovRayCtrl())},
        {17, Writer(main.GetPreference())},
        {18, Writer(main.GetPanelShared())},
        {19, Writer(main.GetShadowSettings())},
        {20, Writer(main.GetPanelSettings(0))},
        {20, Writer(main.GetPanelSettings(1))},
        {20, Writer(main.GetPanelSettings(2))},
        {20, Writer(main.GetPanelSettings(3))},
    };
}

void ProjectFile_cls::SetUpReaders() {
    Main_cls& main = mMain;
    Lists attributes;
    for (int i = 0; i < PDataSeqCtrl_cls::kSequences; ++i) {
        for (const auto& attribute : main.GetSeqCtrl().GetSequence(i).GetAttributes()) {
            attributes.push_back(&attribute->GetItems());
            for (int curve = 0; curve < SnapAttribute_cls::kCurveCount; ++curve)
                attributes.push_back(&attribute->GetCurve(curve).GetItems());
        }
    }
    Lists lights;
    for (int i = 0; i < LightSRCCtrl_cls::kLights; ++i)
        lights.push_back(&main.GetLightSRCCtrl().GetLight(i).GetItems());
    mReaders = {
        {Plain(main.GetDataLoader()), {&main.GetDataLoader().GetItems()}},
        {Plain(main.GetDataExporter()), {&main.GetDataExporter().GetItems()}},
        {Plain(main.GetFrameSettings()), {&main.GetFrameSettings().GetItems()}},
        {Block(main.GetTimeCtrl()), {&main.GetTimeCtrl().GetSettings().GetItems()}},
        {Plain(main.GetDrawOption()), {&main.GetDrawOption().GetItems()}},
        {Block(main.GetSeqCtrl()), attributes},
        {Plain(main.GetPeriodicBoundary()), {&main.GetPeriodicBoundary().GetItems()}},
        {Block(main.GetCameraPath()), {}},
        {Block(main.GetLightSRCCtrl()), lights},
        {Plain(main.GetPovRayCtrl()), main.GetPovRayCtrl().GetLists()},
        {Plain(main.GetPreference()), {&main.GetPreference().GetItems()}},
        // The panels' own settings, which are written too, are not read: a project leaves the panels of the
        // session as they are.
        {Plain(main.GetPanelShared()), {&main.GetPanelShared().GetItems()}},
        {Plain(main.GetShadowSettings()), {&main.GetShadowSettings().GetItems()}},
    };
    for (int i = 0; i < PanelSettings_cls::kPanels; ++i) {
        PanelSettings_cls& panel = main.GetPanelSettings(i);
        mSessionReaders.push_back({Plain(panel), {&panel.GetItems()}});
    }
}

wxString ProjectFile_cls::Serialize(bool full) const {
    wxString text;
    for (const Section& section : mSections) {
        if (full || section.number <= kConfigurationSections) text += section.serialize();
    }
    return text;
}

int ProjectFile_cls::SaveProjectFile(const wxString& path, bool full) {
    if (mMain.GetSeqCtrl().GetActive().GetFiles().GetPath().Contains("\n")) {
        mError = path + ": cannot be written: the data's name holds a line feed";
        return 0;
    }
    mMain.GetSeqCtrl().SetProjectFolder(SplitPath_cls(path).mDirectory);
    // The name goes into this very file, and into the configuration at quit.
    if (!IsConfigFile(path) && path != mMain.GetConfigPath())
        mMain.GetFrameSettings().mLastOpenedFileVHP.SetText(path);
    mError = OutputFile_cls::WriteWhole(path, ToBytes(Serialize(full)), OutputFile_cls::Sync::Durable);
    if (!mError.empty()) return 0;
    if (full) GCUndoList.MarkSaved();
    return 1;
}

bool ProjectFile_cls::WriteCopy(const wxString& path) {
    PDataSeqCtrl_cls& data = mMain.GetSeqCtrl();
    const wxString folder = data.GetActive().GetProjectFolder();
    data.SetProjectFolder(SplitPath_cls(path).mDirectory);
    const ExactNumbers_cls exact;
    const wxString text = Serialize(true);
    data.SetProjectFolder(folder);
    return OutputFile_cls::WriteWhole(path, ToBytes(text), OutputFile_cls::Sync::Durable).empty();
}

bool ProjectFile_cls::Offer(LineStream_cls& stream, const wxString& line) {
    bool taken = false;
    for (const Reader& reader : mReaders) taken = reader.read(stream, line) || taken;
    return taken;
}

bool ProjectFile_cls::OpenProject(const wxString& path) {
    // What cannot be read costs nothing of what is open.
    if (InputFile_cls::Open(path)) mMain.CloseData();
    return ReadProjectFile(path);
}

bool ProjectFile_cls::ReadProjectFile(const wxString& path) {
    const auto file = InputFile_cls::Open(path);
    if (!file) {
        // Without a blank between words and name, as it has always been.
        if (!IsConfigFile(path)) UserMessage_cls::Tell("Warning", "Read Configure Fails" + path);
        return false;
    }
    const ProjectLoadingLock_cls lock;
    mMain.GetSeqCtrl().SetProjectFolder(SplitPath_cls(path).mDirectory);
    std::string bytes(std::min(file->GetSize(), kMaxProjectByte), '\0');
    bytes.resize(file->ReadAt(0, bytes.data(), bytes.size()));
    mCutFile = bytes.empty() || bytes.back() == '\n' ? wxString() : path;
    LineStream_cls stream(std::move(bytes));
    mUnknownLines = 0;
    mKnownLines = 0;
    wxString line;
    for (int i = 0; i < kMaxLines && stream.ReadLine(line); ++i) {
        const bool known = MayBelongToSomeone(line) && (Offer(stream, line) || IsSessionLine(line));
        ++(known ? mKnownLines : mUnknownLines);
    }
    mMain.FinishReading();
    GCUndoList.Clear();
    return true;
}

std::vector<wxString> ProjectFile_cls::GetFaults() const {
    std::vector<wxString> faults;
    if (!mCutFile.empty())
        faults.push_back(mCutFile + " ends within a line, as if it were cut off: what it holds was read");
    const FileSequence_cls& data = mMain.GetSeqCtrl().GetActive().GetFiles();
    if (!data.GetPath().empty() && !InputFile_cls::CanOpen(data.GetModifiedStr(0)))
        faults.push_back("The data are not there: " + data.GetModifiedStr(0));
    return faults;
}

const ConfItem_cls* ProjectFile_cls::Find(const std::vector<Reader>& readers, const wxString& key,
                                          const Reader** reader) {
    for (const Reader& candidate : readers) {
        for (const ConfItemList_cls* list : candidate.lists) {
            if (const ConfItem_cls* item = list->GetPCItem(key)) {
                *reader = &candidate;
                return item;
            }
        }
    }
    return nullptr;
}

bool ProjectFile_cls::IsSessionLine(const wxString& line) const {
    const Reader* reader = nullptr;
    return Find(mSessionReaders, line.BeforeFirst('=') + "=", &reader) != nullptr;
}

wxString ProjectFile_cls::ApplySetting(const wxString& line) {
    const wxString key = line.BeforeFirst('=') + "=";
    const Reader* reader = nullptr;
    const ConfItem_cls* item = Find(mReaders, key, &reader);
    if (!item) item = Find(mSessionReaders, key, &reader);
    if (!item) return line + ": no setting has this key";
    if (!item->Accepts(line.AfterFirst('='))) {
        return line + ": " + key.BeforeFirst('=') + " takes " + item->GetValueWords();
    }
    LineStream_cls nothing{std::string()};
    reader->read(nothing, line);
    mMain.FinishReading();
    return {};
}
