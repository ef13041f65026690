#pragma once

#include <functional>
#include <vector>

#include "pov/clsPovAdvanced.h"
#include "pov/clsPovFormat.h"
#include "pov/clsPovPhotons.h"
#include "pov/clsPovRadiosity.h"
#include "pov/clsPovRender.h"
#include "pov/clsPovRenderPool.h"

/// Settings of the external ray tracer (where it is, where it works, how files are named, its options), and
/// the renders that run. One object, owned by the application core. The two paths belong to the machine more
/// than to the work, so the configuration file holds them too.
/// All files of a picture are written on the GUI thread before its renderer starts.
/// Threads: GUI thread.
/// Failure: a frame that cannot be written or rendered is told by the observer of outcomes; the others go on.
class PovRayCtrl_cls {
  public:
    /// Whose file-name pattern holds.
    enum class Series { Snap, Anim };

    PovRayCtrl_cls() { SetToDefault(); }
    PovRayCtrl_cls(const PovRayCtrl_cls&) = delete;
    PovRayCtrl_cls& operator=(const PovRayCtrl_cls&) = delete;

    // Settings

    void SetToDefault();
    /// The two paths.
    wxString SerializeForConfigure() const { return mPathItems.SerializeAll(); }
    /// Everything, the paths first.
    wxString Serialize() const;
    bool ReadStrLine(const wxString& line);
    /// The lists in the order of writing.
    std::vector<const ConfItemList_cls*> GetLists() const;

    PovRadiosity_cls& GetRadiosity() { return mRadiosity; }
    PovRender_cls& GetRender() { return mRender; }
    PovPhotons_cls& GetPhotons() { return mPhotons; }
    PovFormat_cls& GetFormat() { return mFormat; }
    PovAdvanced_cls& GetAdvanced() { return mAdvanced; }
    const PovRadiosity_cls& GetRadiosity() const { return mRadiosity; }
    const PovPhotons_cls& GetPhotons() const { return mPhotons; }
    const PovFormat_cls& GetFormat() const { return mFormat; }
    const PovAdvanced_cls& GetAdvanced() const { return mAdvanced; }

    ConfItemSTR_cls mPathPovRay;
    ConfItemSTR_cls mPathPovWork;
    ConfItemSTR_cls mFilePovSnap;  ///< formatted with the frame number, as mFilePovAnim
    ConfItemSTR_cls mFilePovAnim;
    ConfItemBOOL_cls mTweaks;              ///< scenes take in the user's own "Tweaks.inc"
    ConfItemBOOL_cls mUseCommonSceneFile;  ///< what all frames share goes to "CommonScene.pov"

    // Names and option files

    /// The working directory as an absolute path without "/" at its end; the current one when none is set.
    wxString GetWorkFolder() const;
    /// Path of a frame's files, without extension.
    wxString GetFileStr(int frame, Series series) const;
    /// Path of the picture that belongs to such a name.
    wxString GetPictureStr(const wxString& name) const { return name + mFormat.GetFormat().extension; }
    /// Text of the option file. Of an animation no picture waits for a key.
    void GetStrPovIni(wxString* text, const wxString& name, Series series) const;
    /// Writes it to the name with ".ini". Empty, or what went wrong.
    wxString OutputPovRayIni(const wxString& name, Series series) const;
    /// The command for the shell. Names that the shell or the renderer would misread are quoted, or given
    /// relative to the working directory, in which the renderer starts.
    wxString GetPovRayCommand(const wxString& name) const;

    // Checks

    static bool IsThere(const wxString& path);
    /// Asks whether to go on where a path is missing; true when none is.
    bool ConfirmPaths() const;
    /// Empty, or why nothing can be written or rendered with these settings, whatever the user says.
    wxString FindObstacle() const;

    // Renders

    /// Writes the scene of a frame to the name with ".pov". Empty, or what went wrong. Set by the core, which
    /// has the data; what all frames share is written with `first`.
    /// The share of a scene that is written, 0 to 1; false cancels it.
    using Progress = std::function<bool(double share)>;
    using SceneWriter =
        std::function<wxString(int frame, const wxString& name, bool first, const Progress& progress)>;
    void SetSceneWriter(SceneWriter writer) { mSceneWriter = std::move(writer); }
    /// Told of every frame that is done, and with a frame of -1 whenever renders start or stop.
    using Observer = std::function<void(const PovRenderPool_cls::Outcome&)>;
    void SetObserver(Observer observer) { mObserver = std::move(observer); }
    void SetProgress(Progress progress) { mProgress = std::move(progress); }
    /// Run by the shell after each renderer; not kept in projects.
    void SetPostSceneCommand(const wxString& command) { mPostSceneCommand = command; }
    const wxString& GetPostSceneCommand() const { return mPostSceneCommand; }

    /// Scene and option file of a frame. Empty, or what went wrong.
    wxString Export(int frame, Series series, bool first = true) const;
    /// Starts the renderer for files that are there. False when one is at work.
    bool RenderByPovSnap(int frame);
    /// Renders frames one after another, `renderers` at a time, as ProcessRenderPovAnim() is called.
    void StartRenderPovAnim(const std::vector<int>& frames, int renderers = 1);
    /// Takes in what has ended, and writes and starts the next frame if there is a place: one call blocks for
    /// the writing of one frame. False when there is nothing left to do.
    bool ProcessRenderPovAnim();
    /// Ends the renderers; pictures that are done stay.
    void AbortRenderPovAnim();
    bool IsRendering() const { return mNext < mFrames.size() || !mPool.IsIdle(); }
    /// True while the next call of ProcessRenderPovAnim() would have nothing to do.
    bool IsWaiting() const { return mNext >= mFrames.size() || !mPool.HasFreePlace(); }
    int GetDone() const { return mDone; }
    int GetTotal() const { return static_cast<int>(mFrames.size()); }

  private:
    wxString NameInIni(const wxString& path) const;
    PovRenderPool_cls::Job MakeJob(int frame, Series series) const;
    void Tell(const PovRenderPool_cls::Outcome& outcome) const;

    ConfItemList_cls mPathItems;
    ConfItemList_cls mItems;
    PovRadiosity_cls mRadiosity;
    PovRender_cls mRender;
    PovPhotons_cls mPhotons;
    PovFormat_cls mFormat;
    PovAdvanced_cls mAdvanced;

    SceneWriter mSceneWriter;
    Observer mObserver;
    Progress mProgress;
    wxString mPostSceneCommand;
    std::vector<int> mFrames;
    size_t mNext = 0;
    int mDone = 0;
    Series mSeries = Series::Snap;
    PovRenderPool_cls mPool{*this};
};
