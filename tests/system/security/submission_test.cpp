// What a whole submission gives away, and to whom.
#include "analysis/text/text_convert.h"
#include "resources/texts.h"
#include "submit/scene_archive.h"
#include "tests/system/flow/flow.h"

namespace orv {
namespace test {
namespace {

using Security = SubmissionFlow;

TEST_F(Security, TheRequestStaysOnThisMachineWhateverTheSettingsSay) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    host_.product.writeSettings("ip=192.0.2.1\r\nport=" + std::to_string(client_->port()) +
                                "\r\nlowerversion=1.3.7\r\n");
    host_.product.write(L"/script/custom.bin", Utf16Bytes(L"ip=192.0.2.2"));
    ASSERT_NO_FATAL_FAILURE(open());
    int code = kStillRunning;
    EXPECT_EQ(submitToMessage(&code).text, text(IDS_REPLY_ACCEPTED));
    EXPECT_EQ(code, 0);
    const Json::Value request = client_->nextLine();
    ASSERT_TRUE(request["headers"].isArray()) << request;
    bool namesThisMachine = false;
    for (const Json::Value& header : request["headers"])
        namesThisMachine = namesThisMachine || header.asString().find("Host: 127.0.0.1:") == 0;
    EXPECT_TRUE(namesThisMachine) << request;
    EXPECT_TRUE(dialogCloses());
}

TEST_F(Security, ThePasswordIsInNoLogAndNoFile) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    ASSERT_NO_FATAL_FAILURE(open());
    EXPECT_EQ(submitToMessage().text, text(IDS_REPLY_ACCEPTED));
    EXPECT_TRUE(dialogCloses());
    const std::string password = ArchivePassword("room");
    ASSERT_EQ(password.size(), 24U);
    for (const wchar_t* name : {L"rud_data", L"rud_ui", L"rud_http"}) {
        EXPECT_FALSE(log(name).empty()) << WideToUtf8(name);
        EXPECT_EQ(log(name).find(password), std::string::npos) << WideToUtf8(name);
    }
    ASSERT_FALSE(jobFiles().empty());
    for (const std::wstring& file : jobFiles())
        EXPECT_EQ(ReadFileBytes(outputFolder() + L"\\json\\" + file).find(password),
                  std::string::npos);
}

TEST_F(Security, ThePasswordIsInNoLogWhenPackingFails) {
    ASSERT_NO_FATAL_FAILURE(startClient());
    DeleteTree(host_.product.path(L"/7-Zip"));
    ASSERT_NO_FATAL_FAILURE(open());
    submitToMessage();
    ASSERT_TRUE(logHas(L"rud_data", "Pack scene: start of the archiver "));
    EXPECT_EQ(log(L"rud_data").find(ArchivePassword("room")), std::string::npos);
}

} // namespace
} // namespace test
} // namespace orv
