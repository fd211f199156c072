#include "config/submission_windows.h"

#include "tests/support/wait_until.h"
#include "tests/unit/config/plugin_data_fixture.h"

#include <atomic>
#include <thread>

namespace orv {
namespace test {
namespace {

class Progress : public PluginDataFixture {
protected:
    Progress() { data.progressState = kWorkerRunning; }
    ~Progress() override {
        data.progressState = kWorkerNone;
        data.done = false;
        data.hide = false;
        data.progressOnScreen = false;
        data.submitState = kWorkerNone;
    }
};

TEST_F(Progress, IsHiddenForAsLongAsItIsHeld) {
    {
        const ProgressHold hold;
        EXPECT_TRUE(data.hide);
    }
    EXPECT_FALSE(data.hide);
}

TEST_F(Progress, StaysHiddenUntilTheOuterOfTwoHoldsEnds) {
    {
        const ProgressHold outer;
        { const ProgressHold inner; }
        EXPECT_TRUE(data.hide);
    }
    EXPECT_FALSE(data.hide);
}

TEST_F(Progress, IsNotLeftHiddenWhenItsWorkerEndedMeanwhile) {
    {
        const ProgressHold hold;
        data.progressState = kWorkerFinished;
    }
    EXPECT_FALSE(data.hide);
}

TEST_F(Progress, IsLeftAloneWithoutAWorker) {
    for (const std::int32_t state : {kWorkerNone, kWorkerFinished}) {
        data.progressState = state;
        const ProgressHold hold;
        EndProgress();
        EXPECT_FALSE(data.hide) << state;
        EXPECT_FALSE(data.done) << state;
    }
}

TEST_F(Progress, CannotTakeTheScreenWhileItIsHeld) {
    {
        const ProgressHold hold;
        EXPECT_FALSE(TakeScreenForProgress());
        EXPECT_FALSE(data.progressOnScreen);
    }
    EXPECT_TRUE(TakeScreenForProgress());
    EXPECT_TRUE(data.progressOnScreen);
}

// Whichever comes first, the other sees it: never both at once.
TEST_F(Progress, NeverHasTheScreenBesideAHold) {
    std::atomic<bool> ends{false};
    std::atomic<bool> boxIsOpen{false};
    std::atomic<int> both{0};
    std::thread progress([&] {
        while (!ends) {
            if (TakeScreenForProgress()) {
                both += boxIsOpen ? 1 : 0;
                LeaveScreenOfProgress();
            }
        }
    });
    for (int time = 0; time < 200; ++time) {
        const ProgressHold hold;
        boxIsOpen = true;
        std::this_thread::yield();
        boxIsOpen = false;
    }
    ends = true;
    progress.join();
    EXPECT_EQ(both, 0);
}

TEST_F(Progress, IsNotWaitedForWhenItsWorkerEnds) {
    TakeScreenForProgress();
    std::thread worker([this] {
        WaitUntil([this] { return data.hide.load(); });
        data.progressState = kWorkerFinished;
    });
    const ProgressHold hold;
    EXPECT_EQ(data.progressState, kWorkerFinished);
    worker.join();
}

TEST_F(Progress, IsOverWhenItsEndWasAskedForOrNoSubmissionRuns) {
    data.submitState = kWorkerRunning;
    EXPECT_FALSE(IsProgressOver());
    EndProgress();
    EXPECT_TRUE(IsProgressOver());
    data.done = false;
    data.submitState = kWorkerFinished;
    EXPECT_TRUE(IsProgressOver());
}

TEST_F(Progress, EndsByItsFlag) {
    EndProgress();
    EXPECT_TRUE(data.done);
}

} // namespace
} // namespace test
} // namespace orv
