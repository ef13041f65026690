#pragma once

#include <optional>

#include "data/clsFileStart.h"
#include "data/clsLoadPreset.h"

/// What a chosen file is, by its first bytes and its size, and the settings that read it.
/// Failure: a file that is like nothing known is kUnknown; the words then say what can be said.
struct FileKind_cls {
    enum Kind { kUnknown, kDefaultRecord, kTipsy, kLammpsDump, kXyz, kColumns };

    static FileKind_cls Recognise(const FileStart_cls& start);

    Kind mKind = kUnknown;
    wxString mWords;                        ///< for the user, e.g. "LAMMPS dump, 4000 atoms: id type x y z"
    std::optional<LoadPreset_cls> mPreset;  ///< none: the user must describe the layout
    bool mCannotBeRead = false;             ///< known, but no layout describes it; the words say why
    bool mHasManySteps = false;             ///< LAMMPS dumps and XYZ: more than one time step in the file
    double mStepByte = 0.0;                 ///< bytes of one step, about, where there are many
};
