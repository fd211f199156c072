// Files, folders, rights, locks, programs and scripts that are not as they should be, and settings
// of the client.
#include "resources/controls.h"
#include "tests/support/wait_until.h"
#include "tests/system/flow/ending.h"

namespace orv {
namespace test {
namespace {

constexpr wchar_t kArchiver[] = L"/7-Zip/7z.exe";
constexpr wchar_t kSettings[] = L"/script/rud_plugin.ini";
constexpr wchar_t kCleaner[] = L"/script/OrvAntivirusAlc_UTF8.ms";

Ending::Step Write(const wchar_t* suffix, const std::string& bytes) {
    return [suffix, bytes](EndingTest& flow) { flow.host_.product.write(suffix, bytes); };
}

Ending ArchiverReplacedBy(const char* name, const std::string& bytes) {
    Ending row(name);
    row.arrange = Write(kArchiver, bytes);
    row.logLine = "[ERROR] Pack scene: start of the archiver ";
    row.httpLine = "[ERROR] "; // the client misses the archive
    row.mend = [](EndingTest&) { InstallArchiver(); };
    return row;
}

Ending ArchiverThatIsMissing() {
    Ending row = ArchiverReplacedBy("ArchiverThatIsMissing", "");
    row.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(L"/7-Zip")); };
    return row;
}

Ending ArchiverThatFails() {
    Ending row("ArchiverThatFails");
    row.arrange = [](EndingTest& flow) {
        WriteFileBytes(flow.outputFolder() + L"\\compress", "a file where the folder should be");
    };
    row.logLine = "[ERROR] Pack scene: the archiver ended with code ";
    row.httpLine = "[ERROR] ";
    row.mend = [](EndingTest& flow) { DeleteTree(flow.outputFolder() + L"\\compress"); };
    return row;
}

Ending ArchiverThatIsKilledHalfWay() {
    Ending row("ArchiverThatIsKilledHalfWay");
    row.before = [](EndingTest& flow) {
        flow.host_.sceneBytes = NoisyBytes(6U << 20); // packing takes seconds
    };
    row.during = [](EndingTest& flow) {
        EXPECT_TRUE(WaitUntil([&flow] { return !flow.archives().empty(); })) << "it has begun";
        const std::vector<DWORD> archivers = ProcessesNamed(L"7z.exe");
        ASSERT_EQ(archivers.size(), 1U);
        const ProcessHandle archiver(::OpenProcess(PROCESS_TERMINATE, FALSE, archivers[0]));
        EXPECT_TRUE(::TerminateProcess(archiver.get(), 137));
    };
    row.logLine = "[ERROR] Pack scene: the archiver ended with code 137";
    row.mend = [](EndingTest& flow) {
        EXPECT_TRUE(flow.logHas(L"rud_data", "[INFO] Unfinished archive deleted: "));
        EXPECT_TRUE(flow.archives().empty());
    };
    return row;
}

Ending SceneHeldByAnotherProgram() {
    Ending row("SceneHeldByAnotherProgram");
    row.arrange = [](EndingTest& flow) {
        flow.held = HoldExclusively(flow.scenePath());
        Type(flow.dialog_, IDC_SCENE_NAME, L"room v2"); // under its own name it is not saved
    };
    row.textId = IDS_SCENE_NOT_SAVED;
    row.logLine = "[ERROR] Save scene to ";
    row.mend = [](EndingTest& flow) { Type(flow.dialog_, IDC_SCENE_NAME, L"room"); };
    return row;
}

// A submission does not mind it.
Ending Harmless(const char* name) {
    Ending row(name);
    row.textId = IDS_REPLY_ACCEPTED;
    row.closesDialog = true;
    return row;
}

// Under its own name it is packed as it is.
Ending SceneThatIsReadOnly() {
    Ending row = Harmless("SceneThatIsReadOnly");
    row.arrange = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_READONLY);
    };
    row.logLine = "[INFO] The submission ended with 0.";
    row.mend = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return row;
}

Ending FileWhereTheOutputFolderBelongs() {
    Ending row("FileWhereTheOutputFolderBelongs");
    row.arrange = [](EndingTest& flow) { WriteFileBytes(flow.outputFolder(), "a file"); };
    row.textId = IDS_JOB_NOT_WRITTEN;
    row.result = -1;
    row.logLine = "[ERROR] CreateDirectoryW ";
    row.mend = [](EndingTest& flow) { DeleteTree(flow.outputFolder()); };
    return row;
}

// The cleaning scripts keep the host busy while the scene's file goes.
Ending SceneDeletedBeforePacking() {
    Ending row("SceneDeletedBeforePacking");
    row.before = [](EndingTest& flow) {
        flow.host_.scene["scripts"]["OrvAntivirusAlc_UTF8.ms"]["wait_ms"] = 1500;
    };
    row.clean = true;
    row.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "Check ADSL virus for scene"); }));
        ::DeleteFileW(flow.scenePath().c_str());
    };
    row.logLine = "[ERROR] Pack scene: the archiver ended with code ";
    row.mend = [](EndingTest& flow) { WriteFileBytes(flow.scenePath(), flow.host_.sceneBytes); };
    return row;
}

Ending SettingsDeletedWhileTheDialogIsOpen() {
    Ending row("SettingsDeletedWhileTheDialogIsOpen");
    row.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(kSettings)); };
    row.textId = IDS_CLIENT_UNREACHABLE;
    row.behind = L"10049"; // no port is known
    row.logLine = "[INFO] The submission ended with 0.";
    return row;
}

Ending SettingsWithThePort(const char* name, const std::string& port) {
    Ending row(name);
    row.arrange = Write(kSettings, "[general]\r\nlowerversion=1.3.7\r\nport=" + port + "\r\n");
    row.logName = L"rud_http";
    row.logLine = "[ERROR] ";
    return row;
}

Ending SettingsOfGarbage() {
    Ending row("SettingsOfGarbage");
    row.arrange = Write(kSettings, std::string("\xFF\xFE\0\0[gen\x01\x02\r\nport", 18));
    row.textId = IDS_CLIENT_UNREACHABLE;
    row.behind = L"10049"; // no port is known
    row.logLine = "[INFO] The submission ended with 0.";
    return row;
}

INSTANTIATE_TEST_SUITE_P(
    OfFiles, EndingTest,
    ::testing::Values(ArchiverReplacedBy("ArchiverThatIsNoProgram", "this is no program"),
                      ArchiverReplacedBy("ArchiverThatIsEmpty", ""),
                      ArchiverReplacedBy("ArchiverThatIsCutOff", "MZ"), ArchiverThatIsMissing(),
                      ArchiverThatFails(), ArchiverThatIsKilledHalfWay(),
                      SceneHeldByAnotherProgram(), FileWhereTheOutputFolderBelongs(),
                      SceneDeletedBeforePacking(), SettingsDeletedWhileTheDialogIsOpen(),
                      SettingsWithThePort("PortBeyondAllPorts", "99999"),
                      SettingsWithThePort("PortBelowZero", "-1"),
                      SettingsWithThePort("PortThatIsAWord", "twenty"), SettingsOfGarbage()),
    [](const auto& row) { return std::string(row.param.name); });

Ending CleaningScriptMissing() {
    Ending row = Harmless("CleaningScriptMissing");
    row.clean = true;
    row.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(kCleaner)); };
    row.logLine = "[WARN] Check ALC virus for scene";
    return row;
}

Ending CleaningScriptOf(const char* name, const std::string& text) {
    Ending row = Harmless(name);
    row.clean = true;
    row.arrange = Write(kCleaner, text);
    row.logLine = "[WARN] Check CRP virus for scene";
    return row;
}

Ending LogHeldByAnotherProgram() {
    Ending row = Harmless("LogHeldByAnotherProgram");
    // The log that each exchange opens for itself; the data log is held by the plug-in.
    row.arrange = [](EndingTest& flow) {
        flow.held = HoldExclusively(flow.host_.product.path(L"/log1.3.7/rud_http.log"));
    };
    row.logLine = "[INFO] The submission ended with 0.";
    return row;
}

Ending SettingsHeldForWriting() {
    Ending row = Harmless("SettingsThatCannotBeWritten");
    row.arrange = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_READONLY);
    };
    row.logLine = "[INFO] ";
    row.mend = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return row;
}

Ending ClientWith(const char* name, const wchar_t* options, const char* logLine) {
    Ending row = Harmless(name);
    row.before = [options](EndingTest& flow) { flow.startClient(options); };
    row.logLine = logLine;
    return row;
}

Ending AddressOfGarbage() {
    Ending row = Harmless("CustomAddressOfGarbage");
    row.before = Write(L"/script/custom.bin", std::string(300, '\xEE'));
    row.logLine = "[INFO] ";
    return row;
}

INSTANTIATE_TEST_SUITE_P(
    WithoutHarm, EndingTest,
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
