#pragma once

#include <array>
#include <memory>

#include "CONFITEM/clsConfItemList.h"
#include "timeline/clsParamGroup.h"

class LineStream_cls;

/// One light: a direction from infinitely far, or a position; its three colours; whether it shines.
/// Direction, position and colours are key-framed. Owned by LightSRCCtrl_cls. Threads: GUI thread.
/// Units: the data's own lengths; colours 0 to 1.
class LightSRC_cls {
  public:
    enum Type : unsigned int { kFromDirection = 0, kFromPosition = 1 };
    enum Group : size_t { kDirection, kPosition, kAmbient, kDiffuse, kSpecular, kGroupCount };

    LightSRC_cls(int number, const std::shared_ptr<const ParamHost_cls>& host);
    LightSRC_cls(const LightSRC_cls&) = delete;
    LightSRC_cls& operator=(const LightSRC_cls&) = delete;

    /// White light from the camera's first side; only light 0 shines.
    void SetToDefault();

    ParamGroup_cls& GetGroup(Group which) { return *mGroups[which]; }
    const ParamGroup_cls& GetGroup(Group which) const { return *mGroups[which]; }
    std::array<double, 3> GetVector(Group which, double t) const { return mGroups[which]->GetVector(t); }
    /// The timeline shows the groups that have an effect.
    void UpdateShownTracks();

    wxString Serialize() const;
    /// Takes a settings line or one group; false, and nothing read, for any other line.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);
    const ConfItemList_cls& GetItems() const { return mItems; }

    ConfItemBOOL_cls mVisible;
    ConfItemUINT_cls mType;

  private:
    const int mNumber;
    const wxString mPrefix;
    ConfItemList_cls mItems;
    std::array<std::unique_ptr<ParamGroup_cls>, kGroupCount> mGroups;
};
