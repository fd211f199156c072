// Questions and checks that a submission passes, and what a check that ends it leaves behind. The
// endings themselves are rows of the table.
#include "tests/unit/submit/submission_test.h"

#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/box_languages.h"
#include "tests/support/message_box_watcher.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

using ::testing::ElementsAre;

// What passes comes as far as the saving, which fails.
class SubmitJobEnd : public SubmissionTest {
protected:
    SubmitJobEnd() {
        data_.progressState = kWorkerRunning;
        host_.onSaveTo = [this](const std::wstring& path) {
            WriteFileBytes(path, kSceneBytes);
            return false;
        };
    }

    std::vector<SeenMessageBox> submitAnswering(int answer) {
        MessageBoxWatcher watcher(L"", {answer});
        result_ = submit();
        return watcher.stop();
    }
    // The languages of the boxes of a submission whose language marker is that of another language.
    std::vector<WORD> languagesOfAnother(const std::vector<int>& answers, HWND dialog) {
        MessageBoxWatcher watcher(L"", answers);
        const BoxLanguages languages;
        SubmitJob(dialog, kTestCaption, L"0", L"1");
        return BoxLanguages::asked();
    }
    // The limits that the analysis found, and what the fields of the dialog say.
    void setCoronaLimits(const wchar_t* passes, const wchar_t* hours, const wchar_t* noise) {
        data_.analysis.coronaState = CoronaLimitState::Limited;
        data_.analysis.coronaPassLimit = 77;
        data_.analysis.coronaTimeLimitHours = 2.0;
        data_.analysis.coronaTimeLimitSeconds = 7200;
        data_.analysis.coronaNoiseLimit = 8.0;
        dialog_.setText(IDC_PASS_LIMIT, passes);
        dialog_.setText(IDC_TIME_LIMIT, hours);
        dialog_.setText(IDC_NOISE_LEVEL, noise);
    }
    void expectCoronaLimits(std::int32_t passes, double hours, std::int32_t seconds,
                            double noise) const {
        EXPECT_EQ(data_.analysis.coronaPassLimit, passes);
        EXPECT_EQ(data_.analysis.coronaTimeLimitHours, hours);
        EXPECT_EQ(data_.analysis.coronaTimeLimitSeconds, seconds);
        EXPECT_EQ(data_.analysis.coronaNoiseLimit, noise);
        EXPECT_TRUE(data_.analysis.useCorona);
    }

    std::int32_t result_ = 1;
};

TEST_F(SubmitJobEnd, NotWhenTheUserGoesOnWithoutACheckedCamera) {
    dialog_.setCameras({{L"Cam", false}});
    const std::vector<SeenMessageBox> boxes = submitAnswering(IDOK);
    EXPECT_EQ(result_, kSubmitEnded);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_NO_CAMERA_TICKED));
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(boxes[1].text, ResourceText(IDS_SCENE_NOT_SAVED)) << "it went on to the saving";
    EXPECT_FALSE(data_.hide);
}

TEST_F(SubmitJobEnd, NotAtANegativeFrame) {
    data_.analysis.cameras[L"Cam"].startFrame = -1;
    const std::vector<SeenMessageBox> boxes = submitAnswering(IDOK);
    EXPECT_EQ(result_, kSubmitEnded);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_SCENE_NOT_SAVED)) << "it went on to the saving";
}

TEST_F(SubmitJobEnd, NotWhenTheUserReplacesAnotherScene) {
    const std::wstring another = folder_.file(L"shot.max");
    WriteFileBytes(another, "another scene");
    const std::vector<SeenMessageBox> boxes = submitAnswering(IDYES);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].defaultButton, IDNO) << "Enter keeps the other scene";
    EXPECT_EQ(boxes[1].text, ResourceText(IDS_SCENE_NOT_SAVED));
    EXPECT_EQ(ReadFileBytes(another), kSceneBytes);
}

TEST_F(SubmitJobEnd, AtTheCoronaGateLeavesCoronaInUse) {
    data_.analysis.coronaState = CoronaLimitState::NothingLimited;
    EXPECT_EQ(submitAnswering(IDOK).size(), 1U);
    EXPECT_EQ(result_, kSubmitFailed);
    EXPECT_TRUE(data_.analysis.useCorona) << "set whether or not there are limits";
}

// Each check has its message: the first that fails is the one that is shown.
TEST_F(SubmitJobEnd, AtTheFirstOfItsChecksThatFails) {
    dialog_.setCameras({{L"a%b", true}});
    data_.analysis.coronaState = CoronaLimitState::NothingLimited;
    dialog_.setText(IDC_SCENE_NAME, L"shot.");
    std::vector<SeenMessageBox> boxes = submitAnswering(IDOK);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_CAMERA_NAMES_UNUSABLE));
    dialog_.setCameras({{L"Cam", true}});
    boxes = submitAnswering(IDOK);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_CORONA_WITHOUT_LIMITS));
    data_.analysis.coronaState = CoronaLimitState::NoLimits;
    dialog_.check(IDC_COLOR_CHANNEL);
    boxes = submitAnswering(IDOK);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_SCENE_NAME_UNUSABLE));
    EXPECT_TRUE(data_.analysis.colorChannel) << "taken before the name is checked";
}

TEST_F(SubmitJobEnd, TakesAllCoronaLimitsWhereOneIsSet) {
    setCoronaLimits(L"5", L"0", L"0");
    submitAnswering(IDOK);
    expectCoronaLimits(5, 0.0, 0, 0.0);
    setCoronaLimits(L"0", L"0.5", L"0");
    submitAnswering(IDOK);
    expectCoronaLimits(0, 0.5, 1800, 0.0);
    setCoronaLimits(L"0", L"0", L"0.5");
    submitAnswering(IDOK);
    expectCoronaLimits(0, 0.0, 0, 0.5);
}

TEST_F(SubmitJobEnd, KeepsTheAnalysedCoronaLimitsWhereNoneIsSet) {
    setCoronaLimits(L"0.9", L"0.0", L"0"); // whole passes
    submitAnswering(IDOK);
    expectCoronaLimits(77, 2.0, 7200, 8.0);
}

TEST_F(SubmitJobEnd, ShowsItsBoxesInTheLanguageOfTheMarker) {
    dialog_.setCameras({{L"Cam", false}});
    WriteFileBytes(folder_.file(L"shot.max"), "another scene");
    // No camera, the other scene, not saved.
    EXPECT_THAT(languagesOfAnother({IDOK, IDYES, IDOK}, dialog_.handle()), ElementsAre(1, 1, 1));
    host_.onSaveTo = [](const std::wstring&) -> bool {
        throw std::runtime_error("the host broke");
    };
    EXPECT_THAT(languagesOfAnother({IDOK, IDYES, IDOK}, dialog_.handle()), ElementsAre(1, 1, 1));
    // Asked for over the dialog that is gone, then without an owner.
    HWND gone = reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFFFFF0));
    EXPECT_THAT(languagesOfAnother({IDOK}, gone), ElementsAre(1, 1));
}

TEST_F(SubmitJobEnd, TouchesNoProgressThatIsNotThere) {
    data_.progressState = kWorkerNone;
    dialog_.setCameras({{L"a%b", true}});
    EXPECT_EQ(submitAnswering(IDOK).size(), 1U);
    EXPECT_FALSE(data_.done);
}

} // namespace
} // namespace test
} // namespace orv
