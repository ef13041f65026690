#pragma once

#include <wx/string.h>

#include <optional>
#include <vector>

/// Frames to do: first, last and step.
struct FrameSelection_cls {
    int mFirst = 0;
    int mLast = 0;
    int mStep = 1;

    /// "A", "A:B" or "A:B:STEP".
    static std::optional<FrameSelection_cls> Parse(const wxString& text);
};

/// What the command line asks for. Plain data; nothing is opened here.
struct CommandLine_cls {
    enum class Action { Window, Info, Render, Export, Save, Pov, Help, Version };

    Action mAction = Action::Window;
    wxString mFile;             ///< a project or the first file of a series; empty when none is given
    wxString mPattern;          ///< of the pictures of --render, or of the files of --export
    wxString mProject;          ///< of --save
    wxString mFolder;           ///< of --pov
    bool mRunRenderer = false;  ///< --pov: render what is written
    bool mPlay = false;         ///< in the window: play when the data are there
    std::optional<FrameSelection_cls> mFrames;
    std::optional<double> mAt;  ///< --export: this data position instead of frames
    wxString mMovie;            ///< --render: also this film; empty: none
    std::optional<int> mRate;   ///< --movie: frames a second
    bool mResume = false;       ///< --render: keep pictures that are complete
    int mWidth = 1280;
    int mHeight = 720;
    bool mIsSizeGiven = false;
    std::vector<wxString> mSettings;  ///< KEY=VALUE lines in order
    std::optional<wxString> mConfig;  ///< the configuration file; empty string: none
    bool mQuiet = false;
    bool mVerbose = false;

    /// Null with a line for the user when the usage is wrong.
    static std::optional<CommandLine_cls> Parse(int argc, char** argv, wxString* error);
    static const char* HelpText();
};
