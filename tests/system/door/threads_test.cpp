// The host's functions run on its main thread, on whichever thread they are called.
#include "tests/system/door/open_door.h"

#include "host/host.h"
#include "standin/maxutil.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

TEST(OpenedDoor, HandsCallsOfOtherThreadsToTheMainThread) {
    OpenDoor door;
    HWND window = nullptr;
    std::wstring path;
    bool saved = false;
    ASSERT_TRUE(OnOtherThread([&] {
        window = host::MainWindow();
        path = host::SceneFilePath();
        saved = host::SaveSceneTo(L"C:\\out.max");
        host::ScriptValue value;
        host::RunScript(L"1 + 1", value.get());
    }));
    EXPECT_EQ(window, door.host.mainWindow);
    EXPECT_EQ(path, L"C:\\scenes\\loft.max");
    EXPECT_TRUE(saved);
    EXPECT_THAT(door.host.threads, Each(::GetCurrentThreadId()));
    EXPECT_EQ(standin_wrong_thread_count(), 0);
}

TEST(OpenedDoor, ServesManyThreadsAtOnce) {
    OpenDoor door;
    constexpr int kThreads = 8;
    constexpr int kCalls = 50;
    std::atomic<int> done{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            for (int call = 0; call < kCalls; ++call)
                done += orv_host_save_scene();
        });
    EXPECT_TRUE(PumpUntil([&] { return done == kThreads * kCalls; }));
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(door.host.calls.size(), std::size_t{kThreads * kCalls});
    EXPECT_THAT(door.host.threads, Each(::GetCurrentThreadId()));
}

// A modal dialog's message loop serves the door, too.
TEST(OpenedDoor, WorksWhileAMessageBoxIsOpen) {
    OpenDoor door;
    std::thread thread([] {
        orv_host_save_scene();
        HWND box = nullptr;
        WaitUntil([&] { return (box = ::FindWindowW(L"#32770", L"Door test")) != nullptr; });
        orv_host_save_scene();
        ::PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    ::MessageBoxW(nullptr, L"text", L"Door test", MB_OK);
    thread.join();
    EXPECT_THAT(door.host.calls, ElementsAre(L"save()", L"save()"));
}

TEST(ClosedDoor, RefusesOtherThreadsAtOnce) {
    { OpenDoor door; }
    BareHost host;
    // This thread serves no messages here: a call that waited would hang.
    std::thread thread([] {
        EXPECT_EQ(orv_host_main_window(), nullptr);
        EXPECT_EQ(orv_host_save_scene(), 0);
        EXPECT_EQ(orv_host_save_scene_to(L"C:\\out.max"), 0);
        EXPECT_EQ(orv_host_scene_file_name(nullptr, 0), 0);
        EXPECT_EQ(orv_host_run_script(L"1", nullptr), 0);
        EXPECT_EQ(orv_host_tooltips_create(), nullptr);
        orv_host_tooltips_set(nullptr, nullptr, L"");
        EXPECT_EQ(host::SceneFilePath(), L"");
    });
    thread.join();
    EXPECT_TRUE(host.calls.empty());
}

TEST(ClosedDoor, StillServesTheMainThread) {
    { OpenDoor door; }
    BareHost host;
    EXPECT_EQ(orv_host_main_window(), host.mainWindow);
    EXPECT_NE(orv_host_save_scene(), 0);
}

// A submission may be waiting for the host in the moment in which the host ends.
TEST(ClosedDoor, ReleasesThreadsThatWait) {
    BareHost host;
    for (int i = 0; i < 200; ++i) {
        orv_host_open();
        std::atomic<bool> started{false};
        std::thread thread([&] {
            started = true;
            orv_host_save_scene(); // served or refused, but it returns
        });
        WaitUntil([&] { return started.load(); });
        orv_host_close();
        thread.join();
    }
}

// What a call makes the host do may be its exit.
TEST(ClosedDoor, CanBeClosedWithinACall) {
    OpenDoor door;
    door.host.duringSave = [] { orv_host_close(); };
    EXPECT_TRUE(OnOtherThread([] { EXPECT_NE(orv_host_save_scene(), 0); }));
    door.host.duringSave = nullptr;
    EXPECT_TRUE(OnOtherThread([] { EXPECT_EQ(orv_host_save_scene(), 0); }));
}

TEST(ClosedDoor, OpensAndClosesAsOftenAsAsked) {
    BareHost host;
    orv_host_close();
    orv_host_open();
    orv_host_open();
    EXPECT_TRUE(OnOtherThread([] { EXPECT_NE(orv_host_save_scene(), 0); }));
    orv_host_close();
    orv_host_close();
    orv_host_open();
    EXPECT_TRUE(OnOtherThread([] { EXPECT_NE(orv_host_save_scene(), 0); }));
    orv_host_close();
}

TEST(OpenedDoor, AnswersNothingWithoutAHost) {
    OpenDoor door;
    standin_set_host(nullptr);
    EXPECT_EQ(orv_host_main_window(), nullptr);
    EXPECT_EQ(host::SceneFileName(), L"");
    EXPECT_EQ(orv_host_save_scene(), 0);
    EXPECT_EQ(orv_host_save_scene_to(L"C:\\out.max"), 0);
    EXPECT_EQ(orv_host_run_script(L"1", nullptr), 0);
}

} // namespace
} // namespace test
} // namespace orv
