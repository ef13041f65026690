#include "support/gui/User.h"

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <map>
#include <sstream>
#include <thread>

namespace {

constexpr auto kPollPeriod = std::chrono::milliseconds(10);
/// Between the events of one action, so that the toolkit sees a hand and not a machine.
constexpr auto kHandPeriod = std::chrono::milliseconds(12);
constexpr int kDragSteps = 12;

Display* AsDisplay(void* display) {
    return static_cast<Display*>(display);
}

const std::map<char, std::string> kSignNames = {
    {' ', "space"},      {'.', "period"}, {',', "comma"}, {'-', "minus"},   {'/', "slash"},
    {'_', "underscore"}, {'=', "equal"},  {'+', "plus"},  {'%', "percent"}, {':', "colon"}};

}  // namespace

bool WaitFor(const std::function<bool()>& condition, int timeoutMs) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (!OnGui(condition)) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(kPollPeriod);
    }
    return true;
}

int ScreenPicture_cls::CountBrighter(int level) const {
    return static_cast<int>(std::count_if(pixels.begin(), pixels.end(), [level](const Colour& c) {
        return std::max({c.red, c.green, c.blue}) > level;
    }));
}

wxRect ScreenRect(wxWindow& window) {
    return {window.ClientToScreen(wxPoint(0, 0)), window.GetClientSize()};
}

User_cls::User_cls() : mDisplay(XOpenDisplay(nullptr)) {}

User_cls::~User_cls() {
    XCloseDisplay(AsDisplay(mDisplay));
}

void User_cls::MoveTo(wxPoint point) {
    XTestFakeMotionEvent(AsDisplay(mDisplay), -1, point.x, point.y, CurrentTime);
    XSync(AsDisplay(mDisplay), False);
    std::this_thread::sleep_for(kHandPeriod);
}

void User_cls::Button(int button, bool down) {
    XTestFakeButtonEvent(AsDisplay(mDisplay), static_cast<unsigned int>(button), down ? True : False,
                         CurrentTime);
    XSync(AsDisplay(mDisplay), False);
    std::this_thread::sleep_for(kHandPeriod);
}

void User_cls::Key(const std::string& name, bool down) {
    const KeySym symbol = XStringToKeysym(name.c_str());
    const KeyCode code = XKeysymToKeycode(AsDisplay(mDisplay), symbol);
    XTestFakeKeyEvent(AsDisplay(mDisplay), code, down ? True : False, CurrentTime);
    XSync(AsDisplay(mDisplay), False);
    std::this_thread::sleep_for(kHandPeriod);
}

void User_cls::Click(wxPoint point, int button) {
    MoveTo(point);
    Button(button, true);
    Button(button, false);
}

void User_cls::DoubleClick(wxPoint point) {
    Click(point);
    Click(point);
}

void User_cls::Drag(wxPoint from, wxPoint to, int button, const std::string& modifier) {
    static const std::map<std::string, std::string> keys = {
        {"ctrl", "Control_L"}, {"shift", "Shift_L"}, {"alt", "Alt_L"}};
    MoveTo(from);
    if (!modifier.empty()) Key(keys.at(modifier), true);
    Button(button, true);
    for (int i = 1; i <= kDragSteps; ++i) MoveTo(from + (to - from) * i / kDragSteps);
    Button(button, false);
    if (!modifier.empty()) Key(keys.at(modifier), false);
}

void User_cls::Wheel(wxPoint point, int steps) {
    MoveTo(point);
    for (int i = 0; i < std::abs(steps); ++i) {
        Button(steps > 0 ? 4 : 5, true);
        Button(steps > 0 ? 4 : 5, false);
    }
}

void User_cls::Press(const std::string& keys, int heldMs) {
    static const std::map<std::string, std::string> modifiers = {
        {"ctrl", "Control_L"}, {"shift", "Shift_L"}, {"alt", "Alt_L"}};
    std::vector<std::string> names;
    std::istringstream words(keys);
    for (std::string word; std::getline(words, word, '+');) {
        const auto found = modifiers.find(word);
        names.push_back(found == modifiers.end() ? word : found->second);
    }
    for (const std::string& name : names) Key(name, true);
    std::this_thread::sleep_for(std::chrono::milliseconds(heldMs));
    for (auto name = names.rbegin(); name != names.rend(); ++name) Key(*name, false);
}

void User_cls::Type(const std::string& text) {
    Display* display = AsDisplay(mDisplay);
    for (const char sign : text) {
        const auto found = kSignNames.find(sign);
        const std::string name = found == kSignNames.end() ? std::string(1, sign) : found->second;
        const KeySym symbol = XStringToKeysym(name.c_str());
        const KeyCode code = XKeysymToKeycode(display, symbol);
        const bool shifted = XkbKeycodeToKeysym(display, code, 0, 0) != symbol;
        Press(shifted ? "shift+" + name : name);
    }
}

ScreenPicture_cls User_cls::Look(const wxRect& part) {
    Display* display = XOpenDisplay(nullptr);
    const wxRect seen = part.Intersect(wxRect(0, 0, DisplayWidth(display, 0), DisplayHeight(display, 0)));
    ScreenPicture_cls picture;
    picture.width = seen.width;
    picture.height = seen.height;
    if (XImage* image = XGetImage(display, DefaultRootWindow(display), seen.x, seen.y,
                                  static_cast<unsigned int>(seen.width),
                                  static_cast<unsigned int>(seen.height), AllPlanes, ZPixmap)) {
        for (int y = 0; y < seen.height; ++y) {
            for (int x = 0; x < seen.width; ++x) {
                const auto pixel = static_cast<std::uint32_t>(XGetPixel(image, x, y));
                picture.pixels.push_back({static_cast<int>(pixel >> 16 & 0xFF),
                                          static_cast<int>(pixel >> 8 & 0xFF),
                                          static_cast<int>(pixel & 0xFF)});
            }
        }
        XDestroyImage(image);
    }
    XCloseDisplay(display);
    return picture;
}
