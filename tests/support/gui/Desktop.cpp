#include "support/gui/Desktop.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <thread>
#include <vector>

namespace {

constexpr int kStartTries = 500;
constexpr auto kStartPeriod = std::chrono::milliseconds(20);

pid_t Start(std::vector<std::string> words, int keptDescriptor = -1) {
    const pid_t parent = getpid();
    const pid_t child = fork();
    if (child != 0) return child;
    // Gone with the test program, even when that is killed.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent) _exit(1);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int stream : {0, 1, 2}) dup2(nothing, stream);
    if (keptDescriptor >= 0) fcntl(keptDescriptor, F_SETFD, 0);
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

void End(pid_t process) {
    if (process <= 0) return;
    kill(process, SIGTERM);
    waitpid(process, nullptr, 0);
}

bool HasManager() {
    Display* display = XOpenDisplay(nullptr);
    if (!display) return false;
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display),
                       XInternAtom(display, "_NET_SUPPORTING_WM_CHECK", False), 0, 1, False, XA_WINDOW, &type,
                       &format, &count, &rest, &data);
    if (data) XFree(data);
    XCloseDisplay(display);
    return count == 1;
}

}  // namespace

Desktop_cls::Desktop_cls() {
    std::string pattern = (std::filesystem::temp_directory_path() / "varnholt-desktop-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        mError = "no folder for the desktop";
        return;
    }
    mHome = pattern;
    for (const char* folder :
         {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        setenv(folder, mHome.c_str(), 1);
    setenv("GDK_BACKEND", "x11", 1);
    setenv("GSETTINGS_BACKEND", "memory", 1);
    setenv("NO_AT_BRIDGE", "1", 1);
    setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    StartServer();
    if (mError.empty()) StartManager();
}

Desktop_cls::~Desktop_cls() {
    End(mManager);
    End(mServer);
    std::error_code ignored;
    if (!mHome.empty()) std::filesystem::remove_all(mHome, ignored);
}

void Desktop_cls::StartServer() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        mError = "no pipe for the X server";
        return;
    }
    mServer = Start(
        {"Xvfb", "-displayfd", std::to_string(ends[1]), "-screen", "0",
         std::to_string(kWidth) + "x" + std::to_string(kHeight) + "x24", "-nolisten", "tcp", "-noreset"},
        ends[1]);
    close(ends[1]);
    // The server picks a free number and writes it when it is ready.
    std::string number;
    char byte = 0;
    while (read(ends[0], &byte, 1) == 1 && byte != '\n') number += byte;
    close(ends[0]);
    if (number.empty()) {
        mError = "Xvfb does not start";
        return;
    }
    setenv("DISPLAY", (":" + number).c_str(), 1);
}

void Desktop_cls::StartManager() {
    mManager = Start({"openbox", "--sm-disable"});
    for (int i = 0; i < kStartTries; ++i) {
        if (HasManager()) return;
        std::this_thread::sleep_for(kStartPeriod);
    }
    mError = "openbox does not start";
}
