#include "render/clsPanelSettings.h"

void PanelSettings_cls::SetToDefault() {
    const wxString prefix = wxString::Format("Panel%u", mPanel);
    mItems.Clear();
    mItems.Add(&mShowMessage, prefix + "ShowMessage=", mPanel == kOffscreenPanel ? "0" : "1");
    mItems.Add(&mShowItems, prefix + "ShowItems=", "1");
    mItems.Add(&mShowGrid, prefix + "ShowGrid=", "1");
    mItems.Add(&mShowData, prefix + "ShowData=", "1");
    mItems.Add(&mPersAngle, prefix + "GLPersAngle=", "35");
    mItems.Add(&mOrthoScale, prefix + "GLOrthoScale=", "1");
    mItems.Add(&mShowOtherCam, prefix + "ShowOtherCam=", "0");
    mItems.Add(&mDrawItemByXOR, prefix + "DrawItemByXOR=", "0");
    mItems.Add(&mGeometry, prefix + "GLGeometry=", "0");
    mItems.Add(&mDisplayMode, prefix + "DisplayMode=", "0");
    mItems.Add(&mPivotMode, prefix + "PivotMode=", "0");
    mItems.Add(&mPathIndex, prefix + "GLPathIndex=", "0");
    mItems.Add(&mGridType, prefix + "GridType=", "0");
    mItems.Add(&mGridAntialias, prefix + "GridAntialias=", "0");
    mItems.Add(&mGridShowTag, prefix + "GridShowTag=", "0");
    mItems.Add(&mDepthMin, prefix + "GLDepthMin=", "0.03");
    mItems.Add(&mDepthMax, prefix + "GLDepthMax=", "5000");
}
