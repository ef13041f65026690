#include "pov/clsPovRayCtrl.h"

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
