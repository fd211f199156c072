// The product's paths and the connection to the local client.
#pragma once

#include "base/windows.h"

#include <cstdint>
#include <string>

namespace orv {

// Paths and connection settings. The submission fills one anew for each job and then overwrites
// what belongs to the job (see JobPaths).
struct ClientInfo {
    std::wstring ip;               // address of the client; a submission always uses 127.0.0.1
    std::int32_t port = 0;         // TCP port of the client, 0 when not configured
    std::wstring jsonDir;          // folder of analysis reports, later of the job file
    std::wstring sevenZipPath;     // the archiver program
    std::wstring compressDir;      // folder of archives
    std::wstring lowerVersion;     // lowest plug-in version that the client accepts
    std::string scenePath;         // UTF-8, the saved scene that is submitted
    std::int32_t giScaleIndex = 0; // selection index of the GI scale list, -1 when none is selected
    std::string giScaleText;       // UTF-8, "100%", "50%", "33%" or "25%"
    std::string archivePath;       // UTF-8, the packed scene
    std::wstring parserScript;     // the scene parser
    std::wstring virusCheckAdsl;   // cleaning scripts, in the order they are run
    std::wstring virusCheckAlc;
    std::wstring virusCheckCrp;
    std::string archiverArguments; // UTF-8, what follows the archiver's path on its command line
};

// The record as one submission uses it.
using JobPaths = ClientInfo;

// Reads UTF-16LE text from the start of an open file up to its first zero character; the odd last
// byte of a file is dropped, a byte-order mark is kept as the character it is. At most the first 64
// MiB are read. False, with the system's error code in `error`, when the file cannot be read.
bool ReadWideText(HANDLE file, std::wstring& text, DWORD& error);

// Sets `address` to all that follows the first "=" of `text`, untrimmed. Returns false and leaves
// `address` unchanged when `text` has no "=".
bool TakeCustomAddress(const std::wstring& text, std::wstring& address);

} // namespace orv
