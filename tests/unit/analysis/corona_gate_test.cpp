#include "analysis/submission_checks.h"

#include "config/plugin_data.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

struct GateCase {
    CoronaLimitState state;
    double noise;
    std::int32_t passes;
    std::int32_t seconds;
    int answer;
};

class CoronaGate : public ::testing::Test {
protected:
    ~CoronaGate() override {
        data_.analysis = SceneAnalysis();
        data_.progressState = kWorkerNone;
        data_.done = false;
    }

    void set(const GateCase& gate) {
        data_.analysis.coronaState = gate.state;
        data_.analysis.coronaNoiseLimit = gate.noise;
        data_.analysis.coronaPassLimit = gate.passes;
        data_.analysis.coronaTimeLimitSeconds = gate.seconds;
    }

    TestProductFolder product_;
    PluginData& data_ = PluginData::instance();
};

const GateCase kGates[] = {
    {CoronaLimitState::NoLimits, 0.0, 0, 0, kCoronaGoOn},
    {CoronaLimitState::NoLimits, 0.05, 1, 1, kCoronaGoOn},
    {CoronaLimitState::NothingLimited, 0.0, 0, 0, kCoronaStop},
    {CoronaLimitState::NothingLimited, -0.0, 0, 0, kCoronaStop},
    {CoronaLimitState::NothingLimited, 0.05, 0, 0, kCoronaGoOn},
    {CoronaLimitState::NothingLimited, 0.0, 1, 0, kCoronaGoOn},
    {CoronaLimitState::NothingLimited, 0.0, 0, 1, kCoronaGoOn},
    {CoronaLimitState::OnlyTimeLimited, 0.0, 0, 0, kCoronaStop},
    {CoronaLimitState::OnlyTimeLimited, 0.05, 0, 0, kCoronaGoOn},
    {CoronaLimitState::OnlyTimeLimited, -0.05, 0, 0, kCoronaGoOn},
    {CoronaLimitState::OnlyTimeLimited, 0.0, -1, 0, kCoronaGoOn},
    {CoronaLimitState::OnlyTimeLimited, 0.0, 0, -1, kCoronaGoOn},
    {CoronaLimitState::OnlyTimeLimited, 0.0, 0, 3600, kCoronaGoOn},
    {CoronaLimitState::Limited, 0.0, 0, 0, kCoronaGoOn},
    {CoronaLimitState::Limited, 0.05, 1, 1, kCoronaGoOn},
};

TEST_F(CoronaGate, StopsOnlyASceneWithoutAnyLimit) {
    for (const GateCase& gate : kGates) {
        set(gate);
        MessageBoxWatcher watcher(ResourceText(IDS_CAPTION_CHECK));
        EXPECT_EQ(CheckCoronaLimits(nullptr), gate.answer);
        const std::vector<SeenMessageBox> boxes = watcher.stop();
        ASSERT_EQ(boxes.size(), gate.answer == kCoronaStop ? 1U : 0U);
        for (const SeenMessageBox& box : boxes) {
            EXPECT_EQ(box.text, ResourceText(IDS_CORONA_WITHOUT_LIMITS));
            EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
        }
    }
}

TEST_F(CoronaGate, TakesTheProgressWindowAwayBeforeItsMessage) {
    set({CoronaLimitState::NothingLimited, 0.0, 0, 0, kCoronaStop});
    data_.progressState = kWorkerRunning;
    MessageBoxWatcher watcher;
    CheckCoronaLimits(nullptr);
    EXPECT_TRUE(data_.done);
}

} // namespace
} // namespace test
} // namespace orv
