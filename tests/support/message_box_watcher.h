// Reads and answers message boxes as a user does: by what stands in them and by their buttons.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "tests/support/wait_until.h"

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace orv {
namespace test {

struct SeenMessageBox {
    std::wstring caption;
    std::wstring text;
    std::vector<int> buttons;               // ids in the order of the box: IDOK, IDCANCEL, …
    std::vector<std::wstring> buttonLabels; // as shown, "&" included
    int defaultButton = 0;                  // that Enter presses
    HWND owner = nullptr;
    int answer = 0; // the button that was pressed
};

// From its construction to stop() a separate thread reads each message box that opens and presses
// one of its buttons. Dialogs of the product are left alone: only a window that has nothing but
// texts and the standard buttons is a message box.
class MessageBoxWatcher : private rud_Noncopyable {
public:
    // Watches the boxes of process `processId` with this caption; an empty caption means all. The
    // n-th box gets the n-th answer, further boxes the last one. A box without the button asked for
    // gets its first button, which the record shows. Throws std::runtime_error where this program
    // has no desktop to make windows on.
    explicit MessageBoxWatcher(std::wstring caption = std::wstring(),
                               std::vector<int> answers = {IDOK},
                               DWORD processId = ::GetCurrentProcessId());
    ~MessageBoxWatcher();

    // Ends watching and returns what was seen, in order. Boxes that are open stay open.
    std::vector<SeenMessageBox> stop();

    // What was seen so far; false from the second when fewer than `count` boxes came by the
    // deadline.
    std::vector<SeenMessageBox> seen() const;
    bool waitForBoxes(std::size_t count, std::chrono::milliseconds deadline = kDeadline) const;

private:
    void watch();
    void answer(HWND box);

    const std::wstring caption_;
    const std::vector<int> answers_;
    const DWORD processId_;
    mutable std::mutex mutex_; // guards boxes_
    std::vector<SeenMessageBox> boxes_;
    std::atomic<bool> ended_{false};
    std::thread thread_;
};

// The text of a window or control of any process; empty when the window goes meanwhile or does
// not answer by the deadline.
std::wstring ReadWindowText(HWND window);

// The visible top-level dialog ("#32770") of a process that has this caption, null after the
// deadline.
HWND WaitForDialog(const std::wstring& caption, DWORD processId = ::GetCurrentProcessId(),
                   std::chrono::milliseconds deadline = kDeadline);

// Runs `body` on another thread and calls `look` while the message box with this caption is open,
// which `body` has to show. Then presses OK in each box and returns when `body` has ended. False
// when no box opened by the deadline; then `look` is not called.
bool WhileBoxIsOpen(const std::wstring& caption, const std::function<void()>& body,
                    const std::function<void()>& look);

} // namespace test
} // namespace orv
