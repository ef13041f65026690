#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "pov/clsPovAdvanced.h"
#include "pov/clsPovFormat.h"
#include "pov/clsPovPhotons.h"
#include "pov/clsPovRadiosity.h"
#include "pov/clsPovRender.h"
#include "pov/clsPovRenderPool.h"

class PovSceneFile_cls;

/// Settings of the external ray tracer (where it is, where it works, how files are named, its options), and
/// the renders that run. One object, owned by the application core. The two paths belong to the machine more
/// than to the work, so the configuration file holds them too.
/// All files of a picture are written on the GUI thread before its renderer starts, in steps between which
/// windows live.
/// Threads: GUI thread.
/// Failure: a frame that cannot be written or rendered is told by the observer of outcomes; the others go on.
class PovRayCtrl_cls {
  public:
    /// Whose file-name pattern holds.
    enum class Series { Snap, Anim };

    PovRayCtrl_cls();
    ~PovRayCtrl_cls();
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

    /// Begins to write the scene of a frame to the name with ".pov"; null and the error when that fails. Set
    /// by the core, which has the data; what all frames share is written with `first`.
    using SceneWriter = std::function<std::unique_ptr<PovSceneFile_cls>(int frame, const wxString& name,
                                                                        bool first, wxString* error)>;
    void SetSceneWriter(SceneWriter writer) { mSceneWriter = std::move(writer); }
    /// The share of a scene that is written, 0 to 1; false cancels Export().
    using Progress = std::function<bool(double share)>;
    /// Told of every frame that is done, and with a frame of -1 whenever renders start or stop.
    using Observer = std::function<void(const PovRenderPool_cls::Outcome&)>;
    void SetObserver(Observer observer) { mObserver = std::move(observer); }
    void SetProgress(Progress progress) { mProgress = std::move(progress); }
    /// Run by the shell after each renderer; not kept in projects.
    void SetPostSceneCommand(const wxString& command) { mPostSceneCommand = command; }
    const wxString& GetPostSceneCommand() const { return mPostSceneCommand; }

    /// Scene and option file of a frame, written at once. Empty, or what went wrong.
    wxString Export(int frame, Series series, bool first = true);
    /// Starts the renderer for files that are there. False when something is at work.
    bool RenderByPovSnap(int frame);
    /// Writes a single frame as ProcessRenderPovAnim() is called, and then renders it if that is wanted.
    void StartPovSnap(int frame, bool isRendered);
    /// Writes and renders frames one after another, `renderers` at a time, as ProcessRenderPovAnim() is
    /// called.
    void StartRenderPovAnim(const std::vector<int>& frames, int renderers = 1);
    /// Takes in what has ended, and goes on with the next frame's files and renderer if there is a place. One
    /// call writes for some tens of milliseconds. False when there is nothing left to do.
    bool ProcessRenderPovAnim();
    /// Ends the renderers and what is written; pictures that are done stay.
    void AbortRenderPovAnim();
    bool IsRendering() const { return IsWriting() || mNext < mFrames.size() || !mPool.IsIdle(); }
    /// True while files are to be written, so that ProcessRenderPovAnim() has something to do at once.
    bool IsBusy() const { return IsWriting() || (mNext < mFrames.size() && mPool.HasFreePlace()); }
    int GetDone() const { return mDone; }
    int GetTotal() const { return static_cast<int>(mFrames.size()); }

  private:
    wxString NameInIni(const wxString& path) const;
    PovRenderPool_cls::Job MakeJob(int frame, Series series) const;
    void Tell(const PovRenderPool_cls::Outcome& outcome) const;
    void Start(const std::vector<int>& frames, Series series, bool isRendered, int renderers);
    bool IsWriting() const { return mScene != nullptr; }
    /// Empty, or why the frame's files cannot be written.
    wxString BeginFrame(int frame, Series series, bool first);
    /// The last of the frame's files. Empty, or what went wrong with any of them.
    wxString EndFrame(int frame, Series series);
    void ProcessWriting();
    void TakeWritten(const wxString& error);

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
    bool mIsRendered = true;
    std::unique_ptr<PovSceneFile_cls> mScene;  ///< what is being written
    int mFrame = 0;                            ///< the frame whose files are written
    PovRenderPool_cls mPool{*this};
};
