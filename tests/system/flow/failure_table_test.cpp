// Every way in which a submission ends before the client has accepted it: what the user sees, what
// becomes of the dialog, the result, and what the log says.
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/system/flow/flow.h"
#include "tests/system/flow/import_patch.h"

#include <functional>

namespace orv {
namespace test {
namespace {

class FailureTable;

struct Failure {
    const char* name;
    std::function<void(FailureTable&)> arrange; // before the dialog opens
    std::wstring sceneName = L"room";           // typed
    unsigned textId = 0;                        // of the message; 0: none comes
    std::wstring textBehind;                    // what follows that text
    int button = IDOK;
    bool closesDialog = false;
    int result = 0;
    const wchar_t* logName = L"rud_data";
    const char* logLine = "";
    unsigned captionId = IDS_CAPTION;
};

void PrintTo(const Failure& failure, std::ostream* stream) {
    *stream << failure.name;
}

class FailureTable : public SubmissionFlow, public ::testing::WithParamInterface<Failure> {
public:
    using SubmissionFlow::host_;
    using SubmissionFlow::outputFolder;
    using SubmissionFlow::startClient;

    bool ticksACamera = true;
    bool guidFails = false;
};

HRESULT WINAPI NoGuid(GUID*) {
    return E_FAIL;
}

TEST_P(FailureTable, IsWhatTheUserAndTheLogAreTold) {
    const Failure& failure = GetParam();
    if (failure.arrange)
        failure.arrange(*this);
    if (!client_) {
        ASSERT_NO_FATAL_FAILURE(startClient());
    }
    ASSERT_NO_FATAL_FAILURE(open(failure.sceneName, ticksACamera));
    // The host would be asked to save before the submission begins; here it shall be asked within.
    ::CheckDlgButton(dialog_, IDC_SAVE_SCENE_FILE, BST_UNCHECKED);
    std::unique_ptr<ImportPatch> patch;
    if (guidFails)
        patch = std::make_unique<ImportPatch>(::GetModuleHandleW(L"OrvRendering.gup"),
                                              "CoCreateGuid", reinterpret_cast<ULONGLONG>(&NoGuid));

    submit();
    if (failure.textId != 0) {
        const MessageSeen message = answer(failure.button);
        EXPECT_EQ(message.text,
                  failure.textBehind.empty() || failure.textId == IDS_CLIENT_UNREACHABLE
                      ? text(failure.textId) + failure.textBehind
                      : failure.textBehind);
        EXPECT_EQ(message.caption, text(failure.captionId));
        EXPECT_EQ(message.owner, dialog_);
        EXPECT_TRUE(message.isAlone) << "the progress window stands beside the message";
    }
    const int code = result();
    EXPECT_EQ(code, failure.result);
    if (failure.closesDialog) {
        EXPECT_TRUE(dialogCloses());
    } else {
        EXPECT_TRUE(dialogStays());
    }
    EXPECT_TRUE(logHas(failure.logName, failure.logLine)) << log(failure.logName);
    expectNothingLostOrLeft();
    std::cout << "row: " << failure.name << " | message " << failure.textId << " | dialog "
              << (failure.closesDialog ? "closed" : "stays") << " | result " << code << " | "
              << WideToUtf8(failure.logName) << ": " << failure.logLine << "\n";
}

Failure Row(const char* name) {
    Failure failure;
    failure.name = name;
    return failure;
}

Failure UnusableCameraName() {
    Failure row = Row("UnusableCameraName");
    row.arrange = [](FailureTable& flow) {
        flow.host_.scene["cameras"] = Json::Value(Json::arrayValue);
        flow.host_.scene["cameras"].append("50%");
    };
    row.textId = IDS_CAMERA_NAMES_UNUSABLE;
    row.result = -1;
    row.logName = L"rud_ui";
    row.logLine = "[ERROR] The camera names to render contain invalid characters or empty!";
    return row;
}

Failure NoCameraAndCancel() {
    Failure row = Row("NoCameraAndCancel");
    row.arrange = [](FailureTable& flow) { flow.ticksACamera = false; };
    row.textId = IDS_NO_CAMERA_TICKED;
    row.button = IDCANCEL;
    row.result = -1;
    row.logName = L"rud_ui";
    row.logLine = "[ERROR] No camera checked!";
    return row;
}

Failure CoronaWithoutLimits() {
    Failure row = Row("CoronaWithoutLimits");
    row.arrange = [](FailureTable& flow) {
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

Failure UnusableSceneName(const char* name, const wchar_t* typed) {
    Failure row = Row(name);
    row.sceneName = typed;
    row.textId = IDS_SCENE_NAME_UNUSABLE;
    row.closesDialog = true;
    row.result = -1;
    row.logLine = "[ERROR] Submission: the scene's name cannot be used.";
    return row;
}

Failure RefusedSave() {
    Failure row = Row("RefusedSave");
    row.arrange = [](FailureTable& flow) { flow.host_.scene["refuse_save"] = true; };
    row.sceneName = L"another name"; // under its own name the scene is not saved
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Save scene to ";
    return row;
}

Failure NameOfAnotherPlace(const char* name, const wchar_t* typed) {
    Failure row = Row(name);
    row.sceneName = typed;
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Save scene: the name is no file's: ";
    return row;
}

Failure NoGuidToBeHad() {
    Failure row = Row("NoGuid");
    row.arrange = [](FailureTable& flow) { flow.guidFails = true; };
    row.logName = L"rud_http";
    row.logLine = "[ERROR] The GUID generate failed!";
    return row;
}

Failure SceneWithoutAFolder() {
    Failure row = Row("SceneWithoutAFolder");
    row.arrange = [](FailureTable& flow) { flow.host_.scene["told_path"] = "room.max"; };
    row.sceneName = L""; // the scene keeps its name, and no folder is needed to save it
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Submission: the scene has no folder.";
    return row;
}

Failure ArchivePathTooLong() {
    Failure row = Row("ArchivePathTooLong");
    row.sceneName = std::wstring(110, L'n');
    row.arrange = [](FailureTable& flow) {
        flow.host_.sceneName = std::wstring(110, L'n') + L".max";
    };
    row.textId = IDS_SCENE_NAME_UNUSABLE;
    row.closesDialog = true;
    row.result = -1;
    row.logLine = "[ERROR] Pack scene: the archive's path is too long: ";
    return row;
}

Failure JobFolderThatCannotBeMade() {
    Failure row = Row("JobFolderThatCannotBeMade");
    row.arrange = [](FailureTable& flow) {
        WriteFileBytes(flow.outputFolder() + L"\\json", "a file where the folder should be");
    };
    row.textId = IDS_JOB_NOT_WRITTEN;
    row.result = -1;
    row.logLine = "[ERROR] Open json file failed when write it!";
    return row;
}

Failure NoClient() {
    Failure row = Row("NoClient");
    row.arrange = [](FailureTable& flow) {
        flow.startClient();
        flow.host_.product.writeSettings("port=1\r\nlowerversion=1.3.7\r\n");
    };
    row.textId = IDS_CLIENT_UNREACHABLE;
    row.textBehind = L"10061";
    row.logName = L"rud_http";
    row.logLine = "[ERROR] connect error, Error Code is: 10061";
    return row;
}

Failure Refusal(const char* name, const wchar_t* arguments, unsigned textId, const wchar_t* words,
                const char* logLine) {
    Failure row = Row(name);
    row.arrange = [arguments](FailureTable& flow) { flow.startClient(arguments); };
    row.textId = textId;
    row.textBehind = words;
    row.logName = L"rud_http";
    row.logLine = logLine;
    return row;
}

INSTANTIATE_TEST_SUITE_P(
    OfASubmission, FailureTable,
    ::testing::Values(
        UnusableCameraName(), NoCameraAndCancel(), CoronaWithoutLimits(),
        UnusableSceneName("SceneNameEndsInAStop", L"room."),
        UnusableSceneName("SceneNameEndsInABlank", L"room "), RefusedSave(),
        NameOfAnotherPlace("NameOfAStream", L"a:b"), NameOfAnotherPlace("NameOfADevice", L"con"),
        NoGuidToBeHad(), SceneWithoutAFolder(), ArchivePathTooLong(), JobFolderThatCannotBeMade(),
        NoClient(),
        Refusal("SubmittedBefore", L"--reply-code 10009", IDS_REPLY_SUBMITTED_BEFORE, L"",
                "[ERROR] The current submission scenario already exists, please do not repeat the "
                "submission!"),
        Refusal("RefusedInTheClientsWords", L"--reply-code 10010 --err \"disk full\"",
                IDS_REPLY_UNREADABLE, L"disk full", "[ERROR] disk full")),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
