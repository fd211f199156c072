// The state that the dialog, the submission and its progress window share.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace orv {

// States of a background worker. Shared by the dialog and the workers.
constexpr std::int32_t kWorkerNone = -1;
constexpr std::int32_t kWorkerRunning = 0;
constexpr std::int32_t kWorkerFinished = 11;

// The stage of a submission, for display.
enum class SubmissionStage : std::int32_t {
    Checking,
    Saving,
    Cleaning,
    Packing,
    Describing,
    Sending,
};

// The files of a submission that packs: full paths.
struct PackedFiles {
    std::wstring scene;
    std::wstring archive;
};

// The request to end the submission that runs, without its job. Made by whoever speaks for the
// user, honoured by the submission at its next step or wait. Safe from any thread.
class EndRequest : private rud_Noncopyable {
public:
    EndRequest() : event_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

    void make() noexcept {
        made_ = true;
        ::SetEvent(event_.get());
    }
    // Before the next submission starts.
    void clear() noexcept {
        made_ = false;
        ::ResetEvent(event_.get());
    }
    bool isMade() const noexcept { return made_; }

    // Signalled from make() to clear(). Null where the system had no event left: then the waits end
    // by themselves only.
    HANDLE event() const noexcept { return event_.get(); }

    // Waits that long, or until the request is made.
    void wait(DWORD milliseconds) const noexcept {
        if (event_)
            ::WaitForSingleObject(event_.get(), milliseconds);
        else
            ::Sleep(milliseconds);
    }

private:
    EventHandle event_;
    std::atomic<bool> made_{false};
};

} // namespace orv
