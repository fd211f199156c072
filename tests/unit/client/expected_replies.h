// What each reply code has to lead to, written down a second time for the tests.
#pragma once

namespace orv {
namespace test {

struct ExpectedReply {
    int code;
    unsigned textId;
    const char* logLine;
};

const ExpectedReply kExpectedReplies[] = {
    {10001, 98, "[INFO] Submit successfully."},
    {10002, 54,
     "[ERROR] The client's current project is not a 3ds max render project, please set it up "
     "again!"},
    {10003, 46, "[ERROR] The client rendering version is not match!"},
    {10004, 47, "[ERROR] The current project is not an design sketch project!"},
    {10005, 48, "[ERROR] The scene file is not exist!"},
    {10006, 55, "[ERROR] he Analysis file is not exist!"},
    {10007, 56, "[ERROR] Parse the analysis file failed!"},
    {10008, 50,
     "[ERROR] The current submission of the scene suffix is wrong, please check for confirmation!"},
    {10009, 51,
     "[ERROR] The current submission scenario already exists, please do not repeat the "
     "submission!"},
    {11000, 52, "[ERROR] An internal error occurred. Please restart 3ds max and re-operate!"},
    {11010, 38,
     "[ERROR] Camera name can not have special characters, please modify and re-submit!"},
};

// Shown and logged in the reply's own words.
constexpr int kExpectedOwnWords = 10010;

} // namespace test
} // namespace orv
