// A host with the door to it open.
#pragma once

#include "host/host_api.h"
#include "tests/hosts/bare_host.h"
#include "tests/support/wait_until.h"

#include <atomic>
#include <thread>

namespace orv {
namespace test {

class OpenDoor : private rud_Noncopyable {
public:
    OpenDoor() { orv_host_open(); }
    ~OpenDoor() { orv_host_close(); }

    BareHost host;
};

// Runs `work` on a new thread while this thread's messages are served; false when it did not
// end by the deadline (the thread is then waited for, and the test program's deadline ends it).
template<class Work>
bool OnOtherThread(Work work) {
    std::atomic<bool> done{false};
    std::thread thread([&] {
        work();
        done = true;
    });
    const bool ended = PumpUntil([&] { return done.load(); });
    thread.join();
    return ended;
}

} // namespace test
} // namespace orv
