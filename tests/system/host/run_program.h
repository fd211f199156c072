// Runs a program that stands beside the test program.
#pragma once

#include <string>
#include <vector>

struct ProgramRun {
    bool ended = false; // false: it did not end by the deadline and was ended by force
    int exitCode = -1;
    std::vector<std::string> lines; // of standard output and standard error, without line ends
};

// `arguments` stands on the command line as it is. Output goes through a file in `folder`.
ProgramRun RunProgram(const std::wstring& name, const std::wstring& arguments,
                      const std::wstring& folder);
