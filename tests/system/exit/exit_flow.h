// A user who closes the host while a submission runs.
#pragma once

#include "tests/system/flow/flow.h"

#include <string>

namespace orv {
namespace test {

class ExitFlow : public SubmissionFlow {
protected:
    ExitFlow();

    // A submission of a scene of that many bytes, until its archive is begun.
    void packScene(std::size_t bytes, const std::wstring& client = std::wstring());

    // Closes the dialog, then the host.
    void closeHost();

    // The window that the exit shows, once it is on the screen; null when none comes.
    HWND exitWindow();

    // Whether the host has stopped its plug-ins and ended.
    bool hostEnds(std::chrono::milliseconds deadline = kDeadline);
    bool hostHasEnded() const { return !host_.events("stopped").empty(); }

    // The text of the submission's next message, answered with OK.
    std::wstring message() { return answer().text; }

    // That nothing of the submission reached the client or is left on the disk.
    void expectEndedWithoutTheJob();
};

// Enough for seconds of packing: what is to be ended half-way, and what is to be waited for.
constexpr std::size_t kLargeScene = 48U << 20;
constexpr std::size_t kMiddlingScene = 8U << 20;

} // namespace test
} // namespace orv
