#include "analysis/comment_run.h"

#include <algorithm>

namespace orv {
namespace {

constexpr int kLongestRun = 100;

using Position = const char*;

bool IsBlank(char character) {
    return character == ' ' || character == '\t' || character == '\r' || character == '\n';
}

// All three take the position behind the opening characters.

Position SkipString(Position at, Position end) {
    while (at != end && *at != '"')
        at += *at == '\\' && at + 1 != end ? 2 : 1;
    return at == end ? end : at + 1;
}

Position SkipBlockComment(Position at, Position end) {
    constexpr char kClosing[] = {'*', '/'};
    at = std::search(at, end, kClosing, kClosing + 2);
    return at == end ? end : at + 2;
}

Position SkipLineComment(Position at, Position end) {
    return std::find_if(at, end,
                        [](char character) { return character == '\n' || character == '\r'; });
}

// How often characters stand in the text that open a comment, unless they are part of a string.
int PossibleComments(const std::string& json) {
    int count = 0;
    std::size_t at = json.find('/');
    while (at != std::string::npos && count <= kLongestRun) {
        const bool opens = at + 1 < json.size() && (json[at + 1] == '/' || json[at + 1] == '*');
        count += opens ? 1 : 0;
        at = json.find('/', at + 1);
    }
    return count;
}

} // namespace

bool HasLongCommentRun(const std::string& json) {
    if (PossibleComments(json) <= kLongestRun) // nearly every report; this is found out fast
        return false;
    const Position end = json.data() + json.size();
    int run = 0;
    for (Position at = json.data(); at != end;) {
        const char character = *at++;
        if (character == '/' && at != end) {
            at = *at == '*' ? SkipBlockComment(at + 1, end) : SkipLineComment(at, end);
            if (++run > kLongestRun)
                return true;
        } else if (character == '"') {
            at = SkipString(at, end);
            run = 0;
        } else if (!IsBlank(character)) {
            run = 0;
        }
    }
    return false;
}

} // namespace orv
