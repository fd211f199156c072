// Controls of their own and the dialogs' log, for tests of what fills controls.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "tests/support/log_lines.h"
#include "tests/support/product_folder.h"

#include <string>
#include <vector>

namespace orv {
namespace test {

// A control of class `className` on a hidden window of its own.
class TestWindow : private rud_Noncopyable {
public:
    static constexpr int kControlId = 1;

    explicit TestWindow(const wchar_t* className, DWORD style = 0)
        : parent_(::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 900, 600, nullptr,
                                    nullptr, nullptr, nullptr)),
          control_(::CreateWindowExW(
              0, className, L"", WS_CHILD | WS_VISIBLE | style, 0, 0, 800, 500, parent_,
              reinterpret_cast<HMENU>(static_cast<INT_PTR>(kControlId)), nullptr, nullptr)) {}
    ~TestWindow() { ::DestroyWindow(parent_); }

    HWND get() const { return control_; }

private:
    HWND parent_;
    HWND control_;
};

// "rud_ui", empty at the start of the test.
class UiLog : private rud_Noncopyable {
public:
    // Without its time stamp; empty when nothing was written.
    std::string lastLine() const {
        const std::vector<std::string> lines = LogLines(folder_.log(L"rud_ui"));
        return lines.empty() ? std::string() : lines.back();
    }

private:
    TestProductFolder folder_;
};

} // namespace test
} // namespace orv
