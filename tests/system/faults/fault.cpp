#include "tests/system/faults/fault.h"

#include "analysis/text/text_convert.h"
#include "resources/controls.h"

namespace orv {
namespace test {

void PrintTo(const Fault& fault, std::ostream* stream) {
    *stream << fault.name;
}

void FaultTable::startClientThatAnswers(const std::string& bytes) {
    WriteFileBytes(replies_.file(L"reply.http"), bytes);
    startClient(L"--raw-reply \"" + replies_.file(L"reply.http") + L"\"");
}

void FaultTable::begin() {
    const Fault& fault = GetParam();
    if (fault.before)
        fault.before(*this);
    if (!client_) {
        ASSERT_NO_FATAL_FAILURE(startClient());
    }
    ASSERT_NO_FATAL_FAILURE(open());
    // The host would be asked to save before the submission begins; here it shall be asked within.
    ::CheckDlgButton(dialog_, IDC_SAVE_SCENE_FILE, BST_UNCHECKED);
    ::CheckDlgButton(dialog_, IDC_BACK_UP_SCENE, fault.clean ? BST_CHECKED : BST_UNCHECKED);
    if (fault.arrange)
        fault.arrange(*this);
    submit();
    if (fault.during)
        fault.during(*this);
}

void FaultTable::meetAndMend() {
    const Fault& fault = GetParam();
    ASSERT_NO_FATAL_FAILURE(begin());
    if (!fault.silent) {
        const MessageSeen message = answer();
        EXPECT_EQ(message.owner, dialog_);
        EXPECT_TRUE(message.isAlone) << "the progress window stands beside the message";
        if (fault.textId != 0) {
            EXPECT_EQ(message.text, text(fault.textId) + fault.behind);
        } else {
            EXPECT_NE(message.text, text(IDS_REPLY_ACCEPTED));
            EXPECT_FALSE(message.text.empty());
        }
    }
    EXPECT_EQ(result(), fault.result);
    EXPECT_TRUE(dialogStays());
    EXPECT_TRUE(logHas(fault.logName, fault.logLine)) << log(fault.logName);
    held.reset();
    if (fault.mend)
        fault.mend(*this);
    expectNothingLostOrLeft();
    ASSERT_NO_FATAL_FAILURE(startClient());
    expectSecondSubmissionSucceeds();
    expectNothingLostOrLeft();
}

void FaultTable::succeedAllTheSame() {
    const Fault& fault = GetParam();
    ASSERT_NO_FATAL_FAILURE(begin());
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_TRUE(dialogCloses());
    held.reset();
    EXPECT_TRUE(logHas(fault.logName, fault.logLine)) << log(fault.logName);
    if (fault.mend)
        fault.mend(*this);
    expectNothingLostOrLeft();
}

} // namespace test
} // namespace orv
