// A dialog with the controls that a submission reads, on a thread of its own as in the host.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <atomic>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace orv {
namespace test {

struct TestCamera {
    std::wstring name;
    bool isChecked = true;
};

// A modal dialog, shown off the screen, from its construction to its end by EndDialog or by the
// destructor.
class TestDialog : private rud_Noncopyable {
public:
    TestDialog();
    ~TestDialog();

    HWND handle() const { return handle_; }
    HWND control(int id) const { return ::GetDlgItem(handle_, id); }

    void setText(int id, const std::wstring& text) const;
    std::wstring text(int id) const;
    void check(int id, UINT state = BST_CHECKED) const;
    void select(int id, int index) const;
    // From now on the dialog has no such control.
    void takeAway(int id) const;
    void setCameras(const std::vector<TestCamera>& cameras) const;

    // How often it was told that the camera records have changed.
    int rebuilds() const { return rebuilds_; }

    // Whether the dialog has been ended, waiting for it at most one deadline; its result by then.
    bool waitForEnd();
    INT_PTR result() const { return result_; }
    // Whether it is still open now.
    bool isOpen() const;

private:
    void run(std::promise<HWND> opened);

    HWND handle_ = nullptr;
    INT_PTR result_ = 0;
    std::atomic<int> rebuilds_{0};
    std::future<void> ended_;
    std::thread thread_;
};

} // namespace test
} // namespace orv
