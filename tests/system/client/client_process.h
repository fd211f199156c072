// The stand-in client as a process, started and read by a test.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "tests/support/wait_until.h"

#include <json/json.h>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

namespace orv {
namespace test {

// Starts standin-client.exe, which lies beside the test program, and waits until it listens. Ends
// it at the end of the scope. Failures throw std::runtime_error.
class ClientProcess : private rud_Noncopyable {
public:
    // `arguments` is the rest of the command line, quoted where needed.
    explicit ClientProcess(const std::wstring& arguments = std::wstring());
    ~ClientProcess();

    std::uint16_t port() const { return port_; }

    // The next line of output, read as JSON; null when none comes by the deadline or it is no JSON.
    Json::Value nextLine(std::chrono::milliseconds deadline = kDeadline);

    // The exit code, once the program has ended by itself; false when it has not by the deadline.
    bool waitForExit(DWORD& code, std::chrono::milliseconds deadline = kDeadline);

private:
    void readOutput();

    ProcessHandle process_;
    FileHandle output_;
    std::uint16_t port_ = 0;
    std::mutex mutex_; // guards lines_ and ended_
    std::condition_variable changed_;
    std::deque<std::string> lines_;
    bool ended_ = false;
    std::thread reader_;
};

} // namespace test
} // namespace orv
