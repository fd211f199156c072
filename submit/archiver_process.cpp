#include "submit/archiver_process.h"

#include "config/plugin_data.h"

namespace orv {
namespace {

// For a process that was told to end. Windows closes its files first, which a slow disk can delay.
constexpr DWORD kEndMilliseconds = 10000;

constexpr UINT kEndedCode = 1;

void LogWithoutJob(const char* function) {
    const DWORD error = ::GetLastError();
    PluginData::instance().writeLog(kWarn, std::string("The archiver runs without a job object: ") +
                                               function + " error no:" + std::to_string(error));
}

// A job whose processes end when its last handle is closed.
JobHandle MakeJob() {
    JobHandle job(::CreateJobObjectW(nullptr, nullptr));
    if (!job) {
        LogWithoutJob("CreateJobObjectW");
        return job;
    }
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (!::SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                   sizeof(limits))) {
        LogWithoutJob("SetInformationJobObject");
        job.reset();
    }
    return job;
}

} // namespace

bool ArchiverProcess::start(std::wstring commandLine, DWORD& error) {
    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started{};
    // Suspended: it must not run, and start others, before it is in the job.
    if (!::CreateProcessW(nullptr, &commandLine[0], nullptr, nullptr, FALSE,
                          CREATE_NO_WINDOW | NORMAL_PRIORITY_CLASS | CREATE_SUSPENDED, nullptr,
                          nullptr, &startup, &started)) {
        error = ::GetLastError();
        return false;
    }
    const ThreadHandle thread(started.hThread);
    process_.reset(started.hProcess);
    job_ = MakeJob();
    if (job_ && !::AssignProcessToJobObject(job_.get(), process_.get())) {
        LogWithoutJob("AssignProcessToJobObject");
        job_.reset();
    }
    if (::ResumeThread(thread.get()) != static_cast<DWORD>(-1))
        return true;
    error = ::GetLastError();
    ::TerminateProcess(process_.get(), kEndedCode);
    return false;
}

bool ArchiverProcess::wait(HANDLE endWithoutIt, DWORD& exitCode) {
    const HANDLE either[] = {process_.get(), endWithoutIt};
    const DWORD count = endWithoutIt == nullptr ? 1 : 2;
    const bool isAsked =
        ::WaitForMultipleObjects(count, either, FALSE, INFINITE) == WAIT_OBJECT_0 + 1;
    if (isAsked) {
        ::TerminateProcess(process_.get(), kEndedCode);
        ::WaitForSingleObject(process_.get(), kEndMilliseconds);
    }
    ::GetExitCodeProcess(process_.get(), &exitCode);
    return !isAsked;
}

} // namespace orv
