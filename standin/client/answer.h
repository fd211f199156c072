// The bytes that the stand-in client answers with.
#pragma once

#include "standin/client/options.h"

#include <string>

namespace standin {

// The reply as the options want it; `code` and `words` are what the request deserves and count
// where the options do not say otherwise. A reply file that cannot be read gives an empty answer.
std::string BuildAnswer(const Options& options, int code, const std::string& words);

// Where the answer is cut in two; its whole length when it is not cut.
std::size_t SplitPosition(const Options& options, const std::string& answer);

} // namespace standin
