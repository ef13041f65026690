#include "pov/clsPovRadiosity.h"

#include <algorithm>

void PovRadiosity_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mType, "PovRadiosityType=", "0");
    mItems.Add(&mReuse, "PovRadiosityReuse=", "0");
    mItems.Add(&mPathDir, "PovRadiosityPathDir=", "");
    mPathDir.SetText("");
    mItems.Add(&mCount, "PovRadiosityCount=", "35");
    mItems.Add(&mError, "PovRadiosityError=", "1.8");
    mItems.Add(&mMinimumReuse, "PovRadiosityMinimumReuse=", "0.015");
    mItems.Add(&mRecursionLimit, "PovRadiosityRecursionLimit=", "3");
    mItems.Add(&mNearestCount, "PovRadiosityNearestCount=", "5");
    mItems.Add(&mPretraceStart, "PovRadiosityTraceStrat=", "0.08");  // projects carry this spelling
    mItems.Add(&mPretraceEnd, "PovRadiosityTraceEnd=", "0.04");
    mItems.Add(&mZeroAmbient, "PovRadiosityZeroAmbient=", "1");
    mItems.Add(&mMedia, "PovRadiosityMedia=", "0");
    mItems.Add(&mNormal, "PovRadiosityNormal=", "1");
    mItems.Add(&mHighReproduce, "PovRadHighReproduce=", "0");
}

bool PovRadiosity_cls::IsRadiosityFormatOK() const {
    const wxString& path = mPathDir.GetValueText();
    return !path.empty() && !path.EndsWith("/") &&
           std::none_of(path.begin(), path.end(), [](wxUniChar c) { return c == '"' || c < ' '; });
}

wxString PovRadiosity_cls::GetStrPovIni(const wxString& relativeTo) const {
    if (!IsOn()) return {};
    wxString path = mPathDir.GetValueText();
    if (!relativeTo.empty()) path.Replace(relativeTo, "./");
    wxString text;
    if (mReuse.mValue != kNoReuse && IsRadiosityFormatOK()) {
        text += "Radiosity_File_Name=\"" + path + "\"\n";
        if (mReuse.mValue == kToFile) text += "Radiosity_To_File=on\n";
        if (mReuse.mValue == kFromFile) text += "Radiosity_From_File=on\n";
    }
    text += "Radiosity_Vain_Pretrace=off\n";
    return text + "High_Reproducibility=" + (mHighReproduce.mValue != 0 ? "on" : "off") + "\n";
}

wxString PovRadiosity_cls::GetStrScene() const {
    if (!IsOn()) return {};
    const auto line = [](const char* name, const wxString& value) {
        return wxString("    ") + name + " " + value + "\n";
    };
    // What the renderer would refuse is brought to the nearest that it takes.
    const auto whole = [](int value, int high) { return wxString::Format("%d", std::clamp(value, 1, high)); };
    const auto real = [](float value, float low, float high) {
        return wxString(ConfFloat_cls::Format(value >= low ? std::min(value, high) : low));
    };
    return "  radiosity {\n" + line("count", whole(mCount.mValue, 1600)) +
           line("error_bound", real(mError.mValue, 0.001F, 100.0F)) +
           line("minimum_reuse", real(mMinimumReuse.mValue, 0.0001F, 1.0F)) +
           line("recursion_limit", whole(mRecursionLimit.mValue, 20)) +
           line("nearest_count", whole(mNearestCount.mValue, 20)) +
           line("pretrace_start", real(mPretraceStart.mValue, 0.0001F, 1.0F)) +
           line("pretrace_end", real(mPretraceEnd.mValue, 0.0001F, 1.0F)) +
           line("media", mMedia.mValue ? "on" : "off") + line("normal", mNormal.mValue ? "on" : "off") +
           "  }\n";
}
