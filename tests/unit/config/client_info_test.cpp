// What PluginData finds in the product folder, the settings file and custom.bin.
#include "base/folders.h"
#include "base/handles.h"
#include "tests/support/files.h"
#include "tests/unit/config/plugin_data_fixture.h"

#include <limits>

namespace orv {
namespace {

const std::string kLoaded = "[INFO] Get client infomation successfully.";
const std::string kNoCustomFile = "[INFO] CreateFile error no:2";

class LoadClientInfo : public test::PluginDataFixture {
protected:
    ClientInfo load() {
        ClientInfo info;
        EXPECT_TRUE(data.loadClientInfo(info));
        return info;
    }
    void writeCustom(const std::wstring& text) {
        product.write(L"/script/custom.bin", test::Utf16Bytes(text));
    }
};

TEST_F(LoadClientInfo, FindsEveryPathBelowTheProductFolder) {
    const std::wstring folder = CommonAppDataFolder() + L"/Orv Rendering";
    const ClientInfo info = load();
    EXPECT_EQ(info.jsonDir, folder + L"/json");
    EXPECT_EQ(info.sevenZipPath, folder + L"/7-Zip/7z.exe");
    EXPECT_EQ(info.compressDir, folder + L"/compress");
    EXPECT_EQ(info.parserScript, folder + L"/script/MaxRenderGlobalsParser.mse");
    EXPECT_EQ(info.virusCheckAdsl, folder + L"/script/OrvAntivirusAdsl_UTF8.ms");
    EXPECT_EQ(info.virusCheckAlc, folder + L"/script/OrvAntivirusAlc_UTF8.ms");
    EXPECT_EQ(info.virusCheckCrp, folder + L"/script/OrvAntivirusCrp_UTF8.ms");
}

TEST_F(LoadClientInfo, CreatesNeitherFilesNorFolders) {
    load();
    EXPECT_TRUE(test::ListFolder(product.path(L"/script")).empty());
    EXPECT_FALSE(test::PathExists(product.path(L"/json")));
    EXPECT_FALSE(test::PathExists(product.path(L"/compress")));
}

TEST_F(LoadClientInfo, WithoutASettingsFileHasNoConnection) {
    const ClientInfo info = load();
    EXPECT_EQ(info.ip, L"");
    EXPECT_EQ(info.port, 0);
    EXPECT_EQ(info.lowerVersion, L"");
    EXPECT_EQ(logLines(), (std::vector<std::string>{kNoCustomFile, kLoaded}));
}

TEST_F(LoadClientInfo, WithAnEmptySettingsFileHasNoConnection) {
    product.write(L"/script/rud_plugin.ini", "");
    const ClientInfo info = load();
    EXPECT_EQ(info.ip, L"");
    EXPECT_EQ(info.port, 0);
    EXPECT_EQ(info.lowerVersion, L"");
}

TEST_F(LoadClientInfo, ReadsTheConnection) {
    product.writeSettings("ip=10.0.0.7\r\nport=8080\r\nlowerversion=1.3.0\r\n");
    const ClientInfo info = load();
    EXPECT_EQ(info.ip, L"10.0.0.7");
    EXPECT_EQ(info.port, 8080);
    EXPECT_EQ(info.lowerVersion, L"1.3.0");
}

TEST_F(LoadClientInfo, ReadsThePortAsTheNumberThatItsTextBeginsWith) {
    struct Case {
        const char* text;
        std::int32_t port;
    };
    const Case cases[] = {
        {"0", 0},
        {"70000", 70000},
        {"8080x", 8080},
        {"text", 0},
        {"", 0},
        {"-1", -1},
        {"+80", 80},
        {"080", 80},
        {"0x50", 0},
        {"80 81", 80},
        {"2147483647", 2147483647},
        {"2147483648", 2147483647},
        {"-2147483649", std::numeric_limits<std::int32_t>::min()},
        {"99999999999999999999999999999999", 2147483647},
    };
    for (const Case& c : cases) {
        product.writeSettings(std::string("port=") + c.text + "\r\n");
        EXPECT_EQ(load().port, c.port) << c.text;
    }
}

TEST_F(LoadClientInfo, HasNoPortWhenItsTextCannotBeNarrowed) {
    product.write(L"/script/rud_plugin.ini",
                  test::Utf16Bytes(L"\uFEFF[general]\r\nport=8080\U0001F600\r\n"));
    EXPECT_EQ(load().port, 0);
}

TEST_F(LoadClientInfo, TakesValuesOfThousandsOfCharacters) {
    product.writeSettings("ip=" + std::string(3000, 'x') + "\r\nport=" + std::string(3000, '1') +
                          "\r\nlowerversion=" + std::string(3000, '2') + "\r\n");
    const ClientInfo info = load();
    EXPECT_EQ(info.ip, std::wstring(2047, L'x'));
    EXPECT_EQ(info.port, 2147483647);
    EXPECT_EQ(info.lowerVersion, std::wstring(2047, L'2'));
}

TEST_F(LoadClientInfo, ReadsTheFilesAfreshEachTime) {
    product.writeSettings("ip=1\r\nport=1\r\n");
    EXPECT_EQ(load().port, 1);
    product.writeSettings("port=2222\r\n");
    EXPECT_EQ(load().port, 2222);
    EXPECT_EQ(load().ip, L"");
    writeCustom(L"ip=3");
    EXPECT_EQ(load().ip, L"3");
}

TEST_F(LoadClientInfo, ReplacesWhatTheRecordHeld) {
    ClientInfo info;
    info.ip = L"old";
    info.port = 1;
    info.lowerVersion = L"old";
    info.jsonDir = L"old";
    data.loadClientInfo(info);
    EXPECT_EQ(info.ip, L"");
    EXPECT_EQ(info.port, 0);
    EXPECT_EQ(info.lowerVersion, L"");
    EXPECT_EQ(info.jsonDir, product.path(L"/json"));
}

TEST_F(LoadClientInfo, LeavesWhatBelongsToTheSubmission) {
    ClientInfo info;
    info.scenePath = "scene";
    info.giScaleIndex = 2;
    info.giScaleText = "33%";
    info.archivePath = "archive";
    info.archiverArguments = "arguments";
    data.loadClientInfo(info);
    EXPECT_EQ(info.scenePath, "scene");
    EXPECT_EQ(info.giScaleIndex, 2);
    EXPECT_EQ(info.giScaleText, "33%");
    EXPECT_EQ(info.archivePath, "archive");
    EXPECT_EQ(info.archiverArguments, "arguments");
}

TEST_F(LoadClientInfo, PrefersTheAddressOfTheCustomFile) {
    struct Case {
        std::wstring custom;
        std::wstring ip;
    };
    const Case cases[] = {
        {L"ip=10.0.0.5", L"10.0.0.5"},
        {L"a=b=c", L"b=c"},
        {L"ip=10.0.0.5\r\n", L"10.0.0.5\r\n"}, // nothing is trimmed
        {L"= 10.0.0.5 ", L" 10.0.0.5 "},
        {L"ip=", L""},
        {L"\uFEFFip=10.0.0.5", L"10.0.0.5"},
        {L"ip=\uFEFF1", L"\uFEFF1"}, // a byte-order mark is a character like others
        {L"ip=\u4e3b\u673a", L"\u4e3b\u673a"},
        {std::wstring(L"ip=1\0=2", 7), L"1"},
        {L"", L"from settings"},
        {L"10.0.0.5", L"from settings"},
        {std::wstring(L"\0ip=1", 5), L"from settings"},
    };
    product.writeSettings("ip=from settings\r\n");
    for (const Case& c : cases) {
        writeCustom(c.custom);
        EXPECT_EQ(load().ip, c.ip);
    }
}

TEST_F(LoadClientInfo, KnowsWhetherTheCustomFileHasAnAddress) {
    ClientInfo info;
    info.ip = L"before";
    EXPECT_EQ(data.readCustomAddress(info), 0);
    writeCustom(L"no sign");
    EXPECT_EQ(data.readCustomAddress(info), 0);
    EXPECT_EQ(info.ip, L"before");
    writeCustom(L"ip=10.0.0.5");
    EXPECT_EQ(data.readCustomAddress(info), 1);
    EXPECT_EQ(info.ip, L"10.0.0.5");
}

TEST_F(LoadClientInfo, DropsTheOddLastByteOfTheCustomFile) {
    product.write(L"/script/custom.bin", test::Utf16Bytes(L"ip=10.0.0.5") + "6");
    EXPECT_EQ(load().ip, L"10.0.0.5");
    product.writeSettings("ip=from settings\r\n");
    product.write(L"/script/custom.bin", "=");
    EXPECT_EQ(load().ip, L"from settings");
}

TEST_F(LoadClientInfo, SaysNothingOfACustomFileWithoutAnAddress) {
    writeCustom(L"no sign");
    load();
    EXPECT_EQ(logLines(), std::vector<std::string>{kLoaded});
}

TEST_F(LoadClientInfo, TakesACustomFileOfTenMegabytes) {
    const std::size_t characters = 5 * 1024 * 1024;
    product.writeSettings("ip=from settings\r\n");
    writeCustom(std::wstring(characters, L'x'));
    EXPECT_EQ(load().ip, L"from settings");
    writeCustom(L"=" + std::wstring(characters - 1, L'x'));
    EXPECT_EQ(load().ip.size(), characters - 1);
}

TEST_F(LoadClientInfo, KeepsTheSettingsWhileAnotherProgramHoldsTheCustomFile) {
    product.writeSettings("ip=from settings\r\n");
    writeCustom(L"ip=10.0.0.5");
    const FileHandle held = test::HoldExclusively(product.path(L"/script/custom.bin"));
    EXPECT_EQ(load().ip, L"from settings");
    EXPECT_EQ(logLines(), (std::vector<std::string>{"[INFO] CreateFile error no:32", kLoaded}));
}

TEST_F(LoadClientInfo, KeepsTheSettingsWhenAFolderIsInTheCustomFilesPlace) {
    product.writeSettings("ip=from settings\r\n");
    test::MakeFolders(product.path(L"/script/custom.bin"));
    EXPECT_EQ(load().ip, L"from settings");
    EXPECT_EQ(logLines(), (std::vector<std::string>{"[INFO] CreateFile error no:5", kLoaded}));
}

TEST_F(LoadClientInfo, RunsOnWithoutAProductFolder) {
    test::DeleteTree(product.path(L"/script"));
    EXPECT_EQ(load().port, 0);
    EXPECT_EQ(logLines(), (std::vector<std::string>{"[INFO] CreateFile error no:3", kLoaded}));
}

} // namespace
} // namespace orv
