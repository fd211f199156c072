#include "tests/system/exit/exit_flow.h"

#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/support/wait_until.h"

namespace orv {
namespace test {

ExitFlow::ExitFlow() {
    host_.product.write(L"/log1.3.7/rud_http.log", "");
}

void ExitFlow::packScene(std::size_t bytes, const std::wstring& client) {
    host_.sceneBytes = NoisyBytes(bytes);
    ASSERT_NO_FATAL_FAILURE(startClient(client));
    ASSERT_NO_FATAL_FAILURE(open());
    submit();
    ASSERT_TRUE(WaitUntil([this] { return !archives().empty(); })) << "the archive is begun";
}

void ExitFlow::closeHost() {
    ::PostMessageW(dialog_, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(dialogCloses());
    ::PostMessageW(host_.window(), WM_CLOSE, 0, 0);
}

HWND ExitFlow::exitWindow() {
    HWND found = nullptr;
    EXPECT_TRUE(WaitUntil([&found, this] {
        found = FindDialogWith(IDC_EXIT_END);
        return found != nullptr || hostHasEnded();
    }));
    EXPECT_NE(found, nullptr) << "the host ends without a word";
    return found;
}

bool ExitFlow::hostEnds(std::chrono::milliseconds deadline) {
    return WaitUntil([this] { return hostHasEnded(); }, deadline);
}

void ExitFlow::expectEndedWithoutTheJob() {
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(logHas(L"rud_data", "[WARN] Submission: ended by request. Nothing was sent to the "
                                    "client."))
        << log(L"rud_data");
    EXPECT_TRUE(ProcessesNamed(L"7z.exe").empty()) << "the archiver outlives the host";
    EXPECT_TRUE(archives().empty());
    EXPECT_TRUE(jobFiles().empty());
    EXPECT_EQ(log(L"rud_http"), "") << "nobody spoke to the client";
}

} // namespace test
} // namespace orv
