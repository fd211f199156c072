#pragma once

#include <string>

namespace orv {

// Whether a JSON text (UTF-8) has more than a hundred comments in a row, with nothing but blanks
// between them. JsonCpp, when it keeps comments, looks for each of them from the last value on,
// which takes minutes for a megabyte of comments. Such a text is parsed without them.
bool HasLongCommentRun(const std::string& json);

} // namespace orv
