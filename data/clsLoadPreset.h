#pragma once

#include <wx/string.h>

#include <array>
#include <optional>
#include <vector>

#include "data/clsDataLoader.h"

/// Everything that files of one kind need of the loader settings. A value; no files, no widgets.
/// Transforms are not part of it: they are the user's wishes, not the file's form.
struct LoadPreset_cls {
    /// A box with periodic boundaries. Lengths of its edges along the axes, in the data's own units.
    struct Box {
        bool space = true;  ///< periodic in x, y and z, otherwise in x and y only
        std::array<float, 3> length{};
    };

    wxString mName;
    bool mText = false;
    std::vector<int> mHead;
    std::vector<int> mBody;
    unsigned int mInterpolateType = DataLoader_cls::kLinear;
    unsigned int mVariableNumber = DataLoader_cls::kConstant;
    std::optional<Box> mBox{};

    void ApplyTo(DataLoader_cls& loader) const;
    /// The settings describe files as this does.
    bool IsLayoutOf(const DataLoader_cls& loader) const;
    /// The layouts that are known without looking at a file.
    static const std::vector<LoadPreset_cls>& GetKnown();

    /// A header list without items: lists of settings cannot be empty, and no reader knows this code.
    static constexpr int kNoHeader = -1;
};
