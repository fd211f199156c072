// The host's exit and its quiet mode through the door.
#include "tests/system/door/open_door.h"

#include "host/host.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

using ::testing::Each;

constexpr int kStartup = 0x50;
constexpr int kShutdown = 0x49;

int exits = 0;
DWORD exitThread = 0;

void CountExit() {
    ++exits;
    exitThread = ::GetCurrentThreadId();
}

void CountExitAndStopWatching() {
    ++exits;
    host::WatchExit(nullptr);
}

class WatchedExit : public ::testing::Test {
protected:
    WatchedExit() { exits = 0; }
    ~WatchedExit() override { host::WatchExit(nullptr); }

    OpenDoor door;
};

TEST_F(WatchedExit, IsReportedOnTheMainThread) {
    ASSERT_TRUE(OnOtherThread([] { host::WatchExit(&CountExit); }));
    EXPECT_EQ(standin_notification_count(), 1);
    standin_broadcast(kStartup);
    EXPECT_EQ(exits, 0);
    standin_broadcast(kShutdown);
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(exitThread, ::GetCurrentThreadId());
}

TEST_F(WatchedExit, IsReportedOnceHoweverOftenItIsWatched) {
    host::WatchExit(&CountExit);
    host::WatchExit(&CountExit);
    EXPECT_EQ(standin_notification_count(), 1);
    standin_broadcast(kShutdown);
    EXPECT_EQ(exits, 1);
}

TEST_F(WatchedExit, IsReportedNoLongerWhenWatchingEnds) {
    host::WatchExit(&CountExit);
    host::WatchExit(nullptr);
    EXPECT_EQ(standin_notification_count(), 0);
    standin_broadcast(kShutdown);
    EXPECT_EQ(exits, 0);
    host::WatchExit(&CountExit);
    standin_broadcast(kShutdown);
    EXPECT_EQ(exits, 1);
}

// The host calls its procedures one after the other: the list must not change meanwhile.
TEST_F(WatchedExit, KeepsItsPlaceInTheListUntilItIsReported) {
    host::WatchExit(&CountExitAndStopWatching);
    standin_broadcast(kShutdown);
    EXPECT_EQ(standin_notification_count(), 1);
    standin_broadcast(kShutdown);
    EXPECT_EQ(exits, 1) << "it is watched no longer";
    host::WatchExit(nullptr);
    EXPECT_EQ(standin_notification_count(), 0);
}

TEST(QuietMode, IsTakenFromATruthValueAlone) {
    struct Row {
        int answer; // of the host, whether the script ran
        standin_value result;
        bool isUnattended;
    };
    OpenDoor door;
    for (const Row& row : {Row{1, {STANDIN_VALUE_BOOLEAN, 1, 0.0, nullptr}, true},
                           Row{1, {STANDIN_VALUE_BOOLEAN, 0, 0.0, nullptr}, false},
                           Row{1, {STANDIN_VALUE_INTEGER, 1, 0.0, nullptr}, false},
                           Row{1, {STANDIN_VALUE_NONE, 1, 0.0, nullptr}, false},
                           Row{0, {STANDIN_VALUE_BOOLEAN, 1, 0.0, nullptr}, false}}) {
        door.host.scriptAnswer = row.answer;
        door.host.scriptResult = row.result;
        EXPECT_EQ(host::IsUnattended(), row.isUnattended) << row.result.kind;
    }
    // Without a word in the host's listener.
    EXPECT_THAT(door.host.calls, Each(std::wstring(L"script(GetQuietMode(), 1, 0)")));
}

} // namespace
} // namespace test
} // namespace orv
