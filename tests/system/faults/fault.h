// A fault around a submission: what is broken, what the user and the log are told, how it is
// mended.
#pragma once

#include "resources/texts.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/flow/flow.h"

#include <functional>

namespace orv {
namespace test {

class FaultTable;

struct Fault {
    using Step = std::function<void(FaultTable&)>;

    explicit Fault(const char* its) : name(its) {}

    const char* name;
    Step before;         // the host starts
    Step arrange;        // once the dialog is open
    Step during;         // once the submission runs
    bool clean = false;  // with "back up and clean" on
    bool silent = false; // no message comes
    unsigned textId = 0; // of the message; what the client says in its own words: 0
    std::wstring behind; // what follows that text
    int result = 0;
    const wchar_t* logName = L"rud_data";
    const char* logLine = "";
    Step mend; // before the second submission
};

void PrintTo(const Fault& fault, std::ostream* stream);

class FaultTable : public SubmissionFlow, public ::testing::WithParamInterface<Fault> {
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

    // A client that answers with these bytes, whatever it is sent.
    void startClientThatAnswers(const std::string& bytes);

    // What a step holds open until the fault is mended.
    FileHandle held;

protected:
    // The course of every row: the fault is met and told, nothing is lost or left behind, and once
    // it is mended the next submission succeeds in the same host.
    void meetAndMend();
    // For faults that a submission does not mind: it succeeds, and the log tells of the fault.
    void succeedAllTheSame();

private:
    void begin();

    TemporaryFolder replies_;
};

} // namespace test
} // namespace orv
