// Listening, taking requests one after another, and answering them.
#pragma once

#include "standin/client/options.h"

#include <string>

namespace standin {

// Serves until the requests asked for have come. False with a sentence in `problem` when it cannot
// listen.
bool Serve(const Options& options, std::string& problem);

} // namespace standin
