// The session data that the farm's client publishes in shared memory.
#pragma once

#include <string>

namespace orv {

struct SessionData {
    std::wstring userName;
    std::wstring savePath;     // folder for archives
    std::string savePathBytes; // the same, as the bytes stood in the memory
    bool present = false;      // both values were read
};

// Reads the client's two named sections: zero-terminated UTF-8, at most 4096 bytes each. Returns
// silently at a section that does not exist: without the client there is no session data. Returns
// with a line in "rud_data" at a value that is not terminated. A value that is not UTF-8 leaves a
// line, too, and U+FFFD in the place of what is ill-formed. Members that were not read keep their
// values.
void readSessionData(SessionData& data);

} // namespace orv
