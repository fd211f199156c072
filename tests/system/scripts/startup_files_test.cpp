// Start-up scripts: what is cut, deleted, backed up and left alone.
#include "tests/support/files.h"
#include "tests/system/scripts/scenes.h"

#include "base/windows.h"

#include <gtest/gtest.h>

namespace {

using orv::test::PathExists;
using orv::test::ReadFileBytes;
using orv::test::SceneUnderTest;
using orv::test::WriteFileBytes;

Json::Value EmptyScene() {
    return orv::test::ParsedJson(R"({"cameras": ["A"]})");
}

std::string Wide(const std::string& text) {
    std::string bytes = "\xFF\xFE";
    for (const char each : text)
        bytes += std::string(1, each) + std::string(1, '\0');
    return bytes;
}

class StartupFiles : public ::testing::Test {
protected:
    std::vector<std::string> clean() {
        scene.clean();
        std::vector<std::string> files;
        for (const std::string& line : scene.cleaned()) {
            if (line.find(" file ") != std::string::npos)
                files.push_back(line);
        }
        return files;
    }
    std::string backup(const std::wstring& name) const {
        return scene.product.read(L"/backup/" + name + L".backup");
    }

    SceneUnderTest scene{EmptyScene(), L"shot.max"};
};

struct Cut {
    const char* name;
    std::string before;
    std::string after;
};

void PrintTo(const Cut& cut, std::ostream* out) {
    *out << cut.name;
}

class Payloads : public StartupFiles, public ::testing::WithParamInterface<Cut> {};

TEST_P(Payloads, AreCutOffAndTheRestStaysToTheByte) {
    const std::wstring file = scene.systemStartup(L"tools.ms");
    WriteFileBytes(file, GetParam().before);
    EXPECT_EQ(clean(), std::vector<std::string>{"removed file tools.ms"});
    EXPECT_EQ(ReadFileBytes(file), GetParam().after);
    EXPECT_EQ(backup(L"tools.ms.1"), GetParam().before);
    EXPECT_FALSE(PathExists(file + L".orv"));
    EXPECT_TRUE(clean().empty()) << "a second run";
}

INSTANTIATE_TEST_SUITE_P(
    Files, Payloads,
    ::testing::Values(
        Cut{"CRP at the end", "print 1\r\nCRP_AScript = \"marker\"\r\nmore\r\n", "print 1\r\n"},
        Cut{"ADSL at the end", "print 1\nADSL_AScript = \"marker\"\n", "print 1\n"},
        Cut{"a file of nothing else", "CRP_AScript = \"marker\"", ""},
        Cut{"a declaration before it", "print 1\r\nglobal CRP_AScript = \"m\"\r\n", "print 1\r\n"},
        Cut{"an encoded name before it", "-- \xC4\xE3\xBA\xC3 \xE4\xBD\xA0\r\nCRP_AScript = \"m\"",
            "-- \xC4\xE3\xBA\xC3 \xE4\xBD\xA0\r\n"},
        Cut{"a byte-order mark", "\xEF\xBB\xBFprint 1\r\nCRP_AScript = \"m\"",
            "\xEF\xBB\xBFprint 1\r\n"},
        Cut{"UTF-16", Wide("print 1\r\nCRP_AScript = \"m\"\r\n"), Wide("print 1\r\n")}));

TEST_F(StartupFiles, ThatOnlyQuoteTheMarksAreLeftAlone) {
    const std::string own = "-- finds CRP_AScript = \"x\r\nmark = \"ADSL_AScript = \\\"\"\r\n"
                            "execute \"CRP_BScript\"\r\n";
    WriteFileBytes(scene.systemStartup(L"own_cleaner.ms"), own);
    WriteFileBytes(scene.systemStartup(L"data.txt"), "CRP_AScript = \"not a script\"");
    WriteFileBytes(scene.userStartup(L"vrdematcleanbeta.ms"), ""); // keeps the virus away
    EXPECT_EQ(clean(), std::vector<std::string>{"skipped_vaccine file vrdematcleanbeta.ms"});
    EXPECT_EQ(ReadFileBytes(scene.systemStartup(L"own_cleaner.ms")), own);
    EXPECT_TRUE(PathExists(scene.userStartup(L"vrdematcleanbeta.ms")));
    EXPECT_TRUE(PathExists(scene.systemStartup(L"data.txt")));
}

TEST_F(StartupFiles, OfAFamilyAreDeletedAfterABackupAlsoHiddenOnes) {
    const std::wstring file = scene.userStartup(L"vrdematCleanBeta.mse");
    WriteFileBytes(file, "marker");
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    WriteFileBytes(scene.userStartup(L"inner\\vrdestermatconvertor.ms"), "marker");
    EXPECT_EQ(clean(), (std::vector<std::string>{"removed file vrdematCleanBeta.mse",
                                                 "removed file vrdestermatconvertor.ms"}));
    EXPECT_FALSE(PathExists(file));
    EXPECT_EQ(backup(L"vrdematCleanBeta.mse.1"), "marker");
    EXPECT_TRUE(clean().empty());
}

TEST_F(StartupFiles, ReadOnlyOnesAreCutAsWell) {
    const std::wstring file = scene.systemStartup(L"a.mcr");
    WriteFileBytes(file, "x = 1\r\nCRP_AScript = \"m\"");
    ::SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    clean();
    EXPECT_EQ(ReadFileBytes(file), "x = 1\r\n");
}

TEST_F(StartupFiles, OfOneNameGetBackupsOfTheirOwn) {
    for (const std::wstring& file : {scene.systemStartup(L"a.ms"), scene.userStartup(L"a.ms")})
        WriteFileBytes(file, "CRP_AScript = \"m\"");
    EXPECT_EQ(clean().size(), 2U);
    EXPECT_EQ(backup(L"a.ms.1"), backup(L"a.ms.2"));
}

TEST_F(StartupFiles, WithoutABackupStayAsTheyAre) {
    const std::wstring file = scene.systemStartup(L"a.ms");
    WriteFileBytes(file, "CRP_AScript = \"m\"");
    scene.product.write(L"/backup", "a file where the folder belongs");
    EXPECT_EQ(clean(), std::vector<std::string>{"failed file a.ms"});
    EXPECT_EQ(ReadFileBytes(file), "CRP_AScript = \"m\"");
}

TEST_F(StartupFiles, ThatAreHeldByAnotherProgramAreToldAndStay) {
    const std::wstring file = scene.systemStartup(L"a.ms");
    WriteFileBytes(file, "CRP_AScript = \"m\"");
    {
        const orv::FileHandle reader(::CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ,
                                                   nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(clean(), std::vector<std::string>{"failed file a.ms"});
        EXPECT_EQ(ReadFileBytes(file), "CRP_AScript = \"m\"");
    }
    clean();
    EXPECT_EQ(ReadFileBytes(file), "");
}

} // namespace
