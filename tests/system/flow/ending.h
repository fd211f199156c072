// The endings of a submission through the whole flow: what is arranged around it, and how that is
// mended. What is expected stands in the table.
#pragma once

#include "tests/support/submission_ending.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/flow/flow.h"

#include <functional>

namespace orv {
namespace test {

class EndingTest;

// How the row of that name is brought about. Steps are optional.
struct Arrangement {
    using Step = std::function<void(EndingTest&)>;

    explicit Arrangement(const char* its) : name(its) {}

    const char* name;
    Step before;                      // the host starts
    Step arrange;                     // once the dialog is open
    Step during;                      // once the submission runs
    std::wstring sceneName = L"room"; // typed
    bool clean = false;               // with "back up and clean" on

    Step mend;                // before the second submission
    bool submitsAgain = true; // false for rows whose cause cannot be mended in the same host
};

struct ArrangedEnding {
    SubmissionEnding row;
    Arrangement how;
};

void PrintTo(const ArrangedEnding& ending, std::ostream* stream);

// The rows of that cause with what brings them about. A row without it fails ExpectAllArranged.
std::vector<ArrangedEnding> Arranged(EndingCause cause, const std::vector<Arrangement>& how);
void ExpectAllArranged(EndingCause cause, const std::vector<Arrangement>& how);

// The name of a test of the table: its row's.
std::string NameOfEnding(const ::testing::TestParamInfo<ArrangedEnding>& info);

// The course of a row: the submission ends as the row says, nothing is lost or left behind, and
// once the cause is mended the next submission succeeds in the same host.
class EndingTest : public SubmissionFlow, public ::testing::WithParamInterface<ArrangedEnding> {
public:
    using SubmissionFlow::archives;
    using SubmissionFlow::client_;
    using SubmissionFlow::dialog_;
    using SubmissionFlow::host_;
    using SubmissionFlow::jobFiles;
    using SubmissionFlow::logHas;
    using SubmissionFlow::outputFolder;
    using SubmissionFlow::scenePath;
    using SubmissionFlow::startClient;
    using SubmissionFlow::stopClient;

    // A client that answers with these bytes, whatever it is sent.
    void startClientThatAnswers(const std::string& bytes);

    // What a step holds open until the cause is mended.
    FileHandle held;
    bool ticksACamera = true;
    // The scene whose path follows the message.
    std::wstring sceneInMessage;

protected:
    void run();

private:
    void begin();
    void readMessage();
    void expectLeft();

    const SubmissionEnding& row_ = GetParam().row;
    const Arrangement& how_ = GetParam().how;
    TemporaryFolder replies_;
};

} // namespace test
} // namespace orv
