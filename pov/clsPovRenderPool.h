#pragma once

#include <wx/string.h>

#include <atomic>
#include <filesystem>
#include <memory>
#include <vector>

#include "pov/clsThreadPovRay.h"

/// Renderers at work, some at a time, each on processors of its own, so that together they never use more
/// than there are. A renderer that fails or is ended leaves no picture: those that are there are whole.
/// Owned by PovRayCtrl_cls. Threads: GUI thread; each renderer has a worker.
class PovRenderPool_cls {
  public:
    /// What is to be rendered, and where the result is.
    struct Job {
        int frame = 0;
        wxString stem;              ///< path of the scene without extension
        wxString picture;           ///< path of the picture
        wxString command;           ///< for the shell
        wxString postSceneCommand;  ///< run after the renderer; empty for none
    };
    struct Outcome {
        int frame = 0;
        wxString picture;
        /// Empty, or what went wrong, with the renderer's own last words.
        wxString error;
    };

    explicit PovRenderPool_cls(const PovRayCtrl_cls& control) : mControl(control) {}
    ~PovRenderPool_cls() { AbortAll(); }
    PovRenderPool_cls(const PovRenderPool_cls&) = delete;
    PovRenderPool_cls& operator=(const PovRenderPool_cls&) = delete;

    /// How many may run at a time, at most one for each processor. Only while none runs.
    void SetPlaces(int places);
    bool HasFreePlace() const;
    bool IsIdle() const;
    /// Starts a renderer in a free place.
    void Start(const Job& job);
    /// Those that ended since the last call.
    std::vector<Outcome> Collect();
    /// Ends all renderers and waits for that; their outcomes are dropped.
    void AbortAll();

  private:
    struct Place {
        Job job;
        std::filesystem::file_time_type started;
        std::atomic<bool> done{false};
        std::unique_ptr<ThreadPovRay_cls> thread;  ///< null while the place is free; goes before the flag
    };
    static wxString Judge(const Place& place);

    const PovRayCtrl_cls& mControl;
    std::vector<std::unique_ptr<Place>> mPlaces;
};
