#pragma once

#include "base/noncopyable.h"

namespace orv {

// Keeps Windows Sockets 2.2 started for this process while it lives. The main dialog holds one from
// its opening to its end; PostToClient needs it.
class WinsockSession : private rud_Noncopyable {
public:
    WinsockSession();
    ~WinsockSession();

    // False when the system has no Windows Sockets 2.2.
    bool started() const { return started_; }

private:
    bool started_;
};

} // namespace orv
