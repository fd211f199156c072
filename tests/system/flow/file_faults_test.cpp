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

Arrangement::Step Write(const wchar_t* suffix, const std::string& bytes) {
    return [suffix, bytes](EndingTest& flow) { flow.host_.product.write(suffix, bytes); };
}

Arrangement ArchiverReplacedBy(const char* name, const std::string& bytes) {
    Arrangement how(name);
    how.arrange = Write(kArchiver, bytes);
    how.mend = [](EndingTest&) { InstallArchiver(); };
    return how;
}

Arrangement ArchiverThatIsMissing() {
    Arrangement how = ArchiverReplacedBy("ArchiverThatIsMissing", "");
    how.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(L"/7-Zip")); };
    return how;
}

Arrangement ArchiverThatFails() {
    Arrangement how("ArchiverThatFails");
    how.arrange = [](EndingTest& flow) {
        WriteFileBytes(flow.outputFolder() + L"\\compress", "a file where the folder should be");
    };
    how.mend = [](EndingTest& flow) { DeleteTree(flow.outputFolder() + L"\\compress"); };
    return how;
}

Arrangement ArchiverThatIsKilledHalfWay() {
    Arrangement how("ArchiverThatIsKilledHalfWay");
    how.before = [](EndingTest& flow) {
        flow.host_.sceneBytes = NoisyBytes(6U << 20); // packing takes seconds
    };
    how.during = [](EndingTest& flow) {
        EXPECT_TRUE(WaitUntil([&flow] { return !flow.archives().empty(); })) << "it has begun";
        const std::vector<DWORD> archivers = ProcessesNamed(L"7z.exe");
        ASSERT_EQ(archivers.size(), 1U);
        const ProcessHandle archiver(::OpenProcess(PROCESS_TERMINATE, FALSE, archivers[0]));
        EXPECT_TRUE(::TerminateProcess(archiver.get(), 137));
    };
    how.mend = [](EndingTest& flow) {
        EXPECT_TRUE(flow.logHas(L"rud_data", "[INFO] Unfinished archive deleted: "));
        EXPECT_TRUE(flow.archives().empty());
    };
    return how;
}

Arrangement SceneHeldByAnotherProgram() {
    Arrangement how("SceneHeldByAnotherProgram");
    how.arrange = [](EndingTest& flow) {
        flow.held = HoldExclusively(flow.scenePath());
        Type(flow.dialog_, IDC_SCENE_NAME, L"room v2"); // under its own name it is not saved
    };
    how.mend = [](EndingTest& flow) { Type(flow.dialog_, IDC_SCENE_NAME, L"room"); };
    return how;
}

// Under its own name it is packed as it is.
Arrangement SceneThatIsReadOnly() {
    Arrangement how("SceneThatIsReadOnly");
    how.arrange = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_READONLY);
    };
    how.mend = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.scenePath().c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return how;
}

Arrangement FileWhereTheOutputFolderBelongs() {
    Arrangement how("FileWhereTheOutputFolderBelongs");
    how.arrange = [](EndingTest& flow) { WriteFileBytes(flow.outputFolder(), "a file"); };
    how.mend = [](EndingTest& flow) { DeleteTree(flow.outputFolder()); };
    return how;
}

// The cleaning scripts keep the host busy while the scene's file goes.
Arrangement SceneDeletedBeforePacking() {
    Arrangement how("SceneDeletedBeforePacking");
    how.before = [](EndingTest& flow) {
        flow.host_.scene["scripts"]["OrvAntivirusAlc_UTF8.ms"]["wait_ms"] = 1500;
    };
    how.clean = true;
    how.during = [](EndingTest& flow) {
        EXPECT_TRUE(
            WaitUntil([&flow] { return flow.logHas(L"rud_data", "Check ADSL virus for scene"); }));
        ::DeleteFileW(flow.scenePath().c_str());
    };
    how.mend = [](EndingTest& flow) { WriteFileBytes(flow.scenePath(), flow.host_.sceneBytes); };
    return how;
}

Arrangement SettingsDeletedWhileTheDialogIsOpen() {
    Arrangement how("SettingsDeletedWhileTheDialogIsOpen");
    how.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(kSettings)); };
    return how;
}

Arrangement SettingsWithThePort(const char* name, const std::string& port) {
    Arrangement how(name);
    how.arrange = Write(kSettings, "[general]\r\nlowerversion=1.3.7\r\nport=" + port + "\r\n");
    return how;
}

Arrangement SettingsOfGarbage() {
    Arrangement how("SettingsOfGarbage");
    how.arrange = Write(kSettings, std::string("\xFF\xFE\0\0[gen\x01\x02\r\nport", 18));
    return how;
}

std::vector<Arrangement> Arrangements() {
    return {ArchiverReplacedBy("ArchiverThatIsNoProgram", "this is no program"),
            ArchiverReplacedBy("ArchiverThatIsEmpty", ""),
            ArchiverReplacedBy("ArchiverThatIsCutOff", "MZ"),
            ArchiverThatIsMissing(),
            ArchiverThatFails(),
            ArchiverThatIsKilledHalfWay(),
            SceneHeldByAnotherProgram(),
            FileWhereTheOutputFolderBelongs(),
            SceneDeletedBeforePacking(),
            SettingsDeletedWhileTheDialogIsOpen(),
            SettingsWithThePort("PortBeyondAllPorts", "99999"),
            SettingsWithThePort("PortBelowZero", "-1"),
            SettingsWithThePort("PortThatIsAWord", "twenty"),
            SettingsOfGarbage()};
}

TEST(EndingsOfFiles, AreAllArranged) {
    ExpectAllArranged(EndingCause::Files, Arrangements());
}

INSTANTIATE_TEST_SUITE_P(OfFiles, EndingTest,
                         ::testing::ValuesIn(Arranged(EndingCause::Files, Arrangements())),
                         NameOfEnding);

Arrangement CleaningScriptMissing() {
    Arrangement how("CleaningScriptMissing");
    how.clean = true;
    how.arrange = [](EndingTest& flow) { DeleteTree(flow.host_.product.path(kCleaner)); };
    return how;
}

Arrangement CleaningScriptOf(const char* name, const std::string& text) {
    Arrangement how(name);
    how.clean = true;
    how.arrange = Write(kCleaner, text);
    return how;
}

Arrangement LogHeldByAnotherProgram() {
    Arrangement how("LogHeldByAnotherProgram");
    // The log that each exchange opens for itself; the data log is held by the plug-in.
    how.arrange = [](EndingTest& flow) {
        flow.held = HoldExclusively(flow.host_.product.path(L"/log1.3.7/rud_http.log"));
    };
    return how;
}

Arrangement SettingsHeldForWriting() {
    Arrangement how("SettingsThatCannotBeWritten");
    how.arrange = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_READONLY);
    };
    how.mend = [](EndingTest& flow) {
        ::SetFileAttributesW(flow.host_.product.path(kSettings).c_str(), FILE_ATTRIBUTE_NORMAL);
    };
    return how;
}

Arrangement ClientWith(const char* name, const wchar_t* options) {
    Arrangement how(name);
    how.before = [options](EndingTest& flow) { flow.startClient(options); };
    return how;
}

Arrangement AddressOfGarbage() {
    Arrangement how("CustomAddressOfGarbage");
    how.before = Write(L"/script/custom.bin", std::string(300, '\xEE'));
    return how;
}

std::vector<Arrangement> HarmlessArrangements() {
    return {SceneThatIsReadOnly(),
            CleaningScriptMissing(),
            CleaningScriptOf("CleaningScriptThatFails", "throw \"no\""),
            CleaningScriptOf("CleaningScriptOfGarbage", "\xFF\xFE\x01"),
            CleaningScriptOf("CleaningScriptThatIsEmpty", ""),
            LogHeldByAnotherProgram(),
            SettingsHeldForWriting(),
            ClientWith("NoSharedMemory", L"--no-shared-memory"),
            ClientWith("FolderOfTheClientOnNoDisk", L"--save-path Q:\\none\\such"),
            ClientWith("AReplyThatComesLate", L"--delay 1500"),
            AddressOfGarbage()};
}

TEST(EndingsWithoutHarm, AreAllArranged) {
    ExpectAllArranged(EndingCause::Harmless, HarmlessArrangements());
}

INSTANTIATE_TEST_SUITE_P(WithoutHarm, EndingTest,
                         ::testing::ValuesIn(Arranged(EndingCause::Harmless,
                                                      HarmlessArrangements())),
                         NameOfEnding);

} // namespace
} // namespace test
} // namespace orv
