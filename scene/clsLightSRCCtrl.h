#pragma once

#include <array>
#include <memory>

#include "scene/clsLightSRC.h"

/// The lights of the scene: as many as OpenGL promises, each on or off. Owned by the application core.
/// Threads: GUI thread.
class LightSRCCtrl_cls {
  public:
    static constexpr int kLights = 8;

    explicit LightSRCCtrl_cls(const std::shared_ptr<const ParamHost_cls>& host = {});

    void SetToDefault();
    LightSRC_cls& GetLight(int number) { return *mLights.at(static_cast<size_t>(number)); }
    const LightSRC_cls& GetLight(int number) const { return *mLights.at(static_cast<size_t>(number)); }
    int GetVisibleNumber() const;
    void UpdateShownTracks();

    wxString Serialize() const;
    /// Takes the blocks from the first marker to the end marker, or a part of one; false, and nothing read,
    /// for any other line.
    bool ReadStrLine(LineStream_cls& stream, const wxString& line);

  private:
    bool ReadPart(LineStream_cls& stream, const wxString& line);

    std::array<std::unique_ptr<LightSRC_cls>, kLights> mLights;
};
