// 7-Zip as a process that cannot outlive this one.
#pragma once

#include "base/handles.h"
#include "base/noncopyable.h"

#include <string>

namespace orv {

// One archiver. It runs in a job object that only this object holds open, so Windows ends it with
// this process, however that ends.
class ArchiverProcess : private rud_Noncopyable {
public:
    // Starts `commandLine` without a window. False with the system's error code in `error`. Where
    // Windows refuses the job object (Windows 7 does so in a host that runs in one), a line in
    // "rud_data" says so and the archiver runs without it.
    bool start(std::wstring commandLine, DWORD& error);

    // Waits until the archiver has ended, with its code in `exitCode`, or until `endWithoutIt` (may
    // be null) is signalled: then it is ended, its files are closed, and the result is false.
    bool wait(HANDLE endWithoutIt, DWORD& exitCode);

private:
    JobHandle job_;
    ProcessHandle process_;
};

} // namespace orv
