#include "scene/clsLightSRC.h"

#include <algorithm>

namespace {

struct GroupDefault_cls {
    const char* name;
    std::array<const char*, 3> components;
    std::array<double, 3> values;
};

constexpr std::array<GroupDefault_cls, LightSRC_cls::kGroupCount> kGroups = {{
    {"Direction", {"X", "Y", "Z"}, {0.0, 0.0, 1.0}},
    {"Position", {"X", "Y", "Z"}, {0.0, 0.0, 10.0}},
    {"Ambient", {"R", "G", "B"}, {0.0, 0.0, 0.0}},
    {"Diffuse", {"R", "G", "B"}, {1.0, 1.0, 1.0}},
    {"Specular", {"R", "G", "B"}, {1.0, 1.0, 1.0}},
}};

}  // namespace

LightSRC_cls::LightSRC_cls(int number, const std::shared_ptr<const ParamHost_cls>& host)
    : mNumber(number), mPrefix(wxString::Format("Light%d", number)) {
    for (size_t i = 0; i < kGroupCount; ++i) {
        const wxString id = mPrefix + kGroups[i].name;
        std::vector<wxString> names;
        for (const char* component : kGroups[i].components) names.push_back(id + component);
        mGroups[i] =
            std::make_unique<ParamGroup_cls>(mPrefix + " " + kGroups[i].name, 3, names, id, false, host);
    }
    SetToDefault();
}

void LightSRC_cls::SetToDefault() {
    mItems.Clear();
    mItems.Add(&mVisible, mPrefix + "Visible=", mNumber == 0 ? "1" : "0");
    mItems.Add(&mType, mPrefix + "Type=", "0");
    for (size_t i = 0; i < kGroupCount; ++i) {
        mGroups[i]->SetTimeDependent(false);
        for (int c = 0; c < 3; ++c)
            mGroups[i]->GetParameter(c).InitSet(kGroups[i].values[static_cast<size_t>(c)]);
    }
    UpdateShownTracks();
}

void LightSRC_cls::UpdateShownTracks() {
    const bool directed = mType.mValue == kFromDirection;
    for (size_t i = 0; i < kGroupCount; ++i) {
        const bool placed = i == kDirection ? directed : i != kPosition || !directed;
        mGroups[i]->SetShown(mVisible.mValue && placed);
    }
}

wxString LightSRC_cls::Serialize() const {
    wxString text = mItems.SerializeAll();
    for (const auto& group : mGroups) text += group->Serialize();
    return text;
}

bool LightSRC_cls::ReadStrLine(LineStream_cls& stream, const wxString& line) {
    // All keys and group names hold the prefix; most lines of a project belong to others.
    if (line.find(mPrefix) == wxString::npos) return false;
    return mItems.ReadStrLineAll(line) || std::any_of(mGroups.begin(), mGroups.end(), [&](const auto& group) {
               return group->ReadStrLine(stream, line);
           });
}
