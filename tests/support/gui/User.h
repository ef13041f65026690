#pragma once

#include <wx/app.h>
#include <wx/gdicmn.h>
#include <wx/window.h>

#include <cstdint>
#include <exception>
#include <functional>
#include <future>
#include <string>
#include <type_traits>
#include <vector>

// Tests of windows run on a thread of their own while the toolkit's event loop runs on the main one, as a
// user sits before the program: modal dialogs and menus work like everything else. Whatever touches a window
// or the application goes through OnGui().

/// Runs the function on the GUI thread and returns what it returns.
template <class Function>
auto OnGui(Function function) -> std::invoke_result_t<Function> {
    std::packaged_task<std::invoke_result_t<Function>()> task(std::move(function));
    auto result = task.get_future();
    wxTheApp->CallAfter([&task] { task(); });
    return result.get();
}

/// Waits until the condition, looked at on the GUI thread, holds; false when it does not in time.
bool WaitFor(const std::function<bool()>& condition, int timeoutMs = 20000);

/// A part of the screen as it looks now.
struct ScreenPicture_cls {
    struct Colour {
        int red;
        int green;
        int blue;
        bool operator==(const Colour&) const = default;
    };
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;  ///< top row first

    Colour At(int x, int y) const { return pixels[static_cast<size_t>(y * width + x)]; }
    /// Pixels with a channel above the level.
    int CountBrighter(int level) const;
    bool operator==(const ScreenPicture_cls&) const = default;
};

/// Where a window lies on the screen.
wxRect ScreenRect(wxWindow& window);

/// A user's hands and eyes: real mouse and key events through the X server, and pictures of the screen.
/// Coordinates are the screen's. An action returns when the server has taken it; what the program makes of it
/// is waited for with WaitFor().
class User_cls {
  public:
    User_cls();
    ~User_cls();
    User_cls(const User_cls&) = delete;
    User_cls& operator=(const User_cls&) = delete;

    void MoveTo(wxPoint point);
    void Click(wxPoint point, int button = 1);
    void DoubleClick(wxPoint point);
    /// Presses at the first point, moves in small steps and lets go at the last. `modifier` as in Press().
    void Drag(wxPoint from, wxPoint to, int button = 1, const std::string& modifier = {});
    /// Steps of the wheel, up above 0.
    void Wheel(wxPoint point, int steps);
    /// A key by its X name, with modifiers before it: "F5", "space", "ctrl+shift+z".
    void Press(const std::string& keys, int heldMs = 0);
    /// Letters, digits, and signs that need no more than the shift key.
    void Type(const std::string& text);

    static ScreenPicture_cls Look(const wxRect& part);

  private:
    void Key(const std::string& name, bool down);
    void Button(int button, bool down);

    void* mDisplay;  ///< X's own type, whose header would spoil names
};

/// A window of this class below (and with) a root that fulfils the condition, depth first; null without. On
/// the GUI thread.
template <class Window>
Window* FindWindowBelow(
    wxWindow* root, const std::function<bool(Window&)>& condition = [](Window&) { return true; }) {
    if (auto* window = dynamic_cast<Window*>(root); window && condition(*window)) return window;
    for (wxWindow* child : root->GetChildren()) {
        if (Window* found = FindWindowBelow<Window>(child, condition)) return found;
    }
    return nullptr;
}
