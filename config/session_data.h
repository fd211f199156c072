// What the farm's client tells through shared memory.
#pragma once

#include <string>

namespace orv {

struct SessionData {
    std::wstring userName;
    std::wstring savePath;     // folder for archives
    std::string savePathBytes; // the same, as the bytes stood in the memory
    bool present = false;      // both values were read
};

// Reads the two named sections that the client fills with UTF-8 text ending in a zero byte, each of
// at most 4096 bytes. A section that does not exist ends the reading silently: no client, no
// session data. A value without its zero byte or that is no UTF-8 ends it with a line in
// "rud_data". What was not read keeps its value in `data`.
void readSessionData(SessionData& data);

} // namespace orv
