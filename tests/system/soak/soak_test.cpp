// Many submissions in one host, and many analyses, one after the other: what is held at the end is
// what was held after the first ten.
#include "analysis/report_reader.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "standin/host/maxscript_runner.h"
#include "standin/host/text.h"
#include "tests/system/flow/flow.h"
#include "tests/system/host/process_counts.h"

#include <cstdlib>
#include <iostream>

namespace orv {
namespace test {
namespace {

// Warm-up: what Windows, the C library and the plug-in load once and keep.
constexpr int kFirst = 10;
// Of handles, GDI objects, windows and threads together that Windows itself opens late.
constexpr int kTolerance = 5;
// Of memory in KiB, whatever the number of submissions: what heaps keep for later, and what the
// test and the host themselves remember of their events.
constexpr int kMemoryTolerance = 8192;
// Three logs of at most 5 MB, each with at most five older ones.
constexpr std::uint64_t kLargestLogs = 3U * 6U * (5U << 20);

int Analyses() {
    const char* const text = std::getenv("ORV_SOAK_ANALYSES");
    const int count = text == nullptr ? 0 : std::atoi(text);
    return count > kFirst ? count : 500;
}

int Submissions() {
    const char* const text = std::getenv("ORV_SOAK_SUBMISSIONS");
    const int count = text == nullptr ? 0 : std::atoi(text);
    return count > kFirst ? count : 20;
}

class Soak : public SubmissionFlow {
protected:
    // Opens the dialog in the host that runs.
    void openAgain(const std::wstring& sceneName) {
        dialog_ = host_.openDialog();
        ASSERT_NE(dialog_, nullptr);
        ClickCheckBox(dialog_, IDC_CAMERAS, 0);
        Type(dialog_, IDC_SCENE_NAME, sceneName);
    }

    void expectBoundedLogs() const {
        const std::wstring folder = host_.product.path(L"/log1.3.7");
        std::uint64_t bytes = 0;
        for (const std::wstring& name : ListFolder(folder))
            bytes += ReadFileBytes(folder + L"\\" + name).size();
        EXPECT_LE(bytes, kLargestLogs);
        EXPECT_GT(bytes, 0U);
    }

    void close() {
        ASSERT_TRUE(dialogStays());
        ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
        ASSERT_TRUE(dialogCloses());
    }

    // Turns of five kinds.
    void submission(int number) {
        switch (number % 5) {
        case 0: // the client takes it
            ASSERT_NO_FATAL_FAILURE(openAgain(L"room"));
            EXPECT_EQ(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
            ASSERT_TRUE(dialogCloses());
            break;
        case 1: // a name that cannot be used
            ASSERT_NO_FATAL_FAILURE(openAgain(L"room."));
            submitToMessage();
            ASSERT_TRUE(dialogCloses());
            break;
        case 2: { // no client listens
            const std::string settings = host_.product.read(L"/script/rud_plugin.ini");
            host_.product.writeSettings("port=1\r\nlowerversion=1.3.7\r\n");
            ASSERT_NO_FATAL_FAILURE(openAgain(L"room"));
            EXPECT_EQ(submitToMessage().text.find(text(IDS_CLIENT_UNREACHABLE)), 0U);
            ASSERT_NO_FATAL_FAILURE(close());
            host_.product.write(L"/script/rud_plugin.ini", settings);
            break;
        }
        case 3: // no archiver
            DeleteTree(host_.product.path(L"/7-Zip"));
            ASSERT_NO_FATAL_FAILURE(openAgain(L"room"));
            EXPECT_NE(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
            ASSERT_NO_FATAL_FAILURE(close());
            InstallArchiver();
            break;
        default: // opened, looked at, closed
            ASSERT_NO_FATAL_FAILURE(openAgain(L"room"));
            ASSERT_NO_FATAL_FAILURE(close());
            break;
        }
    }
};

TEST_F(Soak, HoldsAtItsEndWhatItHeldAfterTheFirstTen) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    ASSERT_NO_FATAL_FAILURE(close());
    ProcessCounts before;
    const int count = Submissions();
    for (int i = 1; i <= count; ++i) {
        ASSERT_NO_FATAL_FAILURE(submission(i)) << "submission " << i;
        if (i == kFirst)
            before = CountProcess();
    }
    const ProcessCounts after = CountProcess();
    std::cout << "after " << kFirst << ": " << before << "\nafter " << count << ": " << after
              << "\n";
    EXPECT_LE(after.mappedViews, before.mappedViews + kTolerance);
    EXPECT_LE(after.privateKib, before.privateKib + kMemoryTolerance);
    EXPECT_EQ(after.temporaryFiles, before.temporaryFiles);
    expectBoundedLogs();
    EXPECT_LE(after.handles, before.handles + kTolerance);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + kTolerance);
    EXPECT_LE(after.threads, before.threads + 1);
    // A thread that is about to end has two hidden windows or has destroyed them.
    EXPECT_LE(after.windows, before.windows + 2);
    expectNothingLostOrLeft({L"room..max"});
}

// The parser in the host and the reader of its report, without the dialog.
TEST(SoakOfAnalyses, HoldsAtItsEndWhatItHeldAfterTheFirstTen) {
    TestProductFolder product;
    product.installScripts();
    const TemporaryFolder folder;
    standin::Scene scene;
    std::string error;
    ASSERT_TRUE(
        scene.describe(R"({"cameras": ["A", "B"], "external_files": ["D:\\a.png"]})", error));
    standin::MaxscriptRunner runner(
        scene, [](const std::wstring&) { return std::wstring(); }, [](const std::wstring&) {});
    const std::wstring report = folder.file(L"report.ret");
    const std::wstring script = L"fileIn \"" + product.path(L"/script/MaxRenderGlobalsParser.mse") +
                                L"\"\ngMax.analysis @\"" + report + L"\" \"\"";
    ProcessCounts before;
    const int count = Analyses();
    for (int i = 1; i <= count; ++i) {
        ASSERT_TRUE(runner.run(script).ok);
        SceneAnalysis analysis;
        analysis.reportText = standin::ToWide(ReadFileBytes(report));
        ASSERT_EQ(ReadAnalysisReport(analysis), kReportRead);
        ASSERT_EQ(analysis.cameras.size(), 2U);
        if (i == kFirst)
            before = CountProcess();
    }
    const ProcessCounts after = CountProcess();
    std::cout << "after " << kFirst << " analyses: " << before << "\nafter " << count
              << " analyses: " << after << "\n";
    EXPECT_LE(after.handles, before.handles + kTolerance);
    EXPECT_LE(after.mappedViews, before.mappedViews + kTolerance);
    EXPECT_LE(after.privateKib, before.privateKib + kMemoryTolerance);
    EXPECT_EQ(after.temporaryFiles, before.temporaryFiles);
    EXPECT_EQ(after.threads, before.threads);
}

} // namespace
} // namespace test
} // namespace orv
