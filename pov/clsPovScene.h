#pragma once

#include <wx/string.h>

#include <memory>
#include <set>

#include "pov/clsPovSceneFile.h"
#include "scene/clsScenePass.h"

class CameraPath_cls;
class PovRayCtrl_cls;

/// Writes views of the scene as text for the ray tracer, such that it shows what the view shows: the same
/// camera, background, lights and particles, and colours that are the view's numbers.
///
/// Values that have keys are written evaluated, frame by frame; besides, the camera's and the lights' values
/// are declared under their names for the user's own additions: as expressions of "t0", the normalised time,
/// bracketed by a language version in which a straight stretch needs no ";", or evaluated where a value moves
/// in steps, which the expressions leave out.
/// Threads: GUI thread. Made for one export; what it links outlives it.
/// Failure: what went wrong is told in words, empty for nothing.
class PovScene_cls {
  public:
    struct Links {
        ScenePass_cls::Links view;
        const PovRayCtrl_cls& control;
        const CameraPath_cls& camera;
        std::set<wxString>& toldFaults;  ///< of billboard textures; each is told once
    };
    static constexpr const char* kCommonName = "CommonScene.pov";

    explicit PovScene_cls(Links links) : mLinks(std::move(links)) {}

    /// Begins the scene of a view, for the name with ".pov", and, with `first`, writes what all frames share.
    /// `frame` is for the reader. Null and the error when it cannot be begun.
    std::unique_ptr<PovSceneFile_cls> Begin(const SceneView_cls& view, int frame, const wxString& name,
                                            bool first, wxString* error) const;

  private:
    wxString GetCommonText(std::string* text) const;
    wxString GetExpressions(bool inSteps, double time) const;
    void WriteLights(PovText_cls& text, const SceneView_cls& view, const PovSpace_cls& space) const;
    PovTexture_cls::Lighting GetLighting(double time) const;
    /// Writes the billboard texture of an attribute into the folder of the scene: the renderer may read
    /// nothing else.
    PovTexture_cls::Sprite MakeSprite(int attribute, const wxString& folder, wxString* error) const;
    PovParticleText_cls::Sprites MakeSprites(const PovCloud_cls& cloud, const wxString& folder,
                                             wxString* error) const;
    PovCloud_cls Gather(const SceneView_cls& view, const PovCamera_cls& camera,
                        const PovSpace_cls& space) const;

    Links mLinks;
};
