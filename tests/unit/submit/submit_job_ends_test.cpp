// Questions and checks that a submission passes, and what a check that ends it leaves behind. The
// endings themselves are rows of the table.
#include "tests/unit/submit/submission_test.h"

#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/message_box_watcher.h"

#include <gtest/gtest.h>

namespace orv {
namespace test {
namespace {

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
    EXPECT_EQ(boxes[1].text, ResourceText(IDS_SCENE_NOT_SAVED));
    EXPECT_EQ(ReadFileBytes(another), kSceneBytes);
}

TEST_F(SubmitJobEnd, AtTheCoronaGateLeavesCoronaInUse) {
    data_.analysis.coronaState = CoronaLimitState::NothingLimited;
    EXPECT_EQ(submitAnswering(IDOK).size(), 1U);
    EXPECT_EQ(result_, kSubmitFailed);
    EXPECT_TRUE(data_.analysis.useCorona) << "set whether or not there are limits";
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
