#include "base/handles.h"
#include "client/client_link.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/log_lines.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {
namespace {

bool SocketsWork() {
    return static_cast<bool>(SocketHandle(::socket(AF_INET, SOCK_STREAM, 0)));
}

TEST(WinsockSessions, KeepSocketsWorkingUntilTheLastOneEnds) {
    ASSERT_FALSE(SocketsWork());
    {
        const WinsockSession outer;
        EXPECT_TRUE(outer.started());
        {
            const WinsockSession inner;
            EXPECT_TRUE(inner.started());
            EXPECT_TRUE(SocketsWork());
        }
        EXPECT_TRUE(SocketsWork());
    }
    EXPECT_FALSE(SocketsWork());
}

TEST(AnExchangeWithoutWinsock, IsReportedWithTheSystemsCode) {
    const TestProductFolder folder;
    const ModuleScope module;
    MessageBoxWatcher watcher;
    EXPECT_EQ(PostToClient({L"127.0.0.1", 20521}, "{}", nullptr), kNoReply);
    const std::vector<SeenMessageBox> boxes = watcher.stop();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].text, ResourceText(IDS_CLIENT_UNREACHABLE) + L"10093");
    EXPECT_EQ(boxes[0].caption, ResourceText(IDS_CAPTION));
    EXPECT_EQ(LogLines(folder.log(L"rud_http")),
              std::vector<std::string>{"[ERROR] Create socket error, Error Code is: 10093"});
}

} // namespace
} // namespace test
} // namespace orv
