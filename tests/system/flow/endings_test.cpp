// Submissions that end for what was chosen, for the scene's name and folder, or for what the client
// says.
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/system/flow/ending.h"
#include "tests/system/flow/import_patch.h"

#include <memory>

namespace orv {
namespace test {
namespace {

HRESULT WINAPI NoGuid(GUID*) {
    return E_FAIL;
}

// What was chosen, and the scene's own name, stay as they are in the same host.
Ending Row(const char* name) {
    Ending ending(name);
    ending.submitsAgain = false;
    return ending;
}

Ending UnusableCameraName() {
    Ending row = Row("UnusableCameraName");
    row.before = [](EndingTest& flow) {
        flow.host_.scene["cameras"] = Json::Value(Json::arrayValue);
        flow.host_.scene["cameras"].append("50%");
    };
    row.textId = IDS_CAMERA_NAMES_UNUSABLE;
    row.result = -1;
    row.logName = L"rud_ui";
    row.logLine = "[ERROR] The camera names to render contain invalid characters or empty!";
    return row;
}

Ending NoCameraAndCancel() {
    Ending row = Row("NoCameraAndCancel");
    row.before = [](EndingTest& flow) { flow.ticksACamera = false; };
    row.textId = IDS_NO_CAMERA_TICKED;
    row.button = IDCANCEL;
    row.result = -1;
    row.logName = L"rud_ui";
    row.logLine = "[ERROR] No camera checked!";
    return row;
}

Ending CoronaWithoutLimits() {
    Ending row = Row("CoronaWithoutLimits");
    row.before = [](EndingTest& flow) {
        Json::Value& renderer = flow.host_.scene["renderer"];
        renderer["name"] = "CoronaRenderer";
        renderer["properties"]["adaptivity_targetError"] = 0.0;
        for (const char* limit : {"progressive_passLimit", "progressive_timeLimit"})
            renderer["properties"][limit] = 0;
    };
    row.textId = IDS_CORONA_WITHOUT_LIMITS;
    row.captionId = IDS_CAPTION_CHECK;
    row.result = -1;
    row.logLine = "[ERROR] Corona has no limits, the submission is stopped.";
    return row;
}

Ending UnusableSceneName(const char* name, const wchar_t* typed) {
    Ending row = Row(name);
    row.sceneName = typed;
    row.textId = IDS_SCENE_NAME_UNUSABLE;
    row.closesDialog = true;
    row.result = -1;
    row.logLine = "[ERROR] Submission: the scene's name cannot be used.";
    return row;
}

Ending RefusedSave() {
    Ending row = Row("RefusedSave");
    row.before = [](EndingTest& flow) { flow.host_.scene["refuse_save"] = true; };
    row.sceneName = L"another name"; // under its own name the scene is not saved
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Save scene to ";
    return row;
}

Ending NameOfAnotherPlace(const char* name, const wchar_t* typed) {
    Ending row = Row(name);
    row.sceneName = typed;
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Save scene: the name is no file's: ";
    return row;
}

Ending NoGuidToBeHad() {
    Ending row = Row("NoGuid");
    const auto patch = std::make_shared<std::unique_ptr<ImportPatch>>();
    row.arrange = [patch](EndingTest&) {
        *patch =
            std::make_unique<ImportPatch>(::GetModuleHandleW(L"OrvRendering.gup"), "CoCreateGuid",
                                          reinterpret_cast<ULONGLONG>(&NoGuid));
    };
    row.mend = [patch](EndingTest&) { patch->reset(); };
    row.submitsAgain = true;
    row.silent = true;
    row.logName = L"rud_http";
    row.logLine = "[ERROR] The GUID generate failed!";
    return row;
}

Ending SceneWithoutAFolder() {
    Ending row = Row("SceneWithoutAFolder");
    row.before = [](EndingTest& flow) { flow.host_.scene["told_path"] = "room.max"; };
    row.sceneName = L""; // the scene keeps its name, and no folder is needed to save it
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Submission: the scene has no folder.";
    return row;
}

Ending ArchivePathTooLong() {
    Ending row = Row("ArchivePathTooLong");
    row.sceneName = std::wstring(110, L'n');
    row.before = [](EndingTest& flow) { flow.host_.sceneName = std::wstring(110, L'n') + L".max"; };
    row.textId = IDS_SCENE_NAME_UNUSABLE;
    row.closesDialog = true;
    row.result = -1;
    row.logLine = "[ERROR] Pack scene: the archive's path is too long: ";
    return row;
}

Ending JobFolderThatCannotBeMade() {
    Ending row = Row("JobFolderThatCannotBeMade");
    row.before = [](EndingTest& flow) {
        WriteFileBytes(flow.outputFolder() + L"\\json", "a file where the folder should be");
    };
    row.textId = IDS_JOB_NOT_WRITTEN;
    row.result = -1;
    row.logLine = "[ERROR] Open json file failed when write it!";
    return row;
}

INSTANTIATE_TEST_SUITE_P(
    OfASubmission, EndingTest,
    ::testing::Values(UnusableCameraName(), NoCameraAndCancel(), CoronaWithoutLimits(),
                      UnusableSceneName("SceneNameEndsInAStop", L"room."),
                      UnusableSceneName("SceneNameEndsInABlank", L"room "), RefusedSave(),
                      NameOfAnotherPlace("NameOfAStream", L"a:b"),
                      NameOfAnotherPlace("NameOfADevice", L"con"), NoGuidToBeHad(),
                      SceneWithoutAFolder(), ArchivePathTooLong(), JobFolderThatCannotBeMade()),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
