#pragma once

#include <memory>
#include <vector>

#include "timeline/clsTimeCtrl.h"
#include "timeline/clsUndoManager.h"

/// A timeline of 100 frames with a few groups: "Camera" holds the animated "Position" (x, y, z) and the
/// constant "Angle"; "Light" stands beside it. Clears the undo list.
struct TimelineScene {
    TimelineScene() {
        camera.AddChild(position);
        camera.AddChild(angle);
        for (int i = 0; i < 3; ++i) {
            Parameters_cls& parameter = position.GetParameter(i);
            parameter.InitSet(i);
            parameter.SetKey(0.2, KeyFrame_cls::kHermiteAuto, 10.0 * i);
            parameter.SetKey(0.6, KeyFrame_cls::kLinear, 5.0);
        }
        GCUndoList.Clear();
    }
    ~TimelineScene() { GCUndoList.Clear(); }
    TimelineScene(const TimelineScene&) = delete;
    TimelineScene& operator=(const TimelineScene&) = delete;

    TimeCtrl_cls time;
    ParamGroup_cls camera{"Camera"};
    ParamGroup_cls position{"Position", 3, {"x", "y", "z"}, "Position", true};
    ParamGroup_cls angle{"Angle", 1, {"Angle"}, "Angle", false};
    std::unique_ptr<ParamGroup_cls> light =
        std::make_unique<ParamGroup_cls>("Light", 3, std::vector<wxString>{"R", "G", "B"}, "Light", true);
    std::vector<ParamGroup_cls*> trees{&camera, light.get(), &time.GetRemapGroup()};

    wxString GetText() const { return camera.Serialize() + light->Serialize(); }
    /// Key times of a component in frames.
    std::vector<double> GetFrames(int component = 0) const {
        std::vector<double> frames;
        for (const KeyFrame_cls& key : position.GetParameter(component).GetKeys())
            frames.push_back(key.mTime * 100.0);
        return frames;
    }
};
