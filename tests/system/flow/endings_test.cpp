// Submissions that end for what was chosen, for the scene's name and folder, or for what the client
// says.
#include "analysis/text/paths.h"
#include "resources/controls.h"
#include "tests/support/import_patch.h"
#include "tests/system/flow/ending.h"

#include <memory>

namespace orv {
namespace test {
namespace {

HRESULT WINAPI NoGuid(GUID*) {
    return E_FAIL;
}

// What was chosen, and the scene's own name, stay as they are in the same host.
Arrangement Unmended(const char* name) {
    Arrangement how(name);
    how.submitsAgain = false;
    return how;
}

Arrangement Typed(const char* name, const std::wstring& sceneName) {
    Arrangement how = Unmended(name);
    how.sceneName = sceneName;
    return how;
}

Arrangement UnusableCameraName() {
    Arrangement how = Unmended("UnusableCameraName");
    how.before = [](EndingTest& flow) {
        flow.host_.scene["cameras"] = Json::Value(Json::arrayValue);
        flow.host_.scene["cameras"].append("50%");
    };
    return how;
}

Arrangement NoCameraAndCancel() {
    Arrangement how = Unmended("NoCameraAndCancel");
    how.before = [](EndingTest& flow) { flow.ticksACamera = false; };
    return how;
}

Arrangement CoronaWithoutLimits() {
    Arrangement how = Unmended("CoronaWithoutLimits");
    how.before = [](EndingTest& flow) {
        Json::Value& renderer = flow.host_.scene["renderer"];
        renderer["name"] = "CoronaRenderer";
        renderer["properties"]["adaptivity_targetError"] = 0.0;
        for (const char* limit : {"progressive_passLimit", "progressive_timeLimit"})
            renderer["properties"][limit] = 0;
    };
    return how;
}

Arrangement RefusedSave() {
    Arrangement how = Typed("RefusedSave", L"another name"); // under its own it is not saved
    how.before = [](EndingTest& flow) { flow.host_.scene["refuse_save"] = true; };
    return how;
}

Arrangement AnotherSceneKept() {
    Arrangement how("AnotherSceneKept");
    how.sceneName = L"other";
    how.arrange = [](EndingTest& flow) {
        flow.sceneInMessage = FolderPart(flow.scenePath()) + L"other.max";
        WriteFileBytes(flow.sceneInMessage, "another scene");
    };
    how.mend = [](EndingTest& flow) {
        EXPECT_EQ(ReadFileBytes(flow.sceneInMessage), "another scene");
        DeleteTree(flow.sceneInMessage);
        Type(flow.dialog_, IDC_SCENE_NAME, L"room");
    };
    return how;
}

Arrangement NoGuidToBeHad() {
    Arrangement how("NoGuid");
    const auto patch = std::make_shared<std::unique_ptr<ImportPatch>>();
    how.arrange = [patch](EndingTest&) {
        *patch =
            std::make_unique<ImportPatch>(::GetModuleHandleW(L"OrvRendering.gup"), "CoCreateGuid",
                                          reinterpret_cast<ULONGLONG>(&NoGuid));
    };
    how.mend = [patch](EndingTest&) { patch->reset(); };
    return how;
}

Arrangement SceneWithoutAFolder() {
    // The scene keeps its name, and no folder is needed to save it.
    Arrangement how = Typed("SceneWithoutAFolder", L"");
    how.before = [](EndingTest& flow) { flow.host_.scene["told_path"] = "room.max"; };
    return how;
}

Arrangement ArchivePathTooLong() {
    Arrangement how = Typed("ArchivePathTooLong", std::wstring(110, L'n'));
    how.before = [](EndingTest& flow) { flow.host_.sceneName = std::wstring(110, L'n') + L".max"; };
    return how;
}

Arrangement JobFolderThatCannotBeMade() {
    Arrangement how = Unmended("JobFolderThatCannotBeMade");
    how.before = [](EndingTest& flow) {
        WriteFileBytes(flow.outputFolder() + L"\\json", "a file where the folder should be");
    };
    return how;
}

std::vector<Arrangement> Arrangements() {
    return {UnusableCameraName(),
            NoCameraAndCancel(),
            CoronaWithoutLimits(),
            Typed("SceneNameEndsInAStop", L"room."),
            Typed("SceneNameEndsInABlank", L"room "),
            RefusedSave(),
            Typed("NameOfAStream", L"a:b"),
            Typed("NameOfADevice", L"con"),
            AnotherSceneKept(),
            NoGuidToBeHad(),
            SceneWithoutAFolder(),
            ArchivePathTooLong(),
            JobFolderThatCannotBeMade()};
}

TEST(EndingsOfASubmission, AreAllArranged) {
    ExpectAllArranged(EndingCause::Submission, Arrangements());
}

INSTANTIATE_TEST_SUITE_P(OfASubmission, EndingTest,
                         ::testing::ValuesIn(Arranged(EndingCause::Submission, Arrangements())),
                         NameOfEnding);

} // namespace
} // namespace test
} // namespace orv
