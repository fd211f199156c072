// The ways in which a submission ends before the client has the job.
#include "tests/unit/submit/submission_test.h"

#include "config/dialog_choices.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/message_box_watcher.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace orv {
namespace test {
namespace {

using ::testing::IsEmpty;

class SubmitJobEnd : public SubmissionTest {
protected:
    SubmitJobEnd() { data_.progressState = kWorkerRunning; }

    // Submits, answering the box that is expected with `answer`.
    std::int32_t submitToBox(unsigned textId, int answer = IDOK) {
        MessageBoxWatcher watcher(kTestCaption, {answer});
        const std::int32_t result = submit();
        const std::vector<SeenMessageBox> boxes = watcher.stop();
        EXPECT_EQ(boxes.size(), 1U);
        if (boxes.size() == 1) {
            EXPECT_EQ(boxes[0].text, ResourceText(textId));
            EXPECT_EQ(boxes[0].owner, dialog_.handle());
            EXPECT_EQ(boxes[0].answer, answer);
        }
        return result;
    }

    void expectNothingDone() const {
        EXPECT_THAT(host_.savedPaths(), IsEmpty());
        EXPECT_FALSE(PathExists(outputFolder()));
    }
};

TEST_F(SubmitJobEnd, AtACameraNameThatCannotBeUsed) {
    dialog_.setCameras({{L"a%b", true}});
    EXPECT_EQ(submitToBox(IDS_CAMERA_NAMES_UNUSABLE), kSubmitFailed);
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.isOpen());
    expectNothingDone();
}

TEST_F(SubmitJobEnd, WhenTheUserCancelsForWantOfACheckedCamera) {
    dialog_.setCameras({{L"Cam", false}});
    EXPECT_EQ(submitToBox(IDS_NO_CAMERA_TICKED, IDCANCEL), kSubmitFailed);
    EXPECT_TRUE(data_.done);
    EXPECT_FALSE(data_.hide) << "for the length of the question only";
    EXPECT_TRUE(dialog_.isOpen());
    expectNothingDone();
}

TEST_F(SubmitJobEnd, NotWhenTheUserGoesOnWithoutACheckedCamera) {
    dialog_.setCameras({{L"Cam", false}});
    host_.onSaveTo = [](const std::wstring&) { return false; };
    MessageBoxWatcher watcher(kTestCaption, {IDOK});
    EXPECT_EQ(submit(), kSubmitEnded);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_NO_CAMERA_TICKED));
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_EQ(boxes[1].text, ResourceText(IDS_SCENE_NOT_SAVED)) << "it went on to the saving";
    EXPECT_FALSE(data_.hide);
}

TEST_F(SubmitJobEnd, NotAtANegativeFrame) {
    data_.analysis.cameras[L"Cam"].startFrame = -1;
    host_.onSaveTo = [](const std::wstring&) { return false; };
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded) << "it went on to the saving";
}

TEST_F(SubmitJobEnd, AtTheCoronaGate) {
    data_.analysis.coronaState = CoronaLimitState::NothingLimited;
    MessageBoxWatcher watcher(ResourceText(IDS_CAPTION_CHECK));
    EXPECT_EQ(submit(), kSubmitFailed);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_CORONA_WITHOUT_LIMITS));
    EXPECT_TRUE(data_.analysis.useCorona) << "set whether or not there are limits";
    EXPECT_TRUE(dialog_.isOpen());
    expectNothingDone();
}

TEST_F(SubmitJobEnd, AtASceneNameThatCannotBeUsed) {
    dialog_.setText(IDC_SCENE_NAME, L"shot.");
    EXPECT_EQ(submitToBox(IDS_SCENE_NAME_UNUSABLE), kSubmitFailed);
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.waitForEnd());
    EXPECT_EQ(dialog_.result(), 0);
    expectNothingDone();
}

// A name that Windows would take for something else than a file beside the scene.
class MisleadingSceneName : public SubmitJobEnd,
                            public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(MisleadingSceneName, SavesNothingAnywhere) {
    dialog_.setText(IDC_SCENE_NAME, GetParam());
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded);
    EXPECT_TRUE(dialog_.isOpen());
    EXPECT_EQ(ListFolder(folder_.path()), std::vector<std::wstring>{L"room.max"});
    EXPECT_NE(log().find("[ERROR] Save scene: the name is no file's: "), std::string::npos);
    expectNothingDone();
}

INSTANTIATE_TEST_SUITE_P(Names, MisleadingSceneName,
                         ::testing::Values(L"a:b", L"sub\\shot", L"../shot", L"D:\\shot", L"con",
                                           L"LPT1.v2", L"a*b", L"a\"b"));

class UnusableSceneName : public SubmitJobEnd,
                          public ::testing::WithParamInterface<const wchar_t*> {};

TEST_P(UnusableSceneName, EndsTheSubmission) {
    dialog_.setText(IDC_SCENE_NAME, GetParam());
    EXPECT_EQ(submitToBox(IDS_SCENE_NAME_UNUSABLE), kSubmitFailed);
    EXPECT_TRUE(dialog_.waitForEnd());
    expectNothingDone();
}

INSTANTIATE_TEST_SUITE_P(Names, UnusableSceneName,
                         ::testing::Values(L"shot ", L"sh`ot", L"shot..max", L"shot .max",
                                           L"shot.max.", L" "));

TEST_F(SubmitJobEnd, WhenTheHostDoesNotSave) {
    host_.onSaveTo = [](const std::wstring&) { return false; };
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded);
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.isOpen());
    EXPECT_FALSE(PathExists(outputFolder()));
}

TEST_F(SubmitJobEnd, ForASceneThatWasNeverSaved) {
    host_.sceneFilePath.clear();
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded);
    EXPECT_EQ(dialog_.text(IDC_SCENE_NAME), L"shot") << "what was typed stays";
    expectNothingDone();
}

TEST_F(SubmitJobEnd, ForASceneWithoutAFolder) {
    host_.sceneFilePath = L"room.max";
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded);
    dialog_.setText(IDC_SCENE_NAME, L"");
    EXPECT_EQ(submitToBox(IDS_SCENE_NOT_SAVED), kSubmitEnded);
}

TEST_F(SubmitJobEnd, WhenTheSceneCannotBePacked) {
    // The scene keeps a name of its own that no archive can have.
    host_.sceneFilePath = folder_.file(L"room..max");
    dialog_.setText(IDC_SCENE_NAME, L"");
    EXPECT_EQ(submitToBox(IDS_SCENE_NAME_UNUSABLE), kSubmitFailed);
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.waitForEnd());
}

TEST_F(SubmitJobEnd, WhenTheJobCannotBeDescribed) {
    data_.analysis.reportText = L"no JSON";
    MessageBoxWatcher watcher(ResourceText(IDS_CAPTION));
    EXPECT_EQ(submit(), kSubmitFailed);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_JOB_NOT_WRITTEN));
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.isOpen());
}

TEST_F(SubmitJobEnd, WhenNoClientListens) {
    usePort(1); // nothing listens there
    MessageBoxWatcher watcher;
    EXPECT_EQ(submit(), kSubmitEnded);
    EXPECT_EQ(watcher.stop().size(), 1U);
    EXPECT_TRUE(dialog_.isOpen());
    EXPECT_NE(product_.log(L"rud_http").find("connect error, Error Code is: 10061"),
              std::string::npos);
}

TEST_F(SubmitJobEnd, TouchesNoProgressThatIsNotThere) {
    data_.progressState = kWorkerNone;
    dialog_.setCameras({{L"a%b", true}});
    submitToBox(IDS_CAMERA_NAMES_UNUSABLE);
    EXPECT_FALSE(data_.done);
}

TEST_F(SubmitJobEnd, WhenTheDialogIsGoneAndNothingIsKnownOfItsChoices) {
    HWND gone = reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFFFFF0));
    MessageBoxWatcher watcher(kTestCaption);
    EXPECT_EQ(SubmitJob(gone, kTestCaption, L"", L"0"), kSubmitFailed);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_CHOICES_NOT_READ));
    EXPECT_TRUE(data_.done);
    EXPECT_NE(log().find("[ERROR] The choices of the dialog could not be read."),
              std::string::npos);
    expectNothingDone();
}

TEST_F(SubmitJobEnd, WithoutACameraTable) {
    dialog_.takeAway(IDC_CAMERAS);
    host_.onSaveTo = [](const std::wstring&) { return false; };
    EXPECT_EQ(submitToBox(IDS_CHOICES_NOT_READ), kSubmitFailed);
    expectNothingDone();
}

TEST_F(SubmitJobEnd, WithAMessageAfterAnUnexpectedError) {
    host_.onSaveTo = [](const std::wstring&) -> bool {
        throw std::runtime_error("the host broke");
    };
    EXPECT_EQ(submitToBox(IDS_SUBMISSION_BROKEN_OFF), kSubmitFailed);
    EXPECT_TRUE(data_.done);
    EXPECT_FALSE(data_.hide);
    EXPECT_NE(log().find("[ERROR] Submission: unexpected error: the host broke"),
              std::string::npos);
    EXPECT_TRUE(dialog_.isOpen());
}

class AnotherScene : public SubmitJobEnd {
protected:
    AnotherScene() {
        WriteFileBytes(another_, "another scene");
        host_.onSaveTo = [this](const std::wstring& path) {
            WriteFileBytes(path, kSceneBytes);
            return false; // the rest of the submission is no matter here
        };
    }

    std::vector<SeenMessageBox> submitAnswering(int answer) {
        MessageBoxWatcher watcher(kTestCaption, {answer});
        result_ = submit();
        return watcher.stop();
    }

    const std::wstring another_ = folder_.file(L"shot.max");
    std::int32_t result_ = 1;
};

TEST_F(SubmitJobEnd, WhenAnotherSceneWasOpenedMeanwhile) {
    SubmissionChoices choices;
    ASSERT_TRUE(TakeChoices(dialog_.handle(), choices));
    choices.analysis = data_.analysis;
    choices.openScene = host_.sceneFilePath;
    host_.sceneFilePath = folder_.file(L"other.max");
    WriteFileBytes(host_.sceneFilePath, "another scene");
    MessageBoxWatcher watcher(kTestCaption);
    EXPECT_EQ(SubmitJob(std::move(choices), dialog_.handle(), kTestCaption, L"", L"0"),
              kSubmitEnded);
    ASSERT_EQ(watcher.stop().size(), 1U);
    EXPECT_EQ(ReadFileBytes(host_.sceneFilePath), "another scene");
    EXPECT_FALSE(PathExists(folder_.file(L"shot.max"))) << "nothing was saved";
    EXPECT_NE(log().find("[ERROR] Submission: another scene was opened meanwhile."),
              std::string::npos);
}

TEST_F(AnotherScene, StaysWhenTheUserDoesNotReplaceIt) {
    const std::vector<SeenMessageBox> boxes = submitAnswering(IDNO);
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_SCENE_REPLACED) + L"\n\n" + another_);
    EXPECT_EQ(boxes[0].buttons, (std::vector<int>{IDYES, IDNO}));
    EXPECT_EQ(result_, kSubmitEnded);
    EXPECT_EQ(ReadFileBytes(another_), "another scene");
    EXPECT_TRUE(data_.done);
    EXPECT_TRUE(dialog_.isOpen());
    expectNothingDone();
}

TEST_F(AnotherScene, IsReplacedWhenTheUserSaysSo) {
    const std::vector<SeenMessageBox> boxes = submitAnswering(IDYES);
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[1].text, ResourceText(IDS_SCENE_NOT_SAVED));
    EXPECT_EQ(ReadFileBytes(another_), kSceneBytes);
}

} // namespace
} // namespace test
} // namespace orv
