// What a submission may do with the progress window, which belongs to a worker of its own: flags
// are all that the two share.
#pragma once

#include "base/noncopyable.h"

namespace orv {

// Ends the progress window. Without a running progress worker nothing happens.
void EndProgress();

// Keeps the progress window off the screen while it lives, so that a message box has no window
// beside it that says something else. Does nothing without a running progress worker. One within
// another changes nothing.
class ProgressHold : private rud_Noncopyable {
public:
    ProgressHold();
    ~ProgressHold();

private:
    bool holds_ = false;
};

} // namespace orv
