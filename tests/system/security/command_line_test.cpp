// Paths from outside on the archiver's command line: taken apart as every program takes its own
// apart, each is one argument, and the archive's lies where it should.
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "base/windows.h"
#include "submit/scene_archive.h"
#include "tests/fuzz/difficult.h"
#include "tests/support/product_folder.h"
#include "tests/support/temporary_folder.h"

#include <gtest/gtest.h>
#include <shellapi.h>

#include <vector>

namespace orv {
namespace test {
namespace {

std::vector<std::wstring> Arguments(const std::wstring& commandLine) {
    int count = 0;
    wchar_t** const taken = ::CommandLineToArgvW(commandLine.c_str(), &count);
    std::vector<std::wstring> arguments(taken, taken + count);
    ::LocalFree(taken);
    return arguments;
}

class CommandLine : public ::testing::Test {
protected:
    CommandLine() {
        paths_.sevenZipPath = product_.path(L"/7-Zip/7z.exe");
        paths_.compressDir = folder_.file(L"compress");
    }

    // Whether it was packed; the command line is checked when it was.
    bool pack(const std::wstring& scene, const std::wstring& saveFolder) {
        SessionData session;
        session.present = true;
        session.savePath = saveFolder;
        session.savePathBytes = WideToUtf8(saveFolder);
        if (!PackScene(WideToUtf8(scene), paths_, session))
            return false;
        const std::wstring archive = Utf8ToWide(paths_.archivePath);
        const std::vector<std::wstring> arguments =
            Arguments(L"\"" + paths_.sevenZipPath + L"\"" + Utf8ToWide(paths_.archiverArguments));
        EXPECT_EQ(arguments.size(), 8U) << WideToUtf8(saveFolder);
        if (arguments.size() == 8U) {
            EXPECT_EQ(arguments[0], paths_.sevenZipPath);
            EXPECT_EQ(arguments[5].compare(0, 2, L"-p"), 0);
            EXPECT_EQ(arguments[6], archive);
            EXPECT_EQ(arguments[7], scene);
        }
        EXPECT_TRUE(IsFullPath(archive)) << paths_.archivePath;
        std::wstring folder = FolderPart(archive);
        folder.pop_back();
        EXPECT_TRUE(folder == paths_.compressDir || folder == saveFolder ||
                    folder + archive[folder.size()] == saveFolder)
            << paths_.archivePath;
        return true;
    }

    const TestProductFolder product_;
    const TemporaryFolder folder_{L"quoted \u5BA2"};
    JobPaths paths_;
};

TEST_F(CommandLine, HoldsWhateverFolderTheClientNames) {
    int kept = 0;
    for (const std::string& name : fuzz::DifficultTexts()) {
        const std::wstring folder = Utf8ToWide(name.substr(0, name.find('\0')));
        EXPECT_TRUE(pack(folder_.file(L"room.max"), folder)) << name;
        kept += FolderPart(Utf8ToWide(paths_.archivePath)) == paths_.compressDir + L"/" ? 1 : 0;
    }
    EXPECT_GT(kept, 90); // all but the full paths of possible folders
    EXPECT_TRUE(pack(folder_.file(L"room.max"), folder_.file(L"named by the client")));
    EXPECT_EQ(FolderPart(Utf8ToWide(paths_.archivePath)),
              folder_.file(L"named by the client") + L"/");
}

TEST_F(CommandLine, HoldsWhateverTheSceneIsCalled) {
    int packed = 0;
    for (const std::string& name : fuzz::DifficultTexts()) {
        const std::wstring scene =
            folder_.path() + L"\\" + Utf8ToWide(name.substr(0, name.find('\0')));
        packed += pack(scene, L"") ? 1 : 0;
    }
    EXPECT_GT(packed, 10);
    EXPECT_LT(packed, static_cast<int>(fuzz::DifficultTexts().size()));
}

} // namespace
} // namespace test
} // namespace orv
