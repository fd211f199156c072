#include "tests/support/submission_ending.h"

#include "analysis/text/text_convert.h"
#include "base/windows.h"
#include "resources/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace orv {
namespace test {
namespace {

using Rows = std::vector<SubmissionEnding>;

SubmissionEnding Row(const char* name, unsigned textId, const char* logLine) {
    SubmissionEnding row;
    row.name = name;
    row.textId = textId;
    row.buttons = {IDOK};
    row.button = IDOK;
    row.logLine = logLine;
    return row;
}

SubmissionEnding OfTheSequence(SubmissionEnding row) {
    row.level = EndingLevel::Sequence;
    return row;
}

SubmissionEnding OfTheFlow(SubmissionEnding row) {
    row.level = EndingLevel::Flow;
    return row;
}

// A check that fails before anything is saved.
SubmissionEnding Check(const char* name, unsigned textId, const char* logLine) {
    SubmissionEnding row = Row(name, textId, logLine);
    row.result = -1;
    row.savesNothing = true;
    return row;
}

SubmissionEnding CheckOfCameras(const char* name, unsigned textId, const char* logLine) {
    SubmissionEnding row = Check(name, textId, logLine);
    row.logName = L"rud_ui";
    return row;
}

SubmissionEnding NoCameraAndCancel() {
    SubmissionEnding row =
        CheckOfCameras("NoCameraAndCancel", IDS_NO_CAMERA_TICKED, "[ERROR] No camera checked!");
    row.buttons = {IDOK, IDCANCEL};
    row.button = IDCANCEL;
    return row;
}

SubmissionEnding CoronaWithoutLimits() {
    SubmissionEnding row = Check("CoronaWithoutLimits", IDS_CORONA_WITHOUT_LIMITS,
                                 "[ERROR] Corona has no limits, the submission is stopped.");
    row.captionId = IDS_CAPTION_CHECK;
    return row;
}

SubmissionEnding UnusableSceneName(const char* name) {
    SubmissionEnding row = Check(name, IDS_SCENE_NAME_UNUSABLE,
                                 "[ERROR] Submission: the scene's name cannot be used.");
    row.closesDialog = true;
    return row;
}

// The scene keeps a name that no archive can have.
SubmissionEnding Unpackable(const char* name, const char* logLine) {
    SubmissionEnding row = UnusableSceneName(name);
    row.left = Left::OutputFolder;
    row.logLine = logLine;
    return row;
}

SubmissionEnding RefusedSave() {
    return Row("RefusedSave", IDS_SCENE_NOT_SAVED, "[ERROR] Save scene to ");
}

// The host is not asked to save: there is no file that it could write.
SubmissionEnding Unsaved(const char* name, const char* logLine) {
    SubmissionEnding row = Row(name, IDS_SCENE_NOT_SAVED, logLine);
    row.savesNothing = true;
    return row;
}

// A name that Windows would take for something else than a file beside the scene.
SubmissionEnding MisleadingName(const char* name) {
    return Unsaved(name, "[ERROR] Save scene: no file can have this name: ");
}

SubmissionEnding AnotherSceneKept() {
    SubmissionEnding row = Row("AnotherSceneKept", IDS_SCENE_REPLACED,
                               "[INFO] Save scene: the user keeps the scene that is there: ");
    row.behind = L"\n\n";
    row.isOpen = true;
    row.buttons = {IDYES, IDNO};
    row.button = IDNO;
    row.savesNothing = true;
    return row;
}

SubmissionEnding NoGuid() {
    SubmissionEnding row = Row("NoGuid", 0, "[ERROR] The GUID generate failed!");
    row.isSilent = true;
    row.logName = L"rud_http";
    return row;
}

SubmissionEnding NotWritten(const char* name, Left left, const char* logLine) {
    SubmissionEnding row = Row(name, IDS_JOB_NOT_WRITTEN, logLine);
    row.captionId = IDS_CAPTION;
    row.result = -1;
    row.left = left;
    return row;
}

SubmissionEnding DialogThatIsGone() {
    SubmissionEnding row = Check("DialogThatIsGone", IDS_CHOICES_NOT_READ,
                                 "[ERROR] The choices of the dialog could not be read.");
    row.isOwned = false;
    return row;
}

SubmissionEnding UnexpectedError() {
    SubmissionEnding row = Row("UnexpectedError", IDS_SUBMISSION_BROKEN_OFF,
                               "[ERROR] Submission: unexpected error: the host broke");
    row.result = -1;
    return row;
}

Rows EndingsOfTheSubmission() {
    return {
        CheckOfCameras("UnusableCameraName", IDS_CAMERA_NAMES_UNUSABLE,
                       "[ERROR] The camera names to render contain invalid characters or empty!"),
        NoCameraAndCancel(),
        CoronaWithoutLimits(),
        UnusableSceneName("SceneNameEndsInAStop"),
        UnusableSceneName("SceneNameEndsInABlank"),
        OfTheSequence(UnusableSceneName("SceneNameOfABlank")),
        OfTheSequence(UnusableSceneName("SceneNameWithABackquote")),
        OfTheSequence(UnusableSceneName("SceneNameWithTwoStops")),
        OfTheSequence(UnusableSceneName("SceneNameWithABlankBeforeItsExtension")),
        OfTheSequence(UnusableSceneName("SceneNameWithAStopBehindItsExtension")),
        RefusedSave(),
        MisleadingName("NameOfAStream"),
        MisleadingName("NameOfADevice"),
        OfTheSequence(MisleadingName("NameOfANumberedDevice")),
        OfTheSequence(MisleadingName("NameInAFolderBelow")),
        OfTheSequence(MisleadingName("NameInTheFolderAbove")),
        OfTheSequence(MisleadingName("NameOnAnotherDrive")),
        OfTheSequence(MisleadingName("NameWithAnAsterisk")),
        OfTheSequence(MisleadingName("NameWithAQuotationMark")),
        AnotherSceneKept(),
        OfTheSequence(Unsaved("AnotherSceneOpenedMeanwhile",
                              "[ERROR] Submission: another scene was opened meanwhile.")),
        OfTheSequence(
            Unsaved("SceneThatWasNeverSaved", "[ERROR] Submission: the scene is not saved.")),
        OfTheSequence(Unsaved("SceneWithoutAFolderAndANewName",
                              "[ERROR] Submission: the scene is not saved.")),
        Unsaved("SceneWithoutAFolder", "[ERROR] Submission: the scene has no folder."),
        NoGuid(),
        Unpackable("ArchivePathTooLong", "[ERROR] Pack scene: the archive's path is too long: "),
        OfTheSequence(Unpackable("SceneThatCannotBePacked",
                                 "[ERROR] Submission: the scene cannot be packed.")),
        NotWritten("JobFolderThatCannotBeMade", Left::Archive,
                   "[ERROR] Open json file failed when write it!"),
        OfTheSequence(NotWritten("ReportWithoutJson", Left::Archive,
                                 "[ERROR] Parse failed in writing json file when submiting!")),
        OfTheSequence(DialogThatIsGone()),
        OfTheSequence(Check("NoCameraTable", IDS_CHOICES_NOT_READ,
                            "[ERROR] Submission: the camera table is not known.")),
        OfTheSequence(UnexpectedError()),
    };
}

// The submission comes as far as the client.
SubmissionEnding Posted(const char* name, unsigned textId, const char* httpLine) {
    SubmissionEnding row = Row(name, textId, "[INFO] The submission ended with 0.");
    row.captionId = IDS_CAPTION;
    row.reachesClient = true;
    row.left = Left::ArchiveAndJob;
    row.httpLine = httpLine;
    return row;
}

SubmissionEnding Unreachable(const char* name, const wchar_t* code, const char* httpLine) {
    SubmissionEnding row = Posted(name, IDS_CLIENT_UNREACHABLE, httpLine);
    row.behind = code;
    return row;
}

// Sending or receiving fails, with a code of either.
SubmissionEnding UnreachableWithAnyCode(const char* name) {
    SubmissionEnding row = Posted(name, IDS_CLIENT_UNREACHABLE, "[ERROR] ");
    row.isOpen = true;
    return row;
}

SubmissionEnding RefusedInTheClientsWords() {
    SubmissionEnding row = Posted("RefusedInTheClientsWords", 0, "[ERROR] disk full");
    row.behind = L"disk full";
    return row;
}

// A newer client's code: it has shown its own words, the log has that an answer came.
SubmissionEnding ACodeThatNobodyKnows() {
    SubmissionEnding row = Posted("ACodeThatNobodyKnows", 0, "[INFO] tcp read data successfully.");
    row.isSilent = true;
    return row;
}

// One row for each message; the bytes of replies are the matter of the exchange's own tests.
Rows EndingsAtTheClient() {
    const char* const refused = "[ERROR] connect error, Error Code is: 10061";
    Rows rows = {
        Unreachable("NoClient", L"10061", refused),
        OfTheFlow(Unreachable("ClientThatDiesBetweenPackingAndPosting", L"10061", refused)),
        OfTheFlow(UnreachableWithAnyCode("ClientThatDiesBeforeItReplies")),
        OfTheFlow(UnreachableWithAnyCode("CloseAtOnce")),
        Posted("ReplyWithoutJson", IDS_REPLY_WITHOUT_JSON, "[INFO] find '{' failed."),
        Posted("ReplyThatCannotBeRead", IDS_REPLY_UNREADABLE,
               "[ERROR] Get response data failed: parse the data from client failed!"),
        ACodeThatNobodyKnows(),
        Posted("SubmittedBefore", IDS_REPLY_SUBMITTED_BEFORE,
               "[ERROR] The current submission scenario already exists, please do not repeat the "
               "submission!"),
        RefusedInTheClientsWords(),
    };
    for (SubmissionEnding& row : rows)
        row.cause = EndingCause::Client;
    return rows;
}

// The job is posted all the same: the client misses the archive and says so in its own words.
SubmissionEnding WithoutArchive(const char* name, const char* logLine) {
    SubmissionEnding row = Posted(name, 0, "[ERROR] ");
    row.left = Left::Job;
    row.logLine = logLine;
    return row;
}

SubmissionEnding ArchiverThatDoesNotStart(const char* name) {
    return WithoutArchive(name, "[ERROR] Pack scene: start of the archiver ");
}

SubmissionEnding ArchiverThatStops(const char* name, const char* logLine) {
    return WithoutArchive(name, logLine);
}

SubmissionEnding SceneHeldByAnotherProgram() {
    SubmissionEnding row = RefusedSave();
    row.name = "SceneHeldByAnotherProgram";
    return row;
}

// No port is known, and no folder of the client's version to write the log of the exchange to.
SubmissionEnding WithoutPort(const char* name) {
    return Unreachable(name, L"10049", "");
}

Rows EndingsOfFiles() {
    const char* const stopped = "[ERROR] Pack scene: the archiver ended with code ";
    Rows rows = {
        ArchiverThatDoesNotStart("ArchiverThatIsMissing"),
        ArchiverThatDoesNotStart("ArchiverThatIsNoProgram"),
        ArchiverThatDoesNotStart("ArchiverThatIsEmpty"),
        ArchiverThatDoesNotStart("ArchiverThatIsCutOff"),
        ArchiverThatStops("ArchiverThatFails", stopped),
        OfTheFlow(ArchiverThatStops("ArchiverThatIsKilledHalfWay",
                                    "[ERROR] Pack scene: the archiver ended with code 137")),
        ArchiverThatStops("SceneDeletedBeforePacking", stopped),
        OfTheFlow(SceneHeldByAnotherProgram()),
        NotWritten("FileWhereTheOutputFolderBelongs", Left::OutputFolder,
                   "[ERROR] CreateDirectoryW "),
        WithoutPort("SettingsDeletedWhileTheDialogIsOpen"),
        WithoutPort("SettingsOfGarbage"),
        UnreachableWithAnyCode("PortBeyondAllPorts"),
        UnreachableWithAnyCode("PortBelowZero"),
        UnreachableWithAnyCode("PortThatIsAWord"),
    };
    for (SubmissionEnding& row : rows)
        row.cause = EndingCause::Files;
    return rows;
}

SubmissionEnding Accepted(const char* name,
                          const char* logLine = "[INFO] The submission ended with 0.") {
    SubmissionEnding row = Posted(name, IDS_REPLY_ACCEPTED, "");
    row.closesDialog = true;
    row.logLine = logLine;
    return row;
}

Rows EndingsWithoutHarm() {
    const char* const nextScript = "[WARN] Check CRP virus for scene";
    Rows rows = {
        Accepted("SceneThatIsReadOnly"), // under its own name it is packed as it is
        OfTheFlow(Accepted("CleaningScriptMissing", "[WARN] Check ALC virus for scene")),
        Accepted("CleaningScriptThatFails", nextScript),
        OfTheFlow(Accepted("CleaningScriptOfGarbage", nextScript)),
        OfTheFlow(Accepted("CleaningScriptThatIsEmpty", nextScript)),
        Accepted("LogHeldByAnotherProgram"),
        Accepted("SettingsThatCannotBeWritten"),
        OfTheFlow(Accepted("NoSharedMemory")),
        OfTheFlow(Accepted("FolderOfTheClientOnNoDisk", "[WARN] ")),
        OfTheFlow(Accepted("AReplyThatComesLate")),
        Accepted("CustomAddressOfGarbage"),
    };
    for (SubmissionEnding& row : rows)
        row.cause = EndingCause::Harmless;
    return rows;
}

Rows AllEndings() {
    Rows all;
    for (const Rows& part :
         {EndingsOfTheSubmission(), EndingsAtTheClient(), EndingsOfFiles(), EndingsWithoutHarm()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

template<class Condition>
Rows RowsThat(Condition condition) {
    Rows rows;
    const Rows& all = SubmissionEndings();
    std::copy_if(all.begin(), all.end(), std::back_inserter(rows), condition);
    return rows;
}

} // namespace

void PrintTo(const SubmissionEnding& ending, std::ostream* stream) {
    *stream << ending.name;
}

const std::vector<SubmissionEnding>& SubmissionEndings() {
    static const Rows endings = AllEndings();
    return endings;
}

std::vector<SubmissionEnding> SequenceEndings() {
    return RowsThat([](const SubmissionEnding& row) { return row.level != EndingLevel::Flow; });
}

std::vector<SubmissionEnding> FlowEndings(EndingCause cause) {
    return RowsThat([cause](const SubmissionEnding& row) {
        return row.cause == cause && row.level != EndingLevel::Sequence;
    });
}

bool LeavesArchive(const SubmissionEnding& ending) {
    return ending.left == Left::Archive || ending.left == Left::ArchiveAndJob;
}

bool LeavesJob(const SubmissionEnding& ending) {
    return ending.left == Left::Job || ending.left == Left::ArchiveAndJob;
}

void ExpectMessage(const SubmissionEnding& ending, const SeenMessageBox& box,
                   const MessageSetting& setting) {
    EXPECT_EQ(box.caption,
              ending.captionId != 0 ? setting.text(ending.captionId) : setting.caption);
    EXPECT_EQ(box.owner, ending.isOwned ? setting.dialog : nullptr);
    EXPECT_EQ(box.buttons, ending.buttons);
    EXPECT_EQ(box.answer, ending.button);
    if (ending.textId == 0 && ending.behind.empty()) {
        EXPECT_NE(box.text, setting.text(IDS_REPLY_ACCEPTED));
        return;
    }
    const std::wstring own = ending.textId != 0 ? setting.text(ending.textId) : std::wstring();
    const std::wstring wanted = own + ending.behind + setting.scene;
    if (ending.isOpen && setting.scene.empty()) {
        EXPECT_EQ(box.text.find(wanted), 0U) << WideToUtf8(box.text);
    } else {
        EXPECT_EQ(box.text, wanted);
    }
}

} // namespace test
} // namespace orv
