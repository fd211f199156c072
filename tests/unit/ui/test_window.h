// Controls of their own and the dialogs' log, for tests of what fills controls.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"
#include "tests/support/product_folder.h"

#include <string>

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
    // The lines without their time stamps, each with a line feed.
    std::string lines() const {
        std::string stripped;
        const std::string all = folder_.log(L"rud_ui");
        for (std::size_t start = 0; start < all.size();) {
            const std::size_t end = all.find("\r\n", start);
            const std::size_t level = all.find('[', start);
            if (end == std::string::npos || level > end)
                break;
            stripped += all.substr(level, end - level) + "\n";
            start = end + 2;
        }
        return stripped;
    }
    std::string lastLine() const {
        std::string all = lines();
        if (!all.empty())
            all.pop_back();
        return all.substr(all.rfind('\n') + 1);
    }

private:
    TestProductFolder folder_;
};

} // namespace test
} // namespace orv
