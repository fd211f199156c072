#include "config/submission_windows.h"

#include "config/plugin_data.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <thread>

namespace orv {
namespace test {
namespace {

TEST(SubmissionMessage, KeepsTheProgressWindowAwayWhileItIsOpen) {
    const TestProductFolder folder;
    const ModuleScope module;
    PluginData& data = PluginData::instance();
    data.progressState = kWorkerRunning;
    bool hiddenMeanwhile = false;
    std::thread user([&] {
        const HWND box = WaitForDialog(L"A message");
        hiddenMeanwhile = data.hide;
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    ShowSubmissionMessage(nullptr, L"text", L"A message", MB_OK, L"0");
    user.join();
    EXPECT_TRUE(hiddenMeanwhile);
    EXPECT_FALSE(data.hide);
    data.progressState = kWorkerNone;
}

TEST(SubmissionMessage, IsNotShownOnceTheEndIsRequested) {
    const TestProductFolder folder;
    const ModuleScope module;
    EndRequest& request = PluginData::instance().endSubmission;
    request.make();
    MessageBoxWatcher watcher;
    EXPECT_EQ(ShowSubmissionMessage(nullptr, L"text", L"A message", MB_YESNO, L"0"), IDCANCEL);
    request.clear();
    EXPECT_EQ(ShowSubmissionMessage(nullptr, L"text", L"A message", MB_OK, L"0"), IDOK);
    EXPECT_EQ(watcher.stop().size(), 1U);
}

TEST(EndRequestTest, EndsTheWaitsUntilItIsCleared) {
    EndRequest request;
    EXPECT_FALSE(request.isMade());
    EXPECT_EQ(::WaitForSingleObject(request.event(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
    request.make();
    EXPECT_TRUE(request.isMade());
    request.wait(INFINITE);
    EXPECT_EQ(::WaitForSingleObject(request.event(), 0), WAIT_OBJECT_0) << "it stays signalled";
    request.clear();
    EXPECT_FALSE(request.isMade());
    EXPECT_EQ(::WaitForSingleObject(request.event(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
}

} // namespace
} // namespace test
} // namespace orv
