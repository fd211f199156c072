// The two values that the farm's client publishes for the plug-in.
#pragma once

#include "base/handles.h"

#include <string>

namespace standin {

struct SharedSections {
    orv::FileMappingHandle userName;
    orv::FileMappingHandle savePath;
};

// Creates the named sections and writes the values into them, UTF-8 with a zero byte behind. They
// exist for as long as `sections` does. False with a sentence in `problem` when that is not
// possible.
bool PublishSession(const std::string& userName, const std::string& savePath,
                    SharedSections& sections, std::string& problem);

} // namespace standin
