#include "scene/clsLightSRCCtrl.h"

#include <algorithm>

#include "seam/clsLineStream.h"

namespace {

constexpr const char* kLightMarker = "---LightSRC ";
constexpr const char* kEndMarker = "---AllLightSourceEnd";

}  // namespace

LightSRCCtrl_cls::LightSRCCtrl_cls(const std::shared_ptr<const ParamHost_cls>& host) {
    for (int i = 0; i < kLights; ++i) {
        mLights[static_cast<size_t>(i)] = std::make_unique<LightSRC_cls>(i, host);
    }
}

void LightSRCCtrl_cls::SetToDefault() {
    for (const auto& light : mLights) light->SetToDefault();
}

int LightSRCCtrl_cls::GetVisibleNumber() const {
    return static_cast<int>(std::count_if(mLights.begin(), mLights.end(),
                                          [](const auto& light) { return light->mVisible.mValue; }));
}

void LightSRCCtrl_cls::UpdateShownTracks() {
    for (const auto& light : mLights) light->UpdateShownTracks();
}

wxString LightSRCCtrl_cls::Serialize() const {
    wxString text;
    for (int i = 0; i < kLights; ++i) {
        text += kLightMarker + wxString::Format("%d\n", i) + GetLight(i).Serialize();
    }
    return text + kEndMarker + "\n";
}

bool LightSRCCtrl_cls::ReadPart(LineStream_cls& stream, const wxString& line) {
    return std::any_of(mLights.begin(), mLights.end(),
                       [&](const auto& light) { return light->ReadStrLine(stream, line); });
}

bool LightSRCCtrl_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    if (line == kEndMarker) return true;
    // Keys and groups bear their light's number, so the one in the marker is for the reader's eye only.
    if (!line.StartsWith(kLightMarker)) return ReadPart(stream, line);
    wxString next;
    while (stream.ReadLine(next) && next != kEndMarker) {
        if (next.StartsWith(kLightMarker) || ReadPart(stream, next)) continue;
        stream.PutBack();  // the end marker is missing
        break;
    }
    return true;
}
