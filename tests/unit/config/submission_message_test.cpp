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

} // namespace
} // namespace test
} // namespace orv
