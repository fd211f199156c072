// The table of endings: what is arranged around a submission, what the user and the log are told,
// how it is mended.
#pragma once

#include "resources/texts.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/flow/flow.h"

#include <functional>

namespace orv {
namespace test {

class EndingTest;

// One row. Steps are optional.
struct Ending {
    using Step = std::function<void(EndingTest&)>;

    explicit Ending(const char* its) : name(its) {}

    const char* name;
    Step before;                      // the host starts
    Step arrange;                     // once the dialog is open
    Step during;                      // once the submission runs
    std::wstring sceneName = L"room"; // typed
    bool clean = false;               // with "back up and clean" on

    bool silent = false;  // no message comes
    unsigned textId = 0;  // of the message; 0: the client's own words
    std::wstring behind;  // what follows that text; of the client's own words, all of them
    bool anyCode = false; // a number that the system chooses follows the text instead
    unsigned captionId = IDS_CAPTION;
    int button = IDOK; // that answers the message
    int result = 0;
    bool closesDialog = false;
    const wchar_t* logName = L"rud_data";
    const char* logLine = "";
    const char* httpLine = ""; // in the log of the exchange, too

    Step mend;                // before the second submission
    bool submitsAgain = true; // false for rows whose cause cannot be mended in the same host
};

void PrintTo(const Ending& ending, std::ostream* stream);

// The course of a row: the submission ends as the row says, nothing is lost or left behind, and
// once the cause is mended the next submission succeeds in the same host.
class EndingTest : public SubmissionFlow, public ::testing::WithParamInterface<Ending> {
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

protected:
    void run();

private:
    void begin();
    void readMessage();

    TemporaryFolder replies_;
};

} // namespace test
} // namespace orv
