// Files, folders, rights, locks, programs and scripts that are not as they should be.
#include "resources/controls.h"
#include "tests/support/wait_until.h"
#include "tests/system/faults/fault.h"

namespace orv {
namespace test {
namespace {

constexpr wchar_t kArchiver[] = L"/7-Zip/7z.exe";
constexpr wchar_t kSettings[] = L"/script/rud_plugin.ini";
constexpr wchar_t kCleaner[] = L"/script/OrvAntivirusAlc_UTF8.ms";

class FileFaults : public FaultTable {};
class HarmlessFaults : public FaultTable {};

TEST_P(FileFaults, AreToldAndTheNextSubmissionSucceeds) {
    meetAndMend();
}

TEST_P(HarmlessFaults, DoNotStopASubmission) {
    succeedAllTheSame();
}

Fault::Step Write(const wchar_t* suffix, const std::string& bytes) {
    return [suffix, bytes](FaultTable& flow) { flow.host_.product.write(suffix, bytes); };
}

Fault ArchiverReplacedBy(const char* name, const std::string& bytes) {
    Fault fault(name);
    fault.arrange = Write(kArchiver, bytes);
    fault.logLine = "[ERROR] Pack scene: start of the archiver ";
    fault.mend = [](FaultTable&) { InstallArchiver(); };
    return fault;
}

Fault SceneHeldByAnotherProgram() {
    Fault fault("SceneHeldByAnotherProgram");
    fault.arrange = [](FaultTable& flow) {
        flow.held = HoldExclusively(flow.scenePath());
        Type(flow.dialog_, IDC_SCENE_NAME, L"room v2"); // under its own name it is not saved
    };
    fault.textId = IDS_SCENE_NOT_SAVED;
    fault.logLine = "[ERROR] Save scene to ";
    fault.mend = [](FaultTable& flow) { Type(flow.dialog_, IDC_SCENE_NAME, L"room"); };
    return fault;
}

// Under its own name it is packed as it is.
Fault SceneThatIsReadOnly() {
    Fault fault("SceneThatIsReadOnly");
    fault.arrange = [](FaultTable& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_READONLY);
    };
    fault.logLine = "[INFO] The submission ended with 0.";
    fault.mend = [](FaultTable& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return fault;
}

Fault FileWhereTheOutputFolderBelongs() {
    Fault fault("FileWhereTheOutputFolderBelongs");
    fault.arrange = [](FaultTable& flow) { WriteFileBytes(flow.outputFolder(), "a file"); };
    fault.textId = IDS_JOB_NOT_WRITTEN;
    fault.result = -1;
    fault.logLine = "[ERROR] CreateDirectoryW ";
    fault.mend = [](FaultTable& flow) { DeleteTree(flow.outputFolder()); };
    return fault;
}

// The cleaning scripts keep the host busy while the scene's file goes.
Fault SceneDeletedBeforePacking() {
    Fault fault("SceneDeletedBeforePacking");
    fault.before = [](FaultTable& flow) {
        flow.host_.scene["scripts"]["OrvAntivirusAlc_UTF8.ms"]["wait_ms"] = 1500;
    };
    fault.clean = true;
    fault.during = [](FaultTable& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "Check ADSL virus for scene"); }));
        ::DeleteFileW(flow.scenePath().c_str());
    };
    fault.logLine = "[ERROR] Pack scene: the archiver ended with code ";
    fault.mend = [](FaultTable& flow) { WriteFileBytes(flow.scenePath(), flow.host_.sceneBytes); };
    return fault;
}

Fault SettingsDeletedWhileTheDialogIsOpen() {
    Fault fault("SettingsDeletedWhileTheDialogIsOpen");
    fault.arrange = [](FaultTable& flow) { DeleteTree(flow.host_.product.path(kSettings)); };
    fault.textId = IDS_CLIENT_UNREACHABLE;
    fault.behind = L"10049"; // no port is known
    fault.logLine = "[INFO] The submission ended with 0.";
    return fault;
}

Fault SettingsWithThePort(const char* name, const std::string& port) {
    Fault fault(name);
    fault.arrange = Write(kSettings, "[general]\r\nlowerversion=1.3.7\r\nport=" + port + "\r\n");
    fault.logName = L"rud_http";
    fault.logLine = "[ERROR] ";
    return fault;
}

Fault SettingsOfGarbage() {
    Fault fault("SettingsOfGarbage");
    fault.arrange = Write(kSettings, std::string("\xFF\xFE\0\0[gen\x01\x02\r\nport", 18));
    fault.textId = IDS_CLIENT_UNREACHABLE;
    fault.behind = L"10049"; // no port is known
    fault.logLine = "[INFO] The submission ended with 0.";
    return fault;
}

INSTANTIATE_TEST_SUITE_P(
    Files, FileFaults,
    ::testing::Values(ArchiverReplacedBy("ArchiverThatIsNoProgram", "this is no program"),
                      ArchiverReplacedBy("ArchiverThatIsEmpty", ""),
                      ArchiverReplacedBy("ArchiverThatIsCutOff", "MZ"), SceneHeldByAnotherProgram(),
                      FileWhereTheOutputFolderBelongs(), SceneDeletedBeforePacking(),
                      SettingsDeletedWhileTheDialogIsOpen(),
                      SettingsWithThePort("PortBeyondAllPorts", "99999"),
                      SettingsWithThePort("PortBelowZero", "-1"),
                      SettingsWithThePort("PortThatIsAWord", "twenty"), SettingsOfGarbage()),
    [](const auto& row) { return std::string(row.param.name); });

Fault CleaningScriptMissing() {
    Fault fault("CleaningScriptMissing");
    fault.clean = true;
    fault.arrange = [](FaultTable& flow) { DeleteTree(flow.host_.product.path(kCleaner)); };
    fault.logLine = "[WARN] Check ALC virus for scene";
    return fault;
}

Fault CleaningScriptOf(const char* name, const std::string& text) {
    Fault fault(name);
    fault.clean = true;
    fault.arrange = Write(kCleaner, text);
    fault.logLine = "[WARN] Check CRP virus for scene";
    return fault;
}

Fault LogHeldByAnotherProgram() {
    Fault fault("LogHeldByAnotherProgram");
    // The log that each exchange opens for itself; the data log is held by the plug-in.
    fault.arrange = [](FaultTable& flow) {
        flow.held = HoldExclusively(flow.host_.product.path(L"/log1.3.7/rud_http.log"));
    };
    fault.logLine = "[INFO] The submission ended with 0.";
    return fault;
}

Fault SettingsHeldForWriting() {
    Fault fault("SettingsThatCannotBeWritten");
    fault.arrange = [](FaultTable& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_READONLY);
    };
    fault.logLine = "[INFO] ";
    fault.mend = [](FaultTable& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return fault;
}

Fault ClientWith(const char* name, const wchar_t* options, const char* logLine) {
    Fault fault(name);
    fault.before = [options](FaultTable& flow) { flow.startClient(options); };
    fault.logLine = logLine;
    return fault;
}

Fault AddressOfGarbage() {
    Fault fault("CustomAddressOfGarbage");
    fault.before = Write(L"/script/custom.bin", std::string(300, '\xEE'));
    fault.logLine = "[INFO] ";
    return fault;
}

INSTANTIATE_TEST_SUITE_P(
    Files, HarmlessFaults,
    ::testing::Values(
        SceneThatIsReadOnly(), CleaningScriptMissing(),
        CleaningScriptOf("CleaningScriptThatFails", "throw \"no\""),
        CleaningScriptOf("CleaningScriptOfGarbage", "\xFF\xFE\x01"),
        CleaningScriptOf("CleaningScriptThatIsEmpty", ""), LogHeldByAnotherProgram(),
        SettingsHeldForWriting(), ClientWith("NoSharedMemory", L"--no-shared-memory", "[INFO] "),
        ClientWith("FolderOfTheClientOnNoDisk", L"--save-path Q:\\none\\such", "[WARN] "),
        ClientWith("AReplyThatComesLate", L"--delay 1500", "[INFO] "), AddressOfGarbage()),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
} // namespace test
} // namespace orv
