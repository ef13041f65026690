#include "pov/clsPovFormat.h"

#include <algorithm>
#include <array>

#include "output/clsPicture.h"

namespace {

// The third row has no type and no bit depth, and the fourth the depth of the third: projects store the row's
// number, and option files stay as they have always been.
constexpr std::array<PovFormat_cls::FormatRow, 8> kFormats = {{
    {"PNG(3x8bit)", "N", "", ".png"},
    {"PNG(3x12bit)", "N", "Bits_Per_Color=12", ".png"},
    {"PNG(3x16bit)", "", "", ""},
    {"SYS(BMP/PICT)", "S", "Bits_Per_Color=16", ""},
    {"PPM", "P", "", ".ppm"},
    {"JPEG", "J", "", ".jpg"},
    {"EXR", "E", "", ".exr"},
    {"HDR", "H", "", ".hdr"},
}};

wxString OnOff(bool on) {
    return on ? "on\n" : "off\n";
}

wxString Number(int value) {
    return wxString::Format("%d\n", value);
}

wxString Number(float value) {
    return wxString(ConfFloat_cls::Format(value)) + "\n";
}

}  // namespace

void PovFormat_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mOutputFormat, "PovOutputFomat=", "0");  // projects carry this spelling
    mItems.Add(&mCameraWidth, "PovCameraWidth=", "640");
    mItems.Add(&mCameraHeight, "PovCameraHeight=", "480");
    mItems.Add(&mAntialias, "PovAntialias=", "0");
    mItems.Add(&mDisplay, "PovDisplay=", "1");
    mItems.Add(&mPauseWhenDone, "PovPauseWhenDone=", "0");
    mItems.Add(&mJitter, "PovJitter=", "0");
    mItems.Add(&mOutputAlpha, "PovOutputAlpha=", "0");
    mItems.Add(&mAntiAliasThreshold, "PovAntiAliasThreshold=", "0.15");
    mItems.Add(&mAntiAliasDepth, "PovAntiAliasDepth=", "3");
    mItems.Add(&mJitterAmount, "PovJitterAmount=", "1");
    mItems.Add(&mFastColoring, "PovFastColoring=", "1");
    mItems.Add(&mFileAbsolute, "PovFileAbsolute=", "0");
    mItems.Add(&mBoundingMethod, "PovBoundingMethod=", "1");
}

std::span<const PovFormat_cls::FormatRow> PovFormat_cls::GetFormats() {
    return kFormats;
}

const PovFormat_cls::FormatRow& PovFormat_cls::GetFormat() const {
    return kFormats[mOutputFormat.mValue < kFormats.size() ? mOutputFormat.mValue : 0];
}

wxSize PovFormat_cls::GetSize() const {
    return {std::clamp(mCameraWidth.mValue, 1, Picture_cls::kLargestSide),
            std::clamp(mCameraHeight.mValue, 1, Picture_cls::kLargestSide)};
}

wxString PovFormat_cls::GetStrPovFormat(const Picture& picture) const {
    const FormatRow& format = GetFormat();
    wxString text = "width=" + Number(GetSize().x) + "height=" + Number(GetSize().y);
    text += "DISPLAY=" + OnOff(mDisplay.mValue);
    text += "Pause_When_Done=" + OnOff(mPauseWhenDone.mValue && picture.mayPause);
    text += "Version=3.7\n";
    // Colours are the numbers that the view shows: nothing on the way to the file bends them.
    text += "Display_Gamma=1\nFile_Gamma=1\nRender_Block_Size=48\nRender_Pattern=3\n";
    if (mBoundingMethod.mValue == 1) text += "Bounding_Method=2\n";
    text += "Antialias=" + Number(mAntialias.mValue ? 1 : 0);
    if (mAntialias.mValue) {
        text += "Antialias_Threshold=" + Number(mAntiAliasThreshold.mValue);
        text += "Antialias_Depth=" + Number(mAntiAliasDepth.mValue);
    }
    text += "Jitter=" + Number(mJitter.mValue ? 1 : 0);
    if (mJitter.mValue) text += "Jitter_Amount=" + Number(mJitterAmount.mValue);
    if (*format.extraLine) text += wxString(format.extraLine) + "\n";
    text += wxString("Output_File_Type=") + format.type + "\n";
    if (mOutputFormat.mValue == kJpeg) text += "Compression=95\n";
    text += "Output_Alpha=" + Number(mOutputAlpha.mValue ? 1 : 0);
    text += "Input_File_Name=\"" + picture.scene + ".pov\"\n";
    return text + "Output_File_Name=\"" + picture.scene + format.extension + "\"\n";
}
