// Many submissions in one host, one after the other: what is held at the end is what was held after
// the first round of them.
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/system/flow/flow.h"
#include "tests/system/host/process_counts.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace orv {
namespace test {
namespace {

// Warm-up: what Windows, the C library and the plug-in load once and keep.
constexpr int kFirst = 10;
// Of handles, GDI objects, windows and threads together that Windows itself opens late.
constexpr int kTolerance = 5;

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
    EXPECT_LE(after.handles, before.handles + kTolerance);
    EXPECT_LE(after.gdiObjects, before.gdiObjects + kTolerance);
    // A thread that Windows keeps for later work has two hidden windows of its own.
    EXPECT_LE(after.threads, before.threads + 1);
    EXPECT_LE(after.windows, before.windows + 2 * std::max(0, after.threads - before.threads));
    expectNothingLostOrLeft({L"room..max"});
}

} // namespace
} // namespace test
} // namespace orv
