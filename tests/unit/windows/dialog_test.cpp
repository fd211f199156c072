#include "windows/dialog.h"

#include "resources/controls.h"
#include "tests/support/import_patch.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

constexpr UINT kGo = WM_USER + 5;

// A dialog that sends itself kGo once it is open, and does what the test asks.
class ProbeDialog : public Dialog {
public:
    using Dialog::control;
    using Dialog::end;
    using Dialog::startTimer;
    using Dialog::window;

    std::function<void()> init = [] {};
    std::function<void()> go = [this] { end(0); };
    std::function<void()> tick = [] {};
    std::vector<std::string> errors;
    std::vector<std::string> events;
    LPARAM parameter = 0;

protected:
    bool onInit(LPARAM given) override {
        parameter = given;
        events.push_back("init");
        ::PostMessageW(window(), kGo, 0, 0);
        init();
        return true;
    }
    bool onCommand(int id, int code) override {
        events.push_back("command " + std::to_string(id) + " " + std::to_string(code));
        return true;
    }
    bool onNotify(NMHDR& header, LRESULT& result) override {
        events.push_back("notify " + std::to_string(header.idFrom));
        result = 7;
        return header.idFrom == 5;
    }
    bool onTimer(UINT_PTR id) override {
        events.push_back("timer " + std::to_string(id));
        tick();
        return true;
    }
    bool onClose() override {
        events.push_back("close");
        end(3);
        return true;
    }
    void onDestroy() override { events.push_back("destroy"); }
    bool onMessage(UINT message, WPARAM, LPARAM) override {
        if (message != kGo)
            return false;
        go();
        return true;
    }
    void writeError(const std::string& line) noexcept override { errors.push_back(line); }
};

class DialogBase : public ::testing::Test {
protected:
    ProbeDialog dialog_;
};

TEST_F(DialogBase, ReturnsTheCodeItEndedWithAndHandsOverItsParameter) {
    dialog_.go = [this] { dialog_.end(42); };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr, 4711), 42);
    EXPECT_EQ(dialog_.parameter, 4711);
    EXPECT_TRUE(dialog_.errors.empty());
}

TEST_F(DialogBase, CracksEachMessageForItsHandler) {
    dialog_.go = [this] {
        const HWND window = dialog_.window();
        ::SendMessageW(window, WM_COMMAND, MAKEWPARAM(1005, BN_CLICKED), 0);
        ::SendMessageW(window, WM_TIMER, 1, 0);
        NMHDR header = {};
        header.idFrom = 5;
        EXPECT_EQ(::SendMessageW(window, WM_NOTIFY, 5, reinterpret_cast<LPARAM>(&header)), 7);
        header.idFrom = 6; // not dealt with: no answer
        EXPECT_EQ(::SendMessageW(window, WM_NOTIFY, 6, reinterpret_cast<LPARAM>(&header)), 0);
        ::SendMessageW(window, WM_CLOSE, 0, 0);
    };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 3);
    const std::vector<std::string> expected = {"init",     "command 1005 0", "timer 1", "notify 5",
                                               "notify 6", "close",          "destroy"};
    EXPECT_EQ(dialog_.events, expected);
}

TEST_F(DialogBase, EndsWithALogLineWhenOpeningThrows) {
    dialog_.init = [] { throw std::runtime_error("no cameras today"); };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 0);
    ASSERT_EQ(dialog_.errors.size(), 1U);
    EXPECT_EQ(dialog_.errors[0], "The dialog ended by an unexpected error: no cameras today");
}

TEST_F(DialogBase, EndsWithALogLineWhenAMessageThrows) {
    dialog_.go = [] { throw 5; };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 0);
    ASSERT_EQ(dialog_.errors.size(), 1U);
    EXPECT_EQ(dialog_.errors[0], "The dialog ended by an unexpected error.");
    EXPECT_EQ(dialog_.events.back(), "destroy");
}

TEST_F(DialogBase, TellsTheLogWhenThereIsNoSuchDialog) {
    EXPECT_EQ(dialog_.run(9999, nullptr), -1);
    ASSERT_EQ(dialog_.errors.size(), 1U);
    EXPECT_EQ(dialog_.errors[0].find("DialogBoxParamW dialog 9999 error no:"), 0U);
    EXPECT_TRUE(dialog_.events.empty());
}

TEST_F(DialogBase, TellsTheLogWhenItsOwnerIsGone) {
    const HWND owner = ::CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                         nullptr, nullptr);
    ::DestroyWindow(owner);
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, owner), -1);
    EXPECT_EQ(dialog_.errors.size(), 1U);
}

UINT_PTR WINAPI NoTimer(HWND, UINT_PTR, UINT, TIMERPROC) {
    ::SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return 0;
}

// Nothing else would end a dialog that waits for its timer.
TEST_F(DialogBase, EndsWithALogLineWithoutItsTimer) {
    const ImportPatch patch(::GetModuleHandleW(nullptr), "SetTimer",
                            reinterpret_cast<ULONGLONG>(&NoTimer));
    dialog_.init = [this] { dialog_.startTimer(1, 30); };
    dialog_.go = [this] { dialog_.end(5); }; // comes too late
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 0);
    EXPECT_EQ(dialog_.errors, std::vector<std::string>{"SetTimer error no:8"});
}

TEST_F(DialogBase, GetsTheTicksOfItsTimer) {
    dialog_.init = [this] { dialog_.startTimer(4, 10); };
    dialog_.go = [] {};
    dialog_.tick = [this] { dialog_.end(5); };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 5);
    EXPECT_EQ(dialog_.events[1], "timer 4");
}

TEST_F(DialogBase, HasThemedControls) {
    bool isThemed = false;
    dialog_.go = [&] {
        ACTCTX_SECTION_KEYED_DATA found = {};
        found.cbSize = sizeof(found);
        isThemed = ::FindActCtxSectionStringW(0, nullptr,
                                              ACTIVATION_CONTEXT_SECTION_WINDOW_CLASS_REDIRECTION,
                                              L"Button", &found) != FALSE;
        dialog_.end(0);
    };
    dialog_.run(IDD_PROGRESS, nullptr);
    EXPECT_TRUE(isThemed);
}

TEST_F(DialogBase, HasNoWindowAfterItEnded) {
    dialog_.run(IDD_PROGRESS, nullptr);
    EXPECT_EQ(dialog_.window(), nullptr);
}

TEST_F(DialogBase, RunsAgainAfterItEnded) {
    EXPECT_EQ(dialog_.run(9999, nullptr), -1);
    dialog_.go = [this] { dialog_.end(1); };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 1);
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 1);
}

TEST_F(DialogBase, OpensAnotherDialogOverItself) {
    ProbeDialog inner;
    inner.go = [&inner] { inner.end(2); };
    dialog_.go = [this, &inner] { dialog_.end(10 + inner.run(IDD_PROGRESS, dialog_.window())); };
    EXPECT_EQ(dialog_.run(IDD_PROGRESS, nullptr), 12);
}

} // namespace
} // namespace test
} // namespace orv
