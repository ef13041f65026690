#include "core/clsMain.h"

#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/log.h>

#include <algorithm>

#include "core/clsCommandLoadData.h"
#include "core/clsProjectFile.h"
#include "data/clsBodyProgress.h"
#include "data/clsThreadAsciiReader.h"
#include "data/clsThreadFileReader.h"
#include "interp/clsSnapData.h"
#include "interp/clsThreadInterpolator.h"
#include "render/clsGLAttribute.h"
#include "render/clsZSort.h"
#include "seam/clsClock.h"
#include "seam/clsEventSink.h"
#include "seam/clsUserFolder.h"
#include "seam/clsUserMessage.h"
#include "timeline/clsComParamBase.h"
#include "timeline/clsUndoManager.h"

namespace {

constexpr int kFinishPeriodMs = 10;
/// A longer series is cut to kCutLength: the two numbers differ, and users' projects rely on both.
constexpr int kLastFrameOfAll = 9999;
constexpr int kCutLength = 8000;

/// Beside the program; for one that is installed where its user may not write, with the user's settings.
wxString ConfigPath(const wxString& programFolder) {
    const bool own = wxFileName::IsDirWritable(programFolder);
    return (own ? programFolder : UserFolder_cls::GetConfig()) + "/" + ProjectFile_cls::kConfigName;
}

}  // namespace

Main_cls::Main_cls(const wxString& programFolder)
    : mConfigPath(ConfigPath(programFolder)), mSeqCtrl(true), mTimeCtrl(MakeTimeHost(), mParamHost) {
    PDataBlock_cls::mspCDataLoaderLink = &mDataLoader;
    PDataBlock_cls::mspCPeriodicLink = &mPeriodicBoundary;
    ZSort_cls::mspCPreferenceLink = &mPreference;
    mDataLoader.SetOpenCommand([this](const wxString& path) { OpenDataFileCommand(path); });
    ComParamBase_cls::SetLookUp([this](const wxString& id) { return GetPCParamFromID(id); });
    for (int i = 0; i < PDataSeqCtrl_cls::kSequences; ++i) {
        // The state on screen borrows from the snapshot it was made of.
        mSeqCtrl.GetSequence(i).SetReleaseObserver(
            [this](const PDataBlock_cls& block) { mState.ReleaseIfOf(block); });
    }
    HangUpGroups();
    mProjectFile = std::make_unique<ProjectFile_cls>(*this);
    ApplyPreferences();
}

Main_cls::~Main_cls() {
    CloseData();
    GCUndoList.Clear();
    ComParamBase_cls::SetLookUp({});
    for (int i = 0; i < PDataSeqCtrl_cls::kSequences; ++i) mSeqCtrl.GetSequence(i).SetReleaseObserver({});
    mSeqCtrl.ClearData(PDataSeqCtrl_cls::kAllSequences, PDataSequence_cls::kAll, true);
    PDataBlock_cls::mspCDataLoaderLink = nullptr;
    PDataBlock_cls::mspCPeriodicLink = nullptr;
    ZSort_cls::mspCPreferenceLink = nullptr;
}

void Main_cls::HangUpGroups() {
    for (size_t i = 0; i < CameraPath_cls::kGroupCount; ++i)
        mCameraGroup.AddChild(mCameraPath.GetGroup(static_cast<CameraPath_cls::Group>(i)));
    for (int light = 0; light < LightSRCCtrl_cls::kLights; ++light) {
        for (size_t i = 0; i < LightSRC_cls::kGroupCount; ++i)
            mLightGroup.AddChild(mLightSRCCtrl.GetLight(light).GetGroup(static_cast<LightSRC_cls::Group>(i)));
    }
    mTimeGroups = {&mCameraGroup, &mLightGroup, &mTimeCtrl.GetRemapGroup()};
}

TimeHost_cls Main_cls::MakeTimeHost() {
    TimeHost_cls host;
    host.forEachParameter = [this](const std::function<void(Parameters_cls&)>& function) {
        for (ParamGroup_cls* tree : mTimeGroups) {
            for (ParamGroup_cls* group : tree->GetChildren()) {
                for (int i = 0; i < group->GetDimension(); ++i) {
                    if (group->GetParameter(i).IsTimeDependent()) function(group->GetParameter(i));
                }
            }
        }
    };
    host.clearSnipping = [this] { mSeqCtrl.ClearSnipping(); };
    host.setSnipping = [this](int snapshot) { mSeqCtrl.SetSnipping(snapshot); };
    host.refreshViews = [] { EventSink_cls::PostToFrame(EventSink_cls::kRedraw); };
    return host;
}

void Main_cls::OpenDataFileCommand(const wxString& path) {
    const wxString old = mSeqCtrl.GetActive().GetFiles().GetPath();
    const auto load = [this](const wxString& file) {
        return std::make_unique<CommandLoadData_cls>(*this, file);
    };
    GCUndoList.OpenBlock("Open Data");
    GCUndoList.PushAndExec(load(""), load(old));
    GCUndoList.PushAndExec(load(path), load(""));
    GCUndoList.CloseBlock();
}

void Main_cls::CloseDataCommand() {
    const wxString old = mSeqCtrl.GetActive().GetFiles().GetPath();
    GCUndoList.PushAndExec(std::make_unique<CommandLoadData_cls>(*this, ""),
                           std::make_unique<CommandLoadData_cls>(*this, old));
}

void Main_cls::OpenDataFile(const wxString& path) {
    WaitThreadFinish();
    mSeqCtrl.OpenDataFile(path);
    CutLongSeries();
    // Areas that covered the whole scene before cover it after.
    const int before = mTimeCtrl.GetMaxFrame();
    mTimeCtrl.SetMaxFrameNative(std::max(mSeqCtrl.GetActive().GetSeqLength() - 1, 0));
    mTimeCtrl.CheckAfterMaxFrameChange(before);
    EventSink_cls::PostToFrame(EventSink_cls::kRefreshPanels);
}

void Main_cls::CutLongSeries() {
    PDataSequence_cls& sequence = mSeqCtrl.GetActive();
    if (sequence.GetFiles().GetCount() - 1 <= kLastFrameOfAll) return;
    UserMessage_cls::Tell("Warning", wxString::Format("Max file sequence number is %d", kCutLength));
    sequence.SetSeqLength(kCutLength);
}

void Main_cls::CloseData() {
    // Nobody will look at what is being read.
    GbThreadReaderAbandoned.store(true, std::memory_order_relaxed);
    WaitThreadFinish();
    GbThreadReaderAbandoned.store(false, std::memory_order_relaxed);
    mSeqCtrl.ClearData(PDataSeqCtrl_cls::kActive, PDataSequence_cls::kAll, true);
    mState.Release();
}

void Main_cls::WaitThreadFinish() {
    if (GpCThreadReader.load(std::memory_order_acquire)) PollUntil(GbThreadReaderFinished, kFinishPeriodMs);
    ThreadFileReader_cls::Retire();
    if (GpCThreadInterpolate.load(std::memory_order_acquire))
        PollUntil(GbThreadInterpolateFinished, kFinishPeriodMs);
    ThreadInterpolator_cls::JoinLast();
    GpCThreadInterpolate.store(nullptr, std::memory_order_release);
}

bool Main_cls::IsTheIndexReady(int index, double fraction) {
    return mSeqCtrl.IsTheIndexReady(index, fraction, mTimeCtrl.IsInterpolateAlways());
}

void Main_cls::CleanUpMemory(int currentSnapshot) {
    mSeqCtrl.CleanUpMemory(currentSnapshot, mTimeCtrl.GetSkippingStep());
}

const SnapData_cls* Main_cls::PrepareState(double position) {
    return PrepareState(position, mState);
}

const SnapData_cls* Main_cls::PrepareState(double position, DisplayedState_cls& into) {
    PDataSequence_cls& sequence = mSeqCtrl.GetActive();
    if (sequence.GetSeqLength() == 0) return nullptr;
    StopIfLoading();
    const auto [index, fraction] = sequence.GetPlace(position);
    sequence.PrepareIndex(index, fraction, mTimeCtrl.IsInterpolateAlways(), true);
    PDataSnap_cls& snap = sequence.GetSnap(index);
    if (!snap.IsItLoaded() || snap.GetParticleNumber() == 0) return nullptr;

    const double tau = sequence.GetDT(index, fraction);
    DrawAttributes_cls attributes{};
    const bool all = mDrawOption.mClassify.mValue == DrawOption_cls::kAllAttributes;
    for (size_t i = 0; i < attributes.size(); ++i)
        attributes[i] = sequence.GetAttributes()[all ? i : 0].get();
    return &into.Get(snap.GetBlock(), attributes, tau, mDrawOption.GetStep());
}

ScenePass_cls::Links Main_cls::GetSceneLinks() {
    return {.shared = mPanelShared,
            .option = mDrawOption,
            .shadow = mShadowSettings,
            .lights = mLightSRCCtrl,
            .periodic = mPeriodicBoundary,
            .data = mSeqCtrl};
}

Parameters_cls* Main_cls::GetPCParamFromID(const wxString& identifier) {
    for (ParamGroup_cls* tree : mTimeGroups) {
        // A tree answers for its last child only, so each child is asked itself.
        for (ParamGroup_cls* group : tree->GetChildren()) {
            if (Parameters_cls* found = group->GetPCParamFromID(identifier)) return found;
        }
        if (Parameters_cls* found = tree->GetPCParamFromID(identifier)) return found;
    }
    for (int i = 0; i < PDataSeqCtrl_cls::kSequences; ++i) {
        for (const auto& attribute : mSeqCtrl.GetSequence(i).GetAttributes()) {
            for (int curve = 0; curve < SnapAttribute_cls::kCurveCount; ++curve) {
                ParamGroup_cls& group = attribute->GetCurve(curve).GetParamGroup();
                if (Parameters_cls* found = group.GetPCParamFromID(identifier)) return found;
            }
        }
    }
    return nullptr;
}

void Main_cls::ApplyPreferences() {
    mSeqCtrl.SetMemoryLimitMB(mPreference.mMemoryLimit.mValue);
    GThreadNumberReadAscii.store(static_cast<unsigned int>(std::max(mPreference.mReaderThreads.mValue, 0)),
                                 std::memory_order_relaxed);
}

void Main_cls::FinishReading() {
    ApplyPreferences();
    CutLongSeries();
    mLightSRCCtrl.UpdateShownTracks();
}

int Main_cls::SaveProjectFile(const wxString& path, bool full) {
    return mProjectFile->SaveProjectFile(path, full);
}

bool Main_cls::ReadProjectFile(const wxString& path) {
    return mProjectFile->ReadProjectFile(path);
}

bool Main_cls::ReadConfiguration(const std::optional<wxString>& path) {
    if (path) mConfigPath = *path;
    const bool read = mConfigPath.empty() || ReadProjectFile(mConfigPath);
    EventSink_cls::PostToFrame(EventSink_cls::kRedraw);
    EventSink_cls::PostToFrame(EventSink_cls::kRefreshPanels);
    return read || !path;
}

bool Main_cls::QuitProcess() {
    if (mConfigPath.empty()) return true;
    const wxLogNull silent;  // a folder that cannot be made shows when the file cannot be written
    wxFileName::Mkdir(wxPathOnly(mConfigPath), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    return SaveProjectFile(mConfigPath, false) == 1;
}

bool Main_cls::IsPovrayCondistionSatisfiled() const {
    return mLightSRCCtrl.GetVisibleNumber() > 0 ||
           UserMessage_cls::AskYesNo(wxGetTranslation("Output .pov file"), wxGetTranslation("No Light"));
}
