// Controls of the tests' own.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {
namespace test {

// A control of class `className` on a new hidden window.
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

} // namespace test
} // namespace orv
