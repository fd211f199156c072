// One exchange between the plug-in's client link and the stand-in client, and all that it left
// behind.
#pragma once

#include "client/client_link.h"
#include "resources/message_box.h"
#include "resources/texts.h"
#include "tests/support/log_lines.h"
#include "tests/support/message_box_watcher.h"
#include "tests/support/module_scope.h"
#include "tests/support/product_folder.h"
#include "tests/system/client/client_process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv {
namespace test {

class ClientExchange : public ::testing::Test {
protected:
    // What an exchange ended with.
    struct Outcome {
        int code = 0;
        std::vector<SeenMessageBox> boxes;
        std::vector<std::string> logLines;

        // The text of the one box that came; a box too many or too few shows as such.
        std::wstring onlyText() const {
            return boxes.size() == 1 ? boxes[0].text
                                     : std::to_wstring(boxes.size()) + L" message boxes";
        }
    };

    // Posts a body to a port of this machine, presses OK in every box, and reads the log.
    Outcome post(std::int32_t port, const std::string& body = "{\"scenePath\":\"a.max\"}") {
        return post(ClientLink{L"127.0.0.1", port}, body);
    }

    Outcome post(const ClientLink& link, const std::string& body) {
        Outcome outcome;
        MessageBoxWatcher watcher;
        outcome.code = PostToClient(link, body, nullptr);
        outcome.boxes = watcher.stop();
        outcome.logLines = LogLines(folder_.log(L"rud_http"));
        for (const SeenMessageBox& box : outcome.boxes) {
            EXPECT_EQ(box.caption, ResourceText(IDS_CAPTION));
            EXPECT_EQ(box.buttons, std::vector<int>{IDOK});
        }
        return outcome;
    }

    // Posts to a port of this machine; returns the log as it is while the message is open.
    std::vector<std::string> logWhileMessageIsOpen(std::int32_t port) {
        std::vector<std::string> lines;
        EXPECT_TRUE(WhileBoxIsOpen(
            ResourceText(IDS_CAPTION),
            [port] {
                PostToClient({L"127.0.0.1", port}, "{}", nullptr);
            },
            [&] { lines = LogLines(folder_.log(L"rud_http")); }));
        return lines;
    }

    const TestProductFolder folder_;
    const ModuleScope module_;
};

} // namespace test
} // namespace orv
