// Submissions that the client accepts.
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "resources/controls.h"
#include "resources/texts.h"
#include "submit/scene_archive.h"
#include "tests/support/temporary_folder.h"
#include "tests/system/flow/flow.h"

namespace orv {
namespace test {
namespace {

class Submission : public SubmissionFlow {
protected:
    // The client's line on the request that it got.
    Json::Value request() { return client_->nextLine(); }
    static std::wstring path(const Json::Value& file) {
        return Utf8ToWide(file["path"].asString());
    }
};

TEST_F(Submission, ReachesTheClientAsItShouldBeAndClosesTheDialog) {
    const TemporaryFolder captures;
    const std::wstring capture = captures.file(L"request.bin");
    ASSERT_NO_FATAL_FAILURE(startClient(L"--record \"" + capture + L"\""));
    ASSERT_NO_FATAL_FAILURE(open(L"\u5BA2\u5385 v2"));
    submit();
    const MessageSeen message = answer();
    EXPECT_EQ(message.text, text(IDS_REPLY_ACCEPTED));
    EXPECT_TRUE(message.isAlone) << "it says that it has been sent, not that it is being sent";
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());

    const Json::Value line = request();
    EXPECT_TRUE(line["ok"].asBool()) << line["problems"];
    EXPECT_EQ(line["ret"].asInt(), 10001);
    const std::wstring folder = host_.sceneFolder + L"\\";
    EXPECT_EQ(path(line["scene"]), folder + L"\u5BA2\u5385 v2.max");
    EXPECT_EQ(FolderPart(path(line["job_file"])), folder + L"\u5BA2\u5385 v2_plugin_output/json/");
    EXPECT_EQ(FolderPart(path(line["archive"])),
              folder + L"\u5BA2\u5385 v2_plugin_output/compress/");
    const Json::Value& job = line["job_file"]["members"];
    EXPECT_EQ(job["cameras"].size(), 1U);
    EXPECT_NEAR(job["max_options"]["gamma_out"].asDouble(), 2.2, 1e-6)
        << "the dialog or the report has it";

    const TemporaryFolder out;
    ASSERT_TRUE(
        Unpack(path(line["archive"]), ArchivePassword(WideToUtf8(L"\u5BA2\u5385 v2")), out.path()));
    EXPECT_TRUE(ReadFileBytes(out.file(L"\u5BA2\u5385 v2.max")) == host_.sceneBytes);
    std::cout << "---- request ----\n" << ReadFileBytes(capture) << "\n---- client ----\n" << line;
    expectNothingLostOrLeft(
        {L"\u5BA2\u5385 v2.max", L"\u5BA2\u5385 v2.max.json", L"\u5BA2\u5385 v2_plugin_output"});
}

TEST_F(Submission, PacksIntoTheFolderThatTheClientNames) {
    const TemporaryFolder farm(L"\u8F93\u51FA of the farm");
    ASSERT_NO_FATAL_FAILURE(startClient(L"--save-path \"" + farm.path() + L"\""));
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_EQ(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
    const Json::Value line = request();
    EXPECT_EQ(FolderPart(path(line["archive"])), farm.path() + L"/");
    EXPECT_TRUE(line["archive"]["exists"].asBool());
    EXPECT_TRUE(archives().empty());
    EXPECT_TRUE(dialogCloses());
    expectNothingLostOrLeft();
}

TEST_F(Submission, TakesNoFolderFromTheClientThatIsNoFullPath) {
    ASSERT_NO_FATAL_FAILURE(startClient(L"--save-path -sdel"));
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_EQ(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(FolderPart(path(request()["archive"])), outputFolder() + L"/compress/");
    EXPECT_TRUE(logHas(L"rud_data", "the client's folder cannot be used: -sdel"));
    EXPECT_TRUE(dialogCloses());
    expectNothingLostOrLeft();
}

TEST_F(Submission, GoesOnWithoutCamerasWhenTheUserSaysSo) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open(L"room", false));
    submit();
    const MessageSeen question = answer();
    EXPECT_EQ(question.text, text(IDS_NO_CAMERA_TICKED));
    EXPECT_EQ(question.buttons, (std::vector<int>{IDOK, IDCANCEL}));
    EXPECT_TRUE(question.isAlone);
    EXPECT_EQ(answer().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_FALSE(request()["job_file"]["members"].isMember("cameras"));
    EXPECT_EQ(result(), 0);
    EXPECT_TRUE(dialogCloses());
}

} // namespace
} // namespace test
} // namespace orv
