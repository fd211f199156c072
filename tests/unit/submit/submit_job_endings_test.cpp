// Each row of the table of endings, brought about around the sequence alone.
#include "tests/unit/submit/submission_test.h"

#include "config/dialog_choices.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/box_languages.h"
#include "tests/support/import_patch.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/submission_ending.h"
#include "tests/unit/submit/reply_server.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace orv {
namespace test {
namespace {

using ::testing::Each;
using ::testing::IsEmpty;

HRESULT WINAPI NoGuid(GUID*) {
    return E_FAIL;
}

class SubmitJobEnding;

// How the row of that name is brought about.
struct Arrangement {
    const char* name;
    std::function<void(SubmitJobEnding&)> arrange;
};

std::vector<Arrangement> Arrangements();

// The submission ends as the row says and leaves what the row says.
class SubmitJobEnding : public SubmissionTest,
                        public ::testing::WithParamInterface<SubmissionEnding> {
public:
    using SubmissionTest::data_;
    using SubmissionTest::dialog_;
    using SubmissionTest::folder_;
    using SubmissionTest::host_;
    using SubmissionTest::outputFolder;
    using SubmissionTest::product_;
    using SubmissionTest::usePort;

    void typeName(const std::wstring& name) const { dialog_.setText(IDC_SCENE_NAME, name); }

    // A client that answers with this body.
    void startClient(const std::string& body) {
        client_ = std::make_unique<ReplyServer>(body);
        usePort(client_->port());
    }

    // Instead of submitting what the dialog shows at that moment.
    std::function<std::int32_t()> submits = [this] { return submit(); };
    // The scene whose path follows the message.
    std::wstring sceneInMessage;
    // What an arrangement holds until the end.
    FileHandle held;
    std::unique_ptr<ImportPatch> patch;

protected:
    SubmitJobEnding() {
        data_.progressState = kWorkerRunning;
        InstallArchiver();
    }

    void run();

private:
    void arrange();
    void expectMessage(const std::vector<SeenMessageBox>& boxes) const;
    void expectLeft() const;
    // The files in this folder of the output folder, whatever the scene's name is.
    std::size_t countIn(const std::wstring& folder) const;
    std::vector<std::wstring> outputFolders() const;

    std::unique_ptr<ReplyServer> client_;
};

void SubmitJobEnding::arrange() {
    const std::vector<Arrangement> all = Arrangements();
    const Arrangement* how = FindNamed(all, GetParam().name);
    ASSERT_NE(how, nullptr) << "nothing brings it about";
    how->arrange(*this);
}

void SubmitJobEnding::expectMessage(const std::vector<SeenMessageBox>& boxes) const {
    const SubmissionEnding& row = GetParam();
    ASSERT_EQ(boxes.size(), row.isSilent ? 0U : 1U);
    if (row.isSilent)
        return;
    ExpectMessage(row, boxes[0], {dialog_.handle(), kTestCaption, ResourceText, sceneInMessage});
}

std::vector<std::wstring> SubmitJobEnding::outputFolders() const {
    const std::wstring suffix = L"_plugin_output";
    std::vector<std::wstring> folders;
    for (const std::wstring& name : ListFolder(folder_.path())) {
        if (name.size() >= suffix.size() &&
            name.compare(name.size() - suffix.size(), suffix.size(), suffix) == 0)
            folders.push_back(folder_.file(name));
    }
    return folders;
}

std::size_t SubmitJobEnding::countIn(const std::wstring& folder) const {
    std::size_t count = 0;
    for (const std::wstring& output : outputFolders())
        count += ListFolder(output + L"\\" + folder).size();
    return count;
}

void SubmitJobEnding::expectLeft() const {
    const SubmissionEnding& row = GetParam();
    EXPECT_EQ(countIn(L"compress"), LeavesArchive(row) ? 1U : 0U);
    EXPECT_EQ(countIn(L"json"), LeavesJob(row) ? 1U : 0U);
    EXPECT_EQ(outputFolders().size(), row.left == Left::Nothing ? 0U : 1U);
}

void SubmitJobEnding::run() {
    const SubmissionEnding& row = GetParam();
    ASSERT_NO_FATAL_FAILURE(arrange());
    const std::wstring typed = dialog_.text(IDC_SCENE_NAME);
    const std::vector<std::wstring> before = ListFolder(folder_.path());
    MessageBoxWatcher watcher(L"", {row.button});
    {
        const BoxLanguages languages;
        EXPECT_EQ(submits(), row.result);
        EXPECT_THAT(languages.asked(), Each(kEnglishLanguage)) << "as the marker says";
    }
    expectMessage(watcher.stop());

    EXPECT_EQ(data_.done, !row.reachesClient) << "the progress window goes with the message";
    EXPECT_FALSE(data_.hide) << "for the length of the message only";
    if (row.closesDialog) {
        EXPECT_TRUE(dialog_.waitForEnd());
        EXPECT_EQ(dialog_.result(), 0);
    } else {
        EXPECT_TRUE(dialog_.isOpen());
        if (row.savesNothing && !typed.empty()) { // an empty one becomes the scene's own
            EXPECT_EQ(dialog_.text(IDC_SCENE_NAME), typed) << "what was typed stays";
        }
    }
    held.reset();
    EXPECT_NE(product_.log(row.logName).find(row.logLine), std::string::npos)
        << product_.log(row.logName);
    EXPECT_NE(product_.log(L"rud_http").find(row.httpLine), std::string::npos)
        << product_.log(L"rud_http");
    expectLeft();
    if (row.savesNothing) {
        EXPECT_THAT(host_.savedPaths(), IsEmpty());
        if (row.left == Left::Nothing) {
            EXPECT_EQ(ListFolder(folder_.path()), before);
        }
    }
}

using Step = std::function<void(SubmitJobEnding&)>;

Step Name(const std::wstring& name) {
    return [name](SubmitJobEnding& test) { test.typeName(name); };
}

Step Client(const std::string& body) {
    return [body](SubmitJobEnding& test) { test.startClient(body); };
}

const char kAccepts[] = "{\"ret\":10001}";
const char kMissesTheArchive[] = "{\"ret\":10010,\"err\":\"there is no archive\"}";

Step Archiver(const std::string& bytes) {
    return [bytes](SubmitJobEnding& test) {
        test.startClient(kMissesTheArchive);
        test.product_.write(L"/7-Zip/7z.exe", bytes);
    };
}

Step Settings(const std::string& bytes) {
    return
        [bytes](SubmitJobEnding& test) { test.product_.write(L"/script/rud_plugin.ini", bytes); };
}

Step Port(const std::string& port) {
    return Settings("[general]\r\nport=" + port + "\r\n");
}

// Another scene that stands beside the open one.
std::wstring MakeScene(const SubmitJobEnding& test, const wchar_t* name) {
    const std::wstring path = test.folder_.file(name);
    WriteFileBytes(path, "another scene");
    return path;
}

std::int32_t SubmitAfterAnotherSceneWasOpened(SubmitJobEnding& test) {
    SubmissionChoices choices;
    EXPECT_TRUE(TakeChoices(test.dialog_.handle(), choices));
    choices.analysis = test.data_.analysis;
    choices.openScene = test.host_.sceneFilePath;
    test.host_.sceneFilePath = test.folder_.file(L"other.max");
    const std::int32_t result =
        SubmitJob(std::move(choices), test.dialog_.handle(), kTestCaption, L"", L"0");
    EXPECT_EQ(ReadFileBytes(test.host_.sceneFilePath), "another scene");
    return result;
}

std::int32_t SubmitWithoutDialog() {
    HWND gone = reinterpret_cast<HWND>(static_cast<INT_PTR>(0x7FFFFFF0));
    return SubmitJob(gone, kTestCaption, L"", L"0");
}

void DeleteTheSceneWhileItIsCleaned(SubmitJobEnding& test) {
    test.startClient(kMissesTheArchive);
    test.typeName(L"");
    test.dialog_.check(IDC_BACK_UP_SCENE);
    test.host_.onScript = [&test](const std::wstring&) {
        ::DeleteFileW(test.folder_.file(L"room.max").c_str());
        return 1;
    };
}

std::vector<Arrangement> ArrangementsOfTheSubmission() {
    return {
        {"UnusableCameraName",
         [](SubmitJobEnding& test) {
             test.dialog_.setCameras({{L"a%b", true}});
         }},
        {"NoCameraAndCancel",
         [](SubmitJobEnding& test) {
             test.dialog_.setCameras({{L"Cam", false}});
         }},
        {"CoronaWithoutLimits",
         [](SubmitJobEnding& test) {
             test.data_.analysis.coronaState = CoronaLimitState::NothingLimited;
         }},
        {"SceneNameEndsInAStop", Name(L"shot.")},
        {"SceneNameEndsInABlank", Name(L"shot ")},
        {"SceneNameOfABlank", Name(L" ")},
        {"SceneNameWithABackquote", Name(L"sh`ot")},
        {"SceneNameWithTwoStops", Name(L"shot..max")},
        {"SceneNameWithABlankBeforeItsExtension", Name(L"shot .max")},
        {"SceneNameWithAStopBehindItsExtension", Name(L"shot.max.")},
        {"RefusedSave",
         [](SubmitJobEnding& test) {
             test.host_.onSaveTo = [](const std::wstring&) { return false; };
         }},
        {"NameOfAStream", Name(L"a:b")},
        {"NameOfADevice", Name(L"con")},
        {"NameOfANumberedDevice", Name(L"LPT1.v2")},
        {"NameInAFolderBelow", Name(L"sub\\shot")},
        {"NameInTheFolderAbove", Name(L"../shot")},
        {"NameOnAnotherDrive", Name(L"D:\\shot")},
        {"NameWithAnAsterisk", Name(L"a*b")},
        {"NameWithAQuotationMark", Name(L"a\"b")},
        {"AnotherSceneKept",
         [](SubmitJobEnding& test) { test.sceneInMessage = MakeScene(test, L"shot.max"); }},
        {"AnotherSceneOpenedMeanwhile",
         [](SubmitJobEnding& test) {
             MakeScene(test, L"other.max");
             test.submits = [&test] { return SubmitAfterAnotherSceneWasOpened(test); };
         }},
        {"SceneThatWasNeverSaved", [](SubmitJobEnding& test) { test.host_.sceneFilePath.clear(); }},
        {"SceneWithoutAFolderAndANewName",
         [](SubmitJobEnding& test) { test.host_.sceneFilePath = L"room.max"; }},
        {"SceneWithoutAFolder",
         [](SubmitJobEnding& test) {
             test.host_.sceneFilePath = L"room.max";
             test.typeName(L"");
         }},
        {"NoGuid",
         [](SubmitJobEnding& test) {
             test.patch = std::make_unique<ImportPatch>(::GetModuleHandleW(nullptr), "CoCreateGuid",
                                                        reinterpret_cast<ULONGLONG>(&NoGuid));
         }},
        {"ArchivePathTooLong",
         [](SubmitJobEnding& test) {
             test.host_.sceneFilePath = test.folder_.file(std::wstring(110, L'n') + L".max");
             test.typeName(L"");
         }},
        {"SceneThatCannotBePacked",
         [](SubmitJobEnding& test) {
             test.host_.sceneFilePath = test.folder_.file(L"room..max");
             test.typeName(L"");
         }},
        {"JobFolderThatCannotBeMade",
         [](SubmitJobEnding& test) {
             WriteFileBytes(test.outputFolder() + L"\\json", "a file where the folder should be");
         }},
        {"ReportWithoutJson",
         [](SubmitJobEnding& test) { test.data_.analysis.reportText = L"no JSON"; }},
        {"DialogThatIsGone", [](SubmitJobEnding& test) { test.submits = SubmitWithoutDialog; }},
        {"NoCameraTable", [](SubmitJobEnding& test) { test.dialog_.takeAway(IDC_CAMERAS); }},
        {"UnexpectedError",
         [](SubmitJobEnding& test) {
             test.host_.onSaveTo = [](const std::wstring&) -> bool {
                 throw std::runtime_error("the host broke");
             };
         }},
    };
}

std::vector<Arrangement> ArrangementsOfTheClient() {
    return {
        {"NoClient", Port("1")}, // nothing listens there
        {"ReplyWithoutJson", Client("")},
        {"ReplyThatCannotBeRead", Client("{\"ret\":")},
        {"ACodeThatNobodyKnows", Client("{\"ret\":12345}")},
        {"SubmittedBefore", Client("{\"ret\":10009}")},
        {"RefusedInTheClientsWords", Client("{\"ret\":10010,\"err\":\"disk full\"}")},
    };
}

std::vector<Arrangement> ArrangementsOfFiles() {
    return {
        {"ArchiverThatIsMissing",
         [](SubmitJobEnding& test) {
             test.startClient(kMissesTheArchive);
             DeleteTree(test.product_.path(L"/7-Zip"));
         }},
        {"ArchiverThatIsNoProgram", Archiver("this is no program")},
        {"ArchiverThatIsEmpty", Archiver("")},
        {"ArchiverThatIsCutOff", Archiver("MZ")},
        {"ArchiverThatFails",
         [](SubmitJobEnding& test) {
             test.startClient(kMissesTheArchive);
             WriteFileBytes(test.outputFolder() + L"\\compress",
                            "a file where the folder should be");
         }},
        {"SceneDeletedBeforePacking", DeleteTheSceneWhileItIsCleaned},
        {"FileWhereTheOutputFolderBelongs",
         [](SubmitJobEnding& test) { WriteFileBytes(test.outputFolder(), "a file"); }},
        {"SettingsDeletedWhileTheDialogIsOpen",
         [](SubmitJobEnding& test) { DeleteTree(test.product_.path(L"/script/rud_plugin.ini")); }},
        {"SettingsOfGarbage", Settings(std::string("\xFF\xFE\0\0[gen\x01\x02\r\nport", 18))},
        {"PortBeyondAllPorts", Port("99999")},
        {"PortBelowZero", Port("-1")},
        {"PortThatIsAWord", Port("twenty")},
        {"SceneThatIsReadOnly",
         [](SubmitJobEnding& test) {
             test.startClient(kAccepts);
             test.typeName(L"");
             ::SetFileAttributesW(test.host_.sceneFilePath.c_str(), FILE_ATTRIBUTE_READONLY);
         }},
        {"CleaningScriptThatFails",
         [](SubmitJobEnding& test) {
             test.startClient(kAccepts);
             test.dialog_.check(IDC_BACK_UP_SCENE);
             test.host_.onScript = [](const std::wstring&) { return 0; };
         }},
        {"LogHeldByAnotherProgram",
         [](SubmitJobEnding& test) {
             test.startClient(kAccepts);
             MakeFolders(test.product_.path(L"/log"));
             test.held = HoldExclusively(test.product_.path(L"/log/rud_http.log"));
         }},
        {"SettingsThatCannotBeWritten",
         [](SubmitJobEnding& test) {
             test.startClient(kAccepts);
             ::SetFileAttributesW(test.product_.path(L"/script/rud_plugin.ini").c_str(),
                                  FILE_ATTRIBUTE_READONLY);
         }},
        {"CustomAddressOfGarbage",
         [](SubmitJobEnding& test) {
             test.startClient(kAccepts);
             test.product_.write(L"/script/custom.bin", std::string(300, '\xEE'));
         }},
    };
}

std::vector<Arrangement> Arrangements() {
    std::vector<Arrangement> all;
    for (const std::vector<Arrangement>& part :
         {ArrangementsOfTheSubmission(), ArrangementsOfTheClient(), ArrangementsOfFiles()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

TEST(EndingsOfTheSequence, AreAllArranged) {
    EXPECT_THAT(NamesOf(Arrangements()),
                ::testing::UnorderedElementsAreArray(NamesOf(SequenceEndings())));
}

TEST_P(SubmitJobEnding, IsShownAndLeavesNothingElse) {
    run();
}

INSTANTIATE_TEST_SUITE_P(Endings, SubmitJobEnding, ::testing::ValuesIn(SequenceEndings()),
                         [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
