// One person before the plug-in in the stand-in host, with the farm's client beside it.
#pragma once

#include "tests/dialogs/dialog_user.h"
#include "tests/hosts/host_in_process.h"
#include "tests/support/files.h"
#include "tests/support/message_box_watcher.h"
#include "tests/system/client/client_process.h"
#include "tests/unit/submit/archiver.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace orv {
namespace test {

// A message box of the plug-in, as it was before it was answered.
struct MessageSeen : SeenMessageBox {
    bool isAlone = false; // the progress window was not on the screen
};

// A scene "room.max" with a camera, an installed 7-Zip and a client that accepts every proper job.
// What a test wants otherwise it changes before open().
class SubmissionFlow : public ::testing::Test {
protected:
    SubmissionFlow();
    ~SubmissionFlow() override;

    // The client, started anew, and its port in the settings.
    void startClient(const std::wstring& arguments = std::wstring());
    void stopClient() { client_.reset(); }

    // Starts the host and opens the dialog, ticks the first camera, types the scene's name.
    void open(const std::wstring& sceneName = L"room", bool tickCamera = true);

    // Presses submit once, as soon as the dialog can be used, and waits until the submission runs.
    void submit();

    // The next message box, answered with the button.
    MessageSeen answer(int button = IDOK);
    // Waits for the end of the running submission; the result that the log tells, or kStillRunning.
    int result();
    // What submit, answer and result do when one message is all that comes.
    MessageSeen submitToMessage(int* result = nullptr);

    // Whether the dialog closes within the deadline, or stays and can be used again.
    bool dialogCloses() { return host_.waitForEnd(); }
    bool dialogStays();

    // The plug-in's own text.
    static std::wstring text(unsigned id);

    std::string log(const std::wstring& name) const { return host_.product.log(name, L"1.3.7"); }
    bool logHas(const std::wstring& name, const std::string& line) const;

    std::wstring scenePath() const { return host_.scenePath(); }
    std::wstring outputFolder() const;
    std::vector<std::wstring> archives() const;
    std::vector<std::wstring> jobFiles() const;

    // That the scene on the disk is the one that was put there and opens, and that no process and
    // no temporary file is left: beside the scene nothing but `alsoThere` and the output folder, in
    // that one nothing but whole archives and whole job files.
    void expectNothingLostOrLeft(const std::vector<std::wstring>& alsoThere = {}) const;

    // A second submission, which the client accepts: it closes the dialog.
    void expectSecondSubmissionSucceeds();

    static constexpr int kStillRunning = -99;

    HostInProcess host_;
    std::unique_ptr<ClientProcess> client_;
    HWND dialog_ = nullptr;

private:
    std::size_t ended_ = 0; // submissions that were waited for
};

// For what comes after packing, which is work of the processor: beside other work it takes several
// times as long.
constexpr std::chrono::milliseconds kPackingDeadline{180000};

// The processes of this name, for example "7z.exe".
std::vector<DWORD> ProcessesNamed(const std::wstring& name);

// Bytes that do not compress.
std::string NoisyBytes(std::size_t count);

} // namespace test
} // namespace orv
