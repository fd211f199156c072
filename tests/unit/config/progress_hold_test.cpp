#include "config/progress_hold.h"

#include "tests/unit/config/plugin_data_fixture.h"

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

TEST_F(Progress, EndsByItsFlag) {
    EndProgress();
    EXPECT_TRUE(data.done);
}

} // namespace
} // namespace test
} // namespace orv
