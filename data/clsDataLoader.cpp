#include "data/clsDataLoader.h"

#include "seam/clsUserMessage.h"

DataLoader_cls::DataLoader_cls() : GrammerBase_cls("DataLoad") {
    mItems.Add(&mLastOpenedFile, "LastOpenedFile=", "NONE");
    mItems.Add(&mInterpolateType, "InterpolateType=", "1");
    mItems.Add(&mVariableNumber, "VariableNumber=", "0");
    mItems.Add(&mTranslate, "LoaderTranslate=", "0 0 0");
    mItems.Add(&mScale, "LoaderScale=", "1");
    mItems.Add(&mScaleValue1, "LoaderScaleValue1=", "1");
    mItems.Add(&mLogarithm, "LoaderLogarithm=", "0");
}

void DataLoader_cls::SetToDefault() {
    mLogarithm.mValue = 0;
    mTranslate.mValue.fill(0.0F);
    mScale.mValue = 1.0F;
    mScaleValue1.mValue = 1.0F;
}

void DataLoader_cls::OpenDataFile(const wxString& path) {
    if (mOpenCommand) mOpenCommand(path);
    mLastOpenedFile.SetText(path);
}

bool DataLoader_cls::CheckGrammer() const {
    if (IsItemExistBody(kXYZ)) return true;
    UserMessage_cls::Tell("Grammer Error", "No XYZ data.");
    return false;
}

bool DataLoader_cls::IsTranslated() const {
    return mTranslate.mValue[0] != 0.0F || mTranslate.mValue[1] != 0.0F || mTranslate.mValue[2] != 0.0F;
}
