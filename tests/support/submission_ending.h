// The table of a submission's endings: what the user sees, what becomes of the dialog, what the log
// has and what is left on the disk. The tests of the sequence and of the whole flow bring the rows
// about, each in its own way, and check the same.
#pragma once

#include "tests/support/message_box_watcher.h"

#include <algorithm>
#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

namespace orv {
namespace test {

// Where the cause lies.
enum class EndingCause {
    Submission, // what was chosen, the scene's name, its folder
    Client,     // the client's program and its replies
    Files,      // files, folders, programs and settings
    Harmless    // the submission succeeds all the same
};

enum class EndingLevel {
    Both,
    Sequence, // no user can bring it about, or it shows the user what another row shows
    Flow      // takes the real host, archiver or client
};

// What a submission has made by its end.
enum class Left { Nothing, OutputFolder, Job, Archive, ArchiveAndJob };

struct SubmissionEnding {
    const char* name = "";
    EndingCause cause = EndingCause::Submission;
    EndingLevel level = EndingLevel::Both;

    // The message. Its caption is the submission's, unless `captionId` names a text.
    bool isSilent = false; // no message comes
    unsigned textId = 0;   // 0: the client's own words
    std::wstring behind;   // what follows that text; of the client's own words, all of them
    bool isOpen = false;   // a code of the system or the path of a scene follows as well
    unsigned captionId = 0;
    bool isOwned = true; // by the dialog
    std::vector<int> buttons;
    int button = 0; // that answers the message

    int result = 0; // of the submission: 0 or -1
    bool closesDialog = false;
    bool reachesClient = false;
    bool savesNothing = false; // the host is not asked to save
    Left left = Left::Nothing;
    const wchar_t* logName = L"rud_data";
    const char* logLine = "";
    const char* httpLine = ""; // in the log of the exchange, too
};

void PrintTo(const SubmissionEnding& ending, std::ostream* stream);

bool LeavesArchive(const SubmissionEnding& ending);
bool LeavesJob(const SubmissionEnding& ending);

// Around a message: what it may belong to, and where its texts come from.
struct MessageSetting {
    HWND dialog = nullptr;
    std::wstring caption; // where the row names no other
    std::function<std::wstring(unsigned)> text;
    std::wstring scene; // whose path follows the message
};

// The message is the row's, to the letter.
void ExpectMessage(const SubmissionEnding& ending, const SeenMessageBox& box,
                   const MessageSetting& setting);

const std::vector<SubmissionEnding>& SubmissionEndings();

// The rows that the sequence's test runs.
std::vector<SubmissionEnding> SequenceEndings();
// The rows of one cause that the test of the whole flow runs.
std::vector<SubmissionEnding> FlowEndings(EndingCause cause);

// The names of rows, or of what brings them about, in their order.
template<class Named>
std::vector<std::string> NamesOf(const std::vector<Named>& all) {
    std::vector<std::string> names;
    for (const Named& named : all)
        names.push_back(named.name);
    return names;
}

// The one of that name; null when there is none.
template<class Named>
const Named* FindNamed(const std::vector<Named>& all, const std::string& name) {
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&name](const Named& one) { return one.name == name; });
    return found == all.end() ? nullptr : &*found;
}

} // namespace test
} // namespace orv
