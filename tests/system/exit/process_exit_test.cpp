// The host as a process: what is left of it and of its archiver when it ends.
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "tests/hosts/host_process.h"
#include "tests/support/log_lines.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/exit/exit_flow.h"
#include "ui/exit/exit_guard.h"

namespace orv {
namespace test {
namespace {

constexpr int kMessageText = 0xFFFF;

class ProcessExit : public ExitFlow {
protected:
    // A host that packs a scene of that many bytes.
    void start(std::size_t sceneBytes, const std::wstring& client = std::wstring(),
               const std::wstring& arguments = std::wstring()) {
        host_.sceneBytes = NoisyBytes(sceneBytes);
        WriteFileBytes(scenePath(), host_.sceneBytes);
        WriteFileBytes(scenePath() + L".json", Json::FastWriter().write(host_.scene));
        if (!client.empty()) {
            ASSERT_NO_FATAL_FAILURE(startClient(client));
        }
        process_ =
            std::make_unique<HostProcess>(scenePath(), logFile_.file(L"host.log"), arguments);
        process_->submit();
    }
    void startPacking(std::size_t sceneBytes) {
        ASSERT_NO_FATAL_FAILURE(start(sceneBytes, L"--delay 0"));
        ASSERT_TRUE(WaitUntil([this] { return !archives().empty(); })) << "the archive is begun";
    }
    bool hostTold(const std::string& event) const {
        return ReadFileBytes(logFile_.file(L"host.log")).find("\"" + event + "\"") !=
               std::string::npos;
    }

    const TemporaryFolder logFile_;
    std::unique_ptr<HostProcess> process_;
    DWORD code_ = 1;
};

TEST_F(ProcessExit, WaitsForAJobThatArrivesWhole) {
    ASSERT_NO_FATAL_FAILURE(startPacking(kMiddlingScene));
    process_->close();
    process_->waitForWindowWith(IDC_EXIT_END);
    HWND message = process_->waitForWindowWith(kMessageText, kPackingDeadline);
    EXPECT_TRUE(process_->runs());
    ::PostMessageW(message, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(process_->ends(code_));
    EXPECT_EQ(code_, 0U);
    EXPECT_TRUE(hostTold("stopped"));
    EXPECT_EQ(archives().size(), 1U);
    EXPECT_EQ(jobFiles().size(), 1U);
    EXPECT_TRUE(logHas(L"rud_data", "[INFO] The submission ended with 0."));
    expectNothingLostOrLeft();
}

TEST_F(ProcessExit, EndsWithoutItAndLeavesNoArchiver) {
    ASSERT_NO_FATAL_FAILURE(startPacking(kLargeScene));
    process_->close();
    ::PostMessageW(process_->waitForWindowWith(IDC_EXIT_END), WM_COMMAND, IDC_EXIT_END, 0);
    EXPECT_TRUE(process_->ends(code_));
    EXPECT_EQ(code_, 0U);
    EXPECT_TRUE(hostTold("stopped"));
    expectEndedWithoutTheJob();
}

// Nothing of the plug-in runs any more: Windows ends the archiver.
TEST_F(ProcessExit, KilledHardTakesTheArchiverAlong) {
    ASSERT_NO_FATAL_FAILURE(startPacking(kLargeScene));
    ASSERT_FALSE(ProcessesNamed(L"7z.exe").empty());
    process_->kill();
    EXPECT_TRUE(process_->ends(code_));
    EXPECT_TRUE(WaitUntil([] { return ProcessesNamed(L"7z.exe").empty(); },
                          std::chrono::milliseconds(3000)))
        << "packing alone would take longer";
    EXPECT_FALSE(logHas(L"rud_data", "The submission ended"));
}

// The message waits for an answer and gets none.
TEST_F(ProcessExit, GoesOnWithoutASubmissionThatDoesNotEnd) {
    ASSERT_NO_FATAL_FAILURE(start(4000)); // without a listener the client cannot be reached
    process_->waitForWindowWith(kMessageText);
    process_->close();
    HWND window = process_->waitForWindowWith(IDC_EXIT_END);
    const ULONGLONG begun = ::GetTickCount64();
    ::PostMessageW(window, WM_COMMAND, IDC_EXIT_END, 0);
    EXPECT_TRUE(process_->ends(code_, std::chrono::milliseconds(kEndingMilliseconds) + kDeadline));
    EXPECT_GE(::GetTickCount64() - begun, kEndingMilliseconds - 1000U);
    EXPECT_EQ(code_, 0U);
    EXPECT_TRUE(hostTold("stopped"));
    EXPECT_TRUE(logHas(L"rud_data", "[ERROR] The host's exit goes on: the submission has not ended "
                                    "in time."));
}

TEST_F(ProcessExit, OfAnUnattendedHostShowsNothingAndIsBounded) {
    ASSERT_NO_FATAL_FAILURE(start(4000, L"--delay 600000", L"--quiet"));
    ASSERT_TRUE(WaitUntil([this] { return logHas(L"rud_data", "[INFO] Write json file at: "); }));
    process_->close();
    const ULONGLONG begun = ::GetTickCount64();
    bool shown = false;
    EXPECT_TRUE(WaitUntil(
        [&] {
            shown = shown || process_->windowWith(IDC_EXIT_END) != nullptr;
            return !process_->runs();
        },
        std::chrono::milliseconds(kUnattendedMilliseconds) + kDeadline));
    EXPECT_FALSE(shown);
    EXPECT_GE(::GetTickCount64() - begun, kUnattendedMilliseconds - 1000U);
    EXPECT_TRUE(process_->ends(code_));
    EXPECT_EQ(code_, 0U);
    EXPECT_TRUE(logHas(L"rud_http", "[WARN] The exchange was ended by request."));
}

} // namespace
} // namespace test
} // namespace orv
