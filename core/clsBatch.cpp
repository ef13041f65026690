#include "core/clsBatch.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <utility>

#include "core/clsFilm.h"
#include "core/clsInterrupt.h"
#include "core/clsNamedData.h"
#include "core/clsPovJob.h"
#include "core/clsProgress.h"
#include "data/clsLayoutHint.h"
#include "data/clsSeriesRestore.h"
#include "interp/clsSnapData.h"
#include "output/clsStateFile.h"
#include "render/clsFirstLook.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

Batch_cls::Batch_cls(CommandLine_cls line, const wxString& programFolder)
    : mLine(std::move(line)),
      mMain(programFolder),
      mProject(mMain.GetProjectFile()),
      mSource(mMain, mLine.mVerbose) {
    // On a terminal the lines would tear the progress bar apart.
    const bool terminal = isatty(STDOUT_FILENO) != 0 && isatty(STDERR_FILENO) != 0;
    if (mLine.mQuiet || (terminal && !mLine.mVerbose)) SetDiagnosticsOn(false);
}

int Batch_cls::Run() {
    Interrupt_cls::Install();
    SeriesRestore_cls::SetProgress([](const wxString&) -> StepSplitter_cls::Progress {
        return [](uint64_t, uint64_t) { return !Interrupt_cls::IsRaised(); };
    });
    const int prepared = Prepare();
    if (prepared != kDone) return prepared;
    switch (mLine.mAction) {
        case CommandLine_cls::Action::Info:
            return Info();
        case CommandLine_cls::Action::Render:
            return Render();
        case CommandLine_cls::Action::Export:
            return Export();
        case CommandLine_cls::Action::Pov:
            return Pov();
        default:
            return Save();
    }
}

int Batch_cls::Prepare() {
    if (!mMain.ReadConfiguration(mLine.mConfig)) return kFailed;
    if (IsProject()) {
        const bool opened = mProject.OpenProject(mLine.mFile);
        if (Interrupt_cls::IsRaised()) return kInterrupted;
        if (!opened) return kFailed;
        if (mProject.GetKnownLines() == 0) {
            PrintError(mLine.mFile + " is no project");
            return kFailed;
        }
        for (const wxString& fault : mProject.GetFaults()) PrintError(fault);
        if (mLine.mVerbose) {
            PrintError(wxString::Format("%s: %d lines belong to no setting", mLine.mFile,
                                        mProject.GetUnknownLines()));
        }
    }
    std::optional<wxString> data;
    if (!IsProject()) {
        data = PrepareNamedData(mLine.mFile, mLine.mSettings, mMain.GetDataLoader(),
                                mMain.GetPeriodicBoundary());
        if (!data) return Interrupt_cls::IsRaised() ? kInterrupted : kFailed;
    }
    for (const wxString& setting : mLine.mSettings) {
        const wxString error = mProject.ApplySetting(setting);
        if (error.empty()) continue;
        PrintError("--set " + error);
        return kWrongUsage;
    }
    if (data) mMain.GetDataLoader().OpenDataFile(*data);
    return kDone;
}

void Batch_cls::ApplyFirstLook() {
    const SnapData_cls* first = IsProject() ? nullptr : mSource.Prepare(0.0);
    if (!first) return;
    for (const wxString& line : SuggestLook(*first, mLine.mHeight, mLine.mSettings))
        mProject.ApplySetting(line);
}

bool Batch_cls::HasData() {
    if (!mMain.GetDataLoader().CheckGrammer()) return false;
    const PDataSequence_cls& sequence = mMain.GetSeqCtrl().GetActive();
    // A first file that is missing has been told by the series itself.
    if (sequence.GetFiles().GetPath().empty()) PrintError(mLine.mFile + ": the project names no data");
    return sequence.GetSeqLength() > 0;
}

bool Batch_cls::IsNumberedByOne() {
    PDataSequence_cls& sequence = mMain.GetSeqCtrl().GetActive();
    if (mLine.mFrames || sequence.GetSeqLength() < 2 || sequence.GetSnap(1).IsFileValid()) return true;
    PrintError(sequence.GetFilename(1) +
               ": cannot be opened; a series is numbered in steps of 1 (docs/snapshot-files.md says how to "
               "get there)");
    return false;
}

int Batch_cls::Info() {
    if (!HasData()) return kFailed;
    // The lines below say the same as the diagnostic lines of the headers.
    SetDiagnosticsOn(false);
    long long particles = 0;
    PDataSequence_cls& sequence = mMain.GetSeqCtrl().GetActive();
    for (int i = 0; i < sequence.GetSeqLength(); ++i) {
        if (Interrupt_cls::IsRaised()) return kInterrupted;
        const wxString& path = sequence.GetFilename(i);
        const auto file = InputFile_cls::Open(path);
        if (!file) {
            mSource.TellFaults(i);
            continue;
        }
        PDataBlock_cls block;
        block.ReadHeader(*file, path, i);
        block.CheckTextBody(*file, path);
        const auto problems = block.TakeProblems();
        for (const wxString& problem : problems) PrintError(problem);
        if (problems.empty()) {
            TellLeftover(*file, path, block.GetCount());
        } else {
            mSource.NoteFault();
        }
        particles += block.GetCount();
        std::printf("%6d  t = %-14.9g %10d particles  %s\n", i, block.GetTime(), block.GetCount(),
                    ToBytes(path).c_str());
    }
    std::printf("total: %d snapshots, %lld particles\n", sequence.GetSeqLength(), particles);
    return Outcome();
}

void Batch_cls::TellLeftover(const InputFile_cls& file, const wxString& path, int particles) {
    const wxString leftover = DescribeLeftover(file, mMain.GetDataLoader(), particles);
    if (leftover.empty() || std::exchange(mLeftoverTold, true)) return;
    PrintError(path + ": note: " + leftover +
               " behind the particles are not read (a file holds one step; is the layout right?)");
}

std::optional<FrameSelection_cls> Batch_cls::ChooseFrames() const {
    const TimeCtrl_cls& time = const_cast<Main_cls&>(mMain).GetTimeCtrl();
    const FrameRange area = time.GetSettings().GetWorkArea();
    const FrameSelection_cls frames =
        mLine.mFrames.value_or(FrameSelection_cls{.mFirst = area.first, .mLast = area.last});
    if (frames.mLast > time.GetMaxFrame()) {
        PrintError(wxString::Format("--frames %d:%d: the scene ends at frame %d", frames.mFirst, frames.mLast,
                                    time.GetMaxFrame()));
        return std::nullopt;
    }
    if (!FileSequence_cls(mLine.mPattern).IsNumbered() && frames.mFirst != frames.mLast) {
        PrintError(mLine.mPattern + ": several frames need a number in the name, for example out%04d.png");
        return std::nullopt;
    }
    return frames;
}

int Batch_cls::DoFrames(const FrameSelection_cls& frames,
                        const std::function<wxString(int frame, const wxString& name)>& work) {
    const FrameNames_cls names(mLine.mPattern, frames.mFirst == frames.mLast);
    Progress_cls progress((frames.mLast - frames.mFirst) / frames.mStep + 1, mLine.mQuiet);
    for (int frame = frames.mFirst; frame <= frames.mLast; frame += frames.mStep) {
        if (Interrupt_cls::IsRaised()) {
            progress.End();
            return Outcome(JobResult::Interrupted);
        }
        const wxString name = names.Of(frame);
        const wxString error = work(frame, name);
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

int Batch_cls::Render() {
    if (!HasData() || !IsNumberedByOne()) return kFailed;
    const auto frames = ChooseFrames();
    if (!frames) return kWrongUsage;
    ApplyFirstLook();
    Film_cls film(mMain, mSource, mLine, *frames);
    return Outcome(film.Run());
}

int Batch_cls::Pov() {
    if (!HasData() || !IsNumberedByOne()) return kFailed;
    const auto frames = ChooseFrames();
    if (!frames) return kWrongUsage;
    if (!mLine.mIsSizeGiven) mLine.mHeight = mMain.GetPovRayCtrl().GetFormat().GetSize().y;
    ApplyFirstLook();
    PovJob_cls job(mMain, mSource, mLine, *frames);
    return Outcome(job.Run());
}

int Batch_cls::Export() {
    if (!HasData()) return kFailed;
    if (mLine.mAt) {
        const int last = mMain.GetSeqCtrl().GetActive().GetSeqLength() - 1;
        if (*mLine.mAt > last) {
            PrintError(wxString::Format("--at %g: the data end at snapshot %d", *mLine.mAt, last));
            return kWrongUsage;
        }
        const wxString error = WriteState(mLine.mPattern, *mLine.mAt);
        if (error.empty()) return Outcome();
        PrintError(error);
        return kFailed;
    }
    if (!IsNumberedByOne()) return kFailed;
    const auto frames = ChooseFrames();
    if (!frames) return kWrongUsage;
    return DoFrames(*frames, [&](int frame, const wxString& name) {
        return WriteState(name, mMain.GetTimeCtrl().GetRemappedIndexDouble(frame, 0));
    });
}

bool Batch_cls::IsInput(const wxString& name) {
    const auto isSame = [path = ToBytes(name)](const wxString& input) {
        std::error_code differs;
        return std::filesystem::equivalent(path, ToBytes(input), differs);
    };
    if (!InputFile_cls::CanOpen(name)) return false;
    if (isSame(mLine.mFile)) return true;
    const PDataSequence_cls& data = mMain.GetSeqCtrl().GetActive();
    for (int i = 0; i < data.GetSeqLength(); ++i) {
        if (isSame(data.GetFilename(i))) return true;
    }
    return false;
}

wxString Batch_cls::WriteState(const wxString& name, double position) {
    if (IsInput(name)) return name + " is read here: choose another name for what is written";
    const SnapData_cls* state = mSource.Prepare(position);
    const DataExporter_cls& exporter = mMain.GetDataExporter();
    const PDataSequence_cls& data = mMain.GetSeqCtrl().GetActive();
    const PDataSnap_cls& snap = data.GetSnap(data.GetPlace(position).index);
    if (!state) {
        const double time = snap.GetTime() == PDataSnap_cls::kNoTime ? 0.0 : snap.GetTime();
        return WriteParticleState(name, {.mTime = time}, exporter);
    }
    const PDataBlock_cls& block = snap.GetBlock();
    return WriteParticleState(name,
                              {.mTime = state->GetTime(),
                               .mCount = state->GetCount(),
                               .mStride = state->GetStride(),
                               .mPosition = state->GetPosition(),
                               .mVelocity = block.GetVelocity(),
                               .mRadius = state->GetRadius(),
                               .mValue1 = state->GetValue1(),
                               .mType = state->GetType(),
                               .mID = block.GetID()},
                              exporter);
}

int Batch_cls::Outcome(JobResult result) const {
    if (result == JobResult::Interrupted) {
        PrintError("interrupted; the files written so far are whole");
        return kInterrupted;
    }
    return result == JobResult::Done && mSource.IsFaultless() ? kDone : kFailed;
}

int Batch_cls::Save() {
    if (mMain.GetSeqCtrl().GetActive().GetSeqLength() == 0 && !IsProject()) return kFailed;
    ApplyFirstLook();
    if (Interrupt_cls::IsRaised()) return kInterrupted;
    if (mProject.SaveProjectFile(mLine.mProject, true) == 1) return kDone;
    PrintError(mProject.GetError());
    return kFailed;
}
