#include "pov/clsThreadPovRay.h"

#include <cstdint>

#include "pov/clsPovRayCtrl.h"
#include "seam/clsDiagnostics.h"
#include "seam/clsEventSink.h"
#include "seam/clsTextCoding.h"

void ThreadPovRay_cls::SetParameters(const PovRayCtrl_cls& control, const wxString& command,
                                     const wxString& postSceneCommand, std::atomic<bool>* done) {
    mCommand = command;
    mPostSceneCommand = postSceneCommand;
    mDone = done;
    mShell.SetFolder(control.GetWorkFolder());
}

wxThread::ExitCode ThreadPovRay_cls::Entry() {
    // Names beyond ASCII keep their bytes; commands without them are the same either way.
    mResult = mShell.Run(mCommand);
    PrintDiagnostic("Return Value=%d\n", mResult);
    if (!mPostSceneCommand.empty()) {
        mShell.Run(mPostSceneCommand);
        PrintDiagnostic("Commands=%s\n", ToBytes(mCommand).c_str());
        PrintDiagnostic("PostSceneCommands=%s\n", ToBytes(mPostSceneCommand).c_str());
    }
    const int result = mResult;
    mDone->store(true, std::memory_order_release);
    EventSink_cls::PostToFrame(EventSink_cls::kRendererReturned);
    return reinterpret_cast<ExitCode>(static_cast<intptr_t>(result));
}
