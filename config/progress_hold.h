// What a submission may do with the progress window, which belongs to a worker of its own: flags
// are all that the two share.
#pragma once

#include "base/noncopyable.h"

namespace orv {

// Ends the progress window. Without a running progress worker nothing happens.
void EndProgress();

// Keeps the progress window off the screen while it lives, so that a message box has no window
// beside it that says something else, and none that takes the keyboard. The constructor returns
// when the window is off the screen, which takes one period of its timer at most. Does nothing
// without a running progress worker. One within another changes nothing. Not for the progress
// worker.
class ProgressHold : private rud_Noncopyable {
public:
    // A thread that owns the dialog passes false: the window leaves the screen at its next tick,
    // and what it sends meanwhile has to be served.
    explicit ProgressHold(bool waitsForScreen = true);
    ~ProgressHold();

private:
    bool holds_ = false;
};

// The progress worker's side. Each change of the screen asks first: a window that opens or comes
// back while a message box opens would take the keyboard from it.

// Takes the screen for the progress window; false, with nothing taken, while a ProgressHold lives.
bool TakeScreenForProgress();

// Says that the progress window is off the screen and does not come back by itself.
void LeaveScreenOfProgress();

// Whether the progress window has no reason to be there any more: its end was asked for, or no
// submission runs. A submission that ended before the progress worker had begun shows in the submit
// worker's state alone.
bool IsProgressOver();

} // namespace orv
