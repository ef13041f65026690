#include "core/clsBatch.h"

#include <csignal>
#include <cstdio>

#include "core/clsProgress.h"
#include "data/clsFileSequence.h"
#include "output/clsImageFile.h"
#include "render/clsScenePass.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

constexpr const char* kConfigName = "Varnholt3Configure.txt";

constexpr int kMissingNamed = 3;

volatile std::sig_atomic_t interrupted = 0;

void OnInterrupt(int) {
    interrupted = 1;
}

std::span<const float> Positions(const PDataBlock_cls& block) {
    return {block.GetPosition(), 3 * static_cast<size_t>(block.GetCount())};
}

std::span<const uint8_t> Types(const PDataBlock_cls& block) {
    return {block.GetType(), static_cast<size_t>(block.GetCount())};
}

}  // namespace

Batch_cls::Batch_cls(CommandLine_cls line, const wxString& programFolder) : mLine(std::move(line)) {
    if (mLine.mQuiet) SetDiagnosticsOn(false);
    const wxString config = mLine.mConfig.value_or(programFolder + "/" + kConfigName);
    if (!config.empty()) mMain.ReadConfigFile(config);
}

int Batch_cls::Run() {
    const int prepared = Prepare();
    if (prepared != kDone) return prepared;
    switch (mLine.mAction) {
        case CommandLine_cls::Action::Info:
            return Info();
        case CommandLine_cls::Action::Render:
            return Render();
        default:
            return Save();
    }
}

int Batch_cls::Prepare() {
    const bool project = mLine.mFile.Lower().EndsWith(".vhp");
    if (project && !mMain.ReadProjectFile(mLine.mFile)) return kFailed;
    for (const wxString& setting : mLine.mSettings) {
        if (mMain.ApplySetting(setting)) continue;
        PrintError("--set " + setting + ": no setting has this key");
        return kWrongUsage;
    }
    if (!project) mMain.GetDataLoader().OpenDataFile(mLine.mFile);
    return kDone;
}

bool Batch_cls::HasData() {
    if (!mMain.GetDataLoader().CheckGrammer()) return false;
    // A first file that is missing has been told by the series itself.
    return mMain.GetSequence().GetSeqLength() > 0;
}

std::unique_ptr<PDataBlock_cls> Batch_cls::Load(int index, PDataSequence_cls::Depth depth) {
    wxString why;
    auto block = mMain.GetSequence().Load(index, depth, &why);
    if (!block) {
        // Series numbered in steps ("dump.0", "dump.1000") miss most of their members: not a line for each.
        if (++mMissing <= kMissingNamed) PrintError(mMain.GetSequence().GetFilename(index) + ": " + why);
        return nullptr;
    }
    for (const wxString& problem : block->TakeProblems()) {
        mAnyFault = true;
        PrintError(problem);
    }
    return block;
}

int Batch_cls::Outcome() const {
    if (mMissing > kMissingNamed) {
        PrintError(wxString::Format(
            "%d files of the series cannot be opened; files are counted in steps of 1", mMissing));
    }
    return mAnyFault || mMissing > 0 ? kFailed : kDone;
}

int Batch_cls::Info() {
    if (!HasData()) return kFailed;
    // The lines below say the same as the diagnostic lines of the headers.
    SetDiagnosticsOn(false);
    long long particles = 0;
    const int length = mMain.GetSequence().GetSeqLength();
    for (int i = 0; i < length; ++i) {
        const auto block = Load(i, PDataSequence_cls::Depth::HeaderOnly);
        if (!block) continue;
        particles += block->GetCount();
        std::printf("%6d  t = %-14.9g %10d particles  %s\n", i, block->GetTime(), block->GetCount(),
                    ToBytes(mMain.GetSequence().GetFilename(i)).c_str());
    }
    std::printf("total: %d snapshots, %lld particles\n", length, particles);
    return Outcome();
}

int Batch_cls::Render() {
    if (!HasData()) return kFailed;
    const int last = mMain.GetSequence().GetSeqLength() - 1;
    const FrameRange_cls frames = mLine.mFrames.value_or(FrameRange_cls{.mFirst = 0, .mLast = last});
    if (frames.mLast > last) {
        PrintError(
            wxString::Format("--frames %d:%d: the data end at frame %d", frames.mFirst, frames.mLast, last));
        return kWrongUsage;
    }
    const FileSequence_cls pictures(mLine.mPattern);
    if (!pictures.IsNumbered() && frames.mFirst != frames.mLast) {
        PrintError(mLine.mPattern + ": several frames need a number in the name, for example out%04d.png");
        return kWrongUsage;
    }
    wxString why;
    const auto scene = ScenePass_cls::Create(mLine.mWidth, mLine.mHeight, &why);
    if (!scene) {
        PrintError(why);
        return kFailed;
    }
    // The camera depends on the data only, so that parts of a film rendered apart fit together.
    auto block = Load(0, PDataSequence_cls::Depth::Whole);
    if (block) scene->FitTo(Positions(*block));

    std::signal(SIGINT, OnInterrupt);
    std::signal(SIGTERM, OnInterrupt);
    Progress_cls progress((frames.mLast - frames.mFirst) / frames.mStep + 1, mLine.mQuiet);
    for (int frame = frames.mFirst; frame <= frames.mLast; frame += frames.mStep) {
        if (interrupted) {
            progress.End();
            PrintError("interrupted; the pictures written so far are whole");
            return kInterrupted;
        }
        if (frame > 0) block = Load(frame, PDataSequence_cls::Depth::Whole);
        const auto picture = block ? scene->Draw(Positions(*block), Types(*block)) : scene->Draw({}, {});
        const wxString name = pictures.GetModifiedStr(frame);
        const wxString error = ImageFile_cls::Write(name, mLine.mWidth, mLine.mHeight, picture);
        if (!error.empty()) {
            progress.End();
            PrintError(error);
            return kFailed;
        }
        progress.Step(name);
    }
    progress.End();
    return Outcome();
}

int Batch_cls::Save() {
    const wxString error = mMain.SaveProjectFile(mLine.mProject);
    if (error.empty()) return kDone;
    PrintError(error);
    return kFailed;
}
