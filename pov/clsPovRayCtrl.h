#pragma once

#include <vector>

#include "pov/clsPovAdvanced.h"
#include "pov/clsPovFormat.h"
#include "pov/clsPovPhotons.h"
#include "pov/clsPovRadiosity.h"
#include "pov/clsPovRender.h"

/// Settings of the external ray tracer: where it is, where it works, how files are named, and its options.
/// One object, owned by the application core. The two paths belong to the machine more than to the work, so
/// the configuration file holds them too. Threads: GUI thread.
class PovRayCtrl_cls {
  public:
    PovRayCtrl_cls() { SetToDefault(); }
    PovRayCtrl_cls(const PovRayCtrl_cls&) = delete;
    PovRayCtrl_cls& operator=(const PovRayCtrl_cls&) = delete;

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

    ConfItemSTR_cls mPathPovRay;
    ConfItemSTR_cls mPathPovWork;
    ConfItemSTR_cls mFilePovSnap;  ///< formatted with the frame number, as mFilePovAnim
    ConfItemSTR_cls mFilePovAnim;
    ConfItemBOOL_cls mTweaks;
    ConfItemBOOL_cls mUseCommonSceneFile;  ///< what all frames share goes to "CommonScene.pov"

  private:
    ConfItemList_cls mPathItems;
    ConfItemList_cls mItems;
    PovRadiosity_cls mRadiosity;
    PovRender_cls mRender;
    PovPhotons_cls mPhotons;
    PovFormat_cls mFormat;
    PovAdvanced_cls mAdvanced;
};
