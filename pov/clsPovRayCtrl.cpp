#include "pov/clsPovRayCtrl.h"

#include <algorithm>
#include <filesystem>

#include "data/clsFileSequence.h"
#include "pov/clsPovSceneFile.h"
#include "seam/clsClock.h"
#include "seam/clsOutputFile.h"
#include "seam/clsShellCommand.h"
#include "seam/clsTextCoding.h"
#include "seam/clsUserMessage.h"

namespace {

namespace fs = std::filesystem;

/// So long is written in one go: windows answer in between.
constexpr long long kSliceMs = 25;

/// The renderer reads no other names, on its command line or in its option files.
bool IsReadable(const wxString& path) {
    return ShellCommand_cls::IsHarmless(path);
}

}  // namespace

PovRayCtrl_cls::PovRayCtrl_cls() {
    SetToDefault();
}

PovRayCtrl_cls::~PovRayCtrl_cls() = default;

void PovRayCtrl_cls::SetToDefault() {
    mPathItems.Clear();
    mPathItems.Add(&mPathPovRay, "PathPovRay=", "/usr/bin/povray");
    mPathItems.Add(&mPathPovWork, "PathPovWork=", "");
    mPathPovWork.SetText("");
    mItems.Clear();
    mItems.Add(&mFilePovSnap, "FilePovSnap=", "povsnap%04d");
    mItems.Add(&mFilePovAnim, "FilePovAnim=", "povanim%04d");
    mItems.Add(&mTweaks, "PovTweaks=", "0");
    mItems.Add(&mUseCommonSceneFile, "UseCommonSceneFile=", "1");
    mRadiosity.SetToDefault();
    mRender.SetToDefault();
    mPhotons.SetToDefault();
    mFormat.SetToDefault();
    mAdvanced.SetToDefault();
}

wxString PovRayCtrl_cls::Serialize() const {
    wxString text;
    for (const ConfItemList_cls* list : GetLists()) text += list->SerializeAll();
    return text;
}

bool PovRayCtrl_cls::ReadStrLine(const wxString& line) {
    bool taken = mPathItems.ReadStrLineAll(line);
    taken = mItems.ReadStrLineAll(line) || taken;
    taken = mRadiosity.ReadStrLine(line) || taken;
    taken = mRender.ReadStrLine(line) || taken;
    taken = mPhotons.ReadStrLine(line) || taken;
    taken = mFormat.ReadStrLine(line) || taken;
    return mAdvanced.ReadStrLine(line) || taken;
}

std::vector<const ConfItemList_cls*> PovRayCtrl_cls::GetLists() const {
    return {&mPathItems,
            &mItems,
            &mRadiosity.GetItems(),
            &mRender.GetItems(),
            &mPhotons.GetItems(),
            &mFormat.GetItems(),
            &mAdvanced.GetItems()};
}

wxString PovRayCtrl_cls::GetWorkFolder() const {
    std::error_code error;
    const wxString& folder = mPathPovWork.GetValueText();
    const fs::path path = fs::absolute(folder.empty() ? "." : ToBytes(folder), error).lexically_normal();
    wxString text = FromBytes(path.string());
    while (text.length() > 1 && text.EndsWith("/")) text.RemoveLast();
    return text;
}

wxString PovRayCtrl_cls::GetFileStr(int frame, Series series) const {
    const wxString& pattern = (series == Series::Snap ? mFilePovSnap : mFilePovAnim).GetValueText();
    FileSequence_cls names(pattern);
    // Every frame has files of its own.
    const bool hasTag = names.IsNumbered() && names.GetPath() == names.GetFormat();
    if (!hasTag) names.Set(pattern + "%04d");
    return GetWorkFolder() + "/" + names.GetModifiedStr(frame);
}

wxString PovRayCtrl_cls::NameInIni(const wxString& path) const {
    // The renderer starts in the working directory, so a relative name always holds.
    if (mFormat.mFileAbsolute.mValue && IsReadable(path)) return path;
    wxString rest;
    return path.StartsWith(GetWorkFolder() + "/", &rest) ? rest : path;
}

void PovRayCtrl_cls::GetStrPovIni(wxString* text, const wxString& name, Series series) const {
    *text = mFormat.GetStrPovFormat({NameInIni(name), series == Series::Snap});
    *text += mRadiosity.GetStrPovIni(mFormat.mFileAbsolute.mValue ? wxString() : GetWorkFolder() + "/");
    *text += mPhotons.GetStrPovIni();
    *text += "#Initial_Frame=0\n#Final_Frame=10\n#Subset_Start_Frame=0\n#Subset_End_Frame=9\n";
}

wxString PovRayCtrl_cls::OutputPovRayIni(const wxString& name, Series series) const {
    wxString text;
    GetStrPovIni(&text, name, series);
    return OutputFile_cls::WriteWhole(name + ".ini", ToBytes(text), OutputFile_cls::Sync::No);
}

wxString PovRayCtrl_cls::GetPovRayCommand(const wxString& name) const {
    const wxString ini = name + ".ini";
    wxString rest;
    if (!IsReadable(ini)) ini.StartsWith(GetWorkFolder() + "/", &rest);
    return "nice " + ShellCommand_cls::Quote(mPathPovRay.GetValueText()) + " " +
           ShellCommand_cls::Quote(rest.empty() ? ini : rest);
}

bool PovRayCtrl_cls::IsThere(const wxString& path) {
    std::error_code error;
    return !path.empty() && fs::exists(fs::path(ToBytes(path)), error);
}

bool PovRayCtrl_cls::ConfirmPaths() const {
    wxString warnings;
    for (const ConfItemSTR_cls* path : {&mPathPovRay, &mPathPovWork}) {
        if (!IsThere(path->GetValueText())) warnings += "Path discrepancy.\n";
    }
    return warnings.empty() ||
           UserMessage_cls::AskYesNo("Warning", warnings + "Above warnings detected. Continue?");
}

wxString PovRayCtrl_cls::FindObstacle() const {
    std::error_code error;
    const wxString folder = GetWorkFolder();
    if (!fs::is_directory(fs::path(ToBytes(folder)), error))
        return folder + ": the working directory of POV-Ray is missing";
    for (const Series series : {Series::Snap, Series::Anim}) {
        const wxString name = GetFileStr(0, series).Mid(folder.length() + 1);
        if (IsReadable(name)) continue;
        return name + ": POV-Ray reads no such file name; letters, digits, \"_\", \"-\" and \".\" are safe";
    }
    return {};
}

wxString PovRayCtrl_cls::BeginFrame(int frame, Series series, bool first) {
    wxString error = FindObstacle();
    if (error.empty() && mSceneWriter) mScene = mSceneWriter(frame, GetFileStr(frame, series), first, &error);
    return error;
}

wxString PovRayCtrl_cls::EndFrame(int frame, Series series) {
    const wxString error = mScene ? mScene->GetError() : wxString();
    mScene.reset();
    return error.empty() ? OutputPovRayIni(GetFileStr(frame, series), series) : error;
}

wxString PovRayCtrl_cls::Export(int frame, Series series, bool first) {
    if (IsRendering()) return "another frame is being written";
    const wxString error = BeginFrame(frame, series, first);
    if (!error.empty()) return error;
    while (mScene && mScene->Step()) {
        if (!mProgress || mProgress(mScene->GetShare())) continue;
        mScene.reset();
        return "cancelled";
    }
    return EndFrame(frame, series);
}

PovRenderPool_cls::Job PovRayCtrl_cls::MakeJob(int frame, Series series) const {
    const wxString name = GetFileStr(frame, series);
    return {frame, name, GetPictureStr(name), GetPovRayCommand(name), mPostSceneCommand};
}

void PovRayCtrl_cls::Tell(const PovRenderPool_cls::Outcome& outcome) const {
    if (mObserver) mObserver(outcome);
}

bool PovRayCtrl_cls::RenderByPovSnap(int frame) {
    if (IsRendering()) return false;
    Start({frame}, Series::Snap, true, 1);
    mNext = 1;
    mPool.Start(MakeJob(frame, mSeries));
    Tell({-1, {}, {}});
    return true;
}

void PovRayCtrl_cls::StartPovSnap(int frame, bool isRendered) {
    if (IsRendering()) return;
    Start({frame}, Series::Snap, isRendered, 1);
    Tell({-1, {}, {}});
}

void PovRayCtrl_cls::StartRenderPovAnim(const std::vector<int>& frames, int renderers) {
    if (IsRendering()) return;
    Start(frames, Series::Anim, true, renderers);
    Tell({-1, {}, {}});
}

void PovRayCtrl_cls::Start(const std::vector<int>& frames, Series series, bool isRendered, int renderers) {
    mFrames = frames;
    mNext = 0;
    mDone = 0;
    mSeries = series;
    mIsRendered = isRendered;
    mPool.SetPlaces(renderers);
}

bool PovRayCtrl_cls::ProcessRenderPovAnim() {
    const bool before = IsRendering();
    for (const PovRenderPool_cls::Outcome& outcome : mPool.Collect()) {
        ++mDone;
        Tell(outcome);
    }
    // The observer may have aborted.
    if (IsBusy()) ProcessWriting();
    const bool after = IsRendering();
    if (before && !after) Tell({-1, {}, {}});
    return after;
}

void PovRayCtrl_cls::ProcessWriting() {
    if (!IsWriting()) {
        mFrame = mFrames[mNext];
        const wxString error = BeginFrame(mFrame, mSeries, mNext == 0);
        // All may have been aborted while data were awaited.
        if (mFrames.empty()) return mScene.reset();
        ++mNext;
        if (!error.empty() || !mScene) return TakeWritten(error);
    }
    const long long start = Clock_cls::Current().Now();
    while (mScene->Step()) {
        if (mProgress) mProgress(mScene->GetShare());
        if (!IsWriting() || Clock_cls::Current().Now() - start > kSliceMs) return;
    }
    TakeWritten({});
}

void PovRayCtrl_cls::TakeWritten(const wxString& error) {
    const wxString problem = error.empty() ? EndFrame(mFrame, mSeries) : error;
    if (problem.empty() && mIsRendered) {
        if (mSeries == Series::Anim) return mPool.Start(MakeJob(mFrame, mSeries));
        RenderByPovSnap(mFrame);
        return;
    }
    ++mDone;
    Tell({mFrame, problem.empty() ? GetFileStr(mFrame, mSeries) + ".pov" : wxString(), problem});
}

void PovRayCtrl_cls::AbortRenderPovAnim() {
    mFrames.clear();
    mNext = 0;
    mScene.reset();
    mPool.AbortAll();
    Tell({-1, {}, {}});
}
