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
    Atom protocols;
    Atom message;
    int inputExtension;
    bool found = false;
};

Search SearchFor(Display* display, const char* message) {
    int opcode = -1;
    int event = 0;
    int error = 0;
    XQueryExtension(display, "XInputExtension", &opcode, &event, &error);
    return {.protocols = XInternAtom(display, "WM_PROTOCOLS", False),
            .message = XInternAtom(display, message, False),
            .inputExtension = opcode};
}

bool IsMessage(const XEvent& event, const Search& search) {
    return event.type == ClientMessage && event.xclient.message_type == search.protocols &&
           static_cast<Atom>(event.xclient.data.l[0]) == search.message;
}

bool IsInput(const XEvent& event, const Search& search) {
    switch (event.type) {
        case KeyPress:
        case KeyRelease:
        case ButtonPress:
        case ButtonRelease:
        case Expose:
            return true;
        case GenericEvent: {
            const int type = event.xcookie.evtype;
            if (event.xcookie.extension != search.inputExtension) return false;
            return type == XI_KeyPress || type == XI_KeyRelease || type == XI_ButtonPress ||
                   type == XI_ButtonRelease;
        }
        default:
            return IsMessage(event, search);
    }
}

}  // namespace

bool HasInput() {
    Display* display = GetDisplay();
    if (!display) return false;
    static const Search closing = SearchFor(display, "WM_DELETE_WINDOW");
    Search search = closing;
    XEvent none;
    // Looks at all events and takes none of them.
    XCheckIfEvent(
        display, &none,
        [](Display*, XEvent* event, XPointer into) -> Bool {
            auto& found = *reinterpret_cast<Search*>(into);
            found.found = found.found || IsInput(*event, found);
            return False;
        },
        reinterpret_cast<XPointer>(&search));
    return search.found;
}

void AnswerPings() {
    Display* display = GetDisplay();
    if (!display) return;
    static Search search = SearchFor(display, "_NET_WM_PING");
    const auto isPing = [](Display*, XEvent* event, XPointer ping) -> Bool {
        return IsMessage(*event, *reinterpret_cast<Search*>(ping)) ? True : False;
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
