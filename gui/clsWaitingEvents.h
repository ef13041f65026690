#pragma once

/// The events that wait while the program is busy. Long work looks whether it had better end, and answers the
/// window manager, which else would call the program dead.
/// Threads: GUI thread. Where the display is not an X server nothing is ever seen to wait.
namespace WaitingEvents {

/// The user has pressed or released a key or a button or turned the wheel, wants a window closed or sees a
/// part that was covered. Mere motion of the pointer does not count.
bool HasInput();
/// The window manager's questions whether somebody is there.
void AnswerPings();

}  // namespace WaitingEvents
