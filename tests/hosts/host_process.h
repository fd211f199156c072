// The stand-in host as a separate process. For tests of the end of a process.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"
#include "tests/support/wait_until.h"

#include <string>

namespace orv {
namespace test {

// Failures to start throw std::runtime_error; the process is ended by force at the end of the
// scope.
class HostProcess : private rud_Noncopyable {
public:
    // `arguments` is the rest of the command line behind plug-ins, scene and log.
    HostProcess(const std::wstring& scenePath, const std::wstring& logFile,
                const std::wstring& arguments = std::wstring());
    ~HostProcess();

    // Opens the dialog and submits without a choice of cameras.
    void submit() const;
    // Chooses the menu's first entry.
    void chooseSubmit() const;
    // Closes the dialog, then the host's window.
    void close() const;
    void kill() const;

    // The window of the host that has this control, visible or not; null when it is missing.
    HWND windowWith(int control) const;
    HWND waitForWindowWith(int control, std::chrono::milliseconds deadline = kDeadline) const;

    // Whether the process ends by the deadline; its exit code.
    bool ends(DWORD& code, std::chrono::milliseconds deadline = kDeadline) const;
    bool runs() const;

    DWORD id() const { return id_; }
    HWND mainWindow() const;

private:
    ProcessHandle process_;
    DWORD id_ = 0;
};

} // namespace test
} // namespace orv
