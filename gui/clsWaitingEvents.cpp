#include "gui/clsWaitingEvents.h"

#include <X11/Xlib.h>
#include <X11/extensions/XI2.h>
#include <wx/utils.h>

namespace WaitingEvents {

namespace {

Display* GetDisplay() {
    const wxDisplayInfo info = wxGetDisplayInfo();
    return info.type == wxDisplayX11 ? static_cast<Display*>(info.dpy) : nullptr;
}

struct Search {
    Atom message;
    bool found = false;
};

bool IsMessage(const XEvent& event, Atom message) {
    return event.type == ClientMessage && static_cast<Atom>(event.xclient.data.l[0]) == message;
}

bool IsInput(const XEvent& event, Atom closing) {
    switch (event.type) {
        case KeyPress:
        case KeyRelease:
        case ButtonPress:
        case ButtonRelease:
        case Expose:
            return true;
        case GenericEvent: {
            const int type = event.xcookie.evtype;
            return type == XI_KeyPress || type == XI_KeyRelease || type == XI_ButtonPress ||
                   type == XI_ButtonRelease;
        }
        default:
            return IsMessage(event, closing);
    }
}

}  // namespace

bool HasInput() {
    Display* display = GetDisplay();
    if (!display) return false;
    Search search{.message = XInternAtom(display, "WM_DELETE_WINDOW", False)};
    XEvent none;
    // Looks at all events and takes none of them.
    XCheckIfEvent(
        display, &none,
        [](Display*, XEvent* event, XPointer into) -> Bool {
            auto& found = *reinterpret_cast<Search*>(into);
            found.found = found.found || IsInput(*event, found.message);
            return False;
        },
        reinterpret_cast<XPointer>(&search));
    return search.found;
}

void AnswerPings() {
    Display* display = GetDisplay();
    if (!display) return;
    Search search{.message = XInternAtom(display, "_NET_WM_PING", False)};
    const auto isPing = [](Display*, XEvent* event, XPointer ping) -> Bool {
        return IsMessage(*event, reinterpret_cast<Search*>(ping)->message) ? True : False;
    };
    XEvent event;
    while (XCheckIfEvent(display, &event, isPing, reinterpret_cast<XPointer>(&search))) {
        event.xclient.window = DefaultRootWindow(display);
        XSendEvent(display, event.xclient.window, False, SubstructureRedirectMask | SubstructureNotifyMask,
                   &event);
    }
    XFlush(display);
}

}  // namespace WaitingEvents
