#include "analysis/report_json.h"

#include <gtest/gtest.h>

namespace orv {
namespace {

std::string Repeated(const std::string& part, int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += part;
    return text;
}

struct RunCase {
    const char* what;
    std::string json;
    bool isLong;
};

TEST(HasLongCommentRun, CountsCommentsBetweenValues) {
    const RunCase cases[] = {
        {"nothing", "", false},
        {"no comment", "{\"a\": 1}", false},
        {"a hundred in a row", "[1 " + Repeated("/**/ \r\n\t", 100) + "]", false},
        {"a hundred and one", "[1 " + Repeated("/**/ \r\n\t", 101) + "]", true},
        {"line comments", "[1 " + Repeated("//\n", 101) + "]", true},
        {"line comments that end in a carriage return", "[1 " + Repeated("//\r", 101) + "]", true},
        {"each beside its value", "[" + Repeated("1 /* one */,\n", 5000) + "1]", false},
        {"shares with slashes in texts", "[" + Repeated("\"//server/maps\",", 500) + "1]", false},
        {"comments in a text", "[\"" + Repeated("/**/", 500) + "\"]", false},
        {"behind an escaped quotation mark", "[\"\\\"" + Repeated("/**/", 500) + "\"]", false},
        {"behind a text that ends in a backslash", "[\"\\\\\"" + Repeated("/**/", 101) + "]", true},
        {"one comment that holds many", "[1 /*" + Repeated("/*", 500) + "*/]", false},
        {"an open comment at the end", "[1 " + Repeated("/**/", 100) + "/*", true},
        {"an open text at the end", Repeated("//\n", 100) + "\"\\", false},
        {"a slash at the end", Repeated("//\n", 100) + "/", false},
    };
    for (const RunCase& run : cases)
        EXPECT_EQ(HasLongCommentRun(run.json), run.isLong) << run.what;
}

} // namespace
} // namespace orv
