#include "submit/scene_archive.h"

#include "analysis/text/names.h"
#include "analysis/text/paths.h"
#include "analysis/text/text_convert.h"
#include "analysis/work_folder.h"
#include "base/folders.h"
#include "base/windows.h"
#include "config/plugin_data.h"
#include "log/log.h"

#include <bcrypt.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>

namespace orv {
namespace {

constexpr std::size_t kDigestSize = 16;
using Digest = std::array<UCHAR, kDigestSize>;

class Md5Provider {
public:
    Md5Provider()
        : status_(::BCryptOpenAlgorithmProvider(&algorithm_, BCRYPT_MD5_ALGORITHM, nullptr, 0)) {}
    Md5Provider(const Md5Provider&) = delete;
    Md5Provider& operator=(const Md5Provider&) = delete;
    ~Md5Provider() {
        if (algorithm_ != nullptr)
            ::BCryptCloseAlgorithmProvider(algorithm_, 0);
    }
    NTSTATUS status() const { return status_; }
    BCRYPT_ALG_HANDLE get() const { return algorithm_; }

private:
    BCRYPT_ALG_HANDLE algorithm_ = nullptr;
    NTSTATUS status_;
};

class HashInProgress {
public:
    explicit HashInProgress(BCRYPT_ALG_HANDLE algorithm)
        : status_(::BCryptCreateHash(algorithm, &hash_, nullptr, 0, nullptr, 0, 0)) {}
    HashInProgress(const HashInProgress&) = delete;
    HashInProgress& operator=(const HashInProgress&) = delete;
    ~HashInProgress() {
        if (hash_ != nullptr)
            ::BCryptDestroyHash(hash_);
    }
    NTSTATUS status() const { return status_; }

    NTSTATUS digest(std::string bytes, Digest& result) {
        const NTSTATUS added = ::BCryptHashData(hash_, reinterpret_cast<PUCHAR>(&bytes[0]),
                                                static_cast<ULONG>(bytes.size()), 0);
        return added < 0 ? added : ::BCryptFinishHash(hash_, result.data(), kDigestSize, 0);
    }

private:
    BCRYPT_HASH_HANDLE hash_ = nullptr;
    NTSTATUS status_;
};

NTSTATUS ComputeDigest(const std::string& bytes, Digest& result) {
    const Md5Provider provider;
    if (provider.status() < 0)
        return provider.status();
    HashInProgress hash(provider.get());
    return hash.status() < 0 ? hash.status() : hash.digest(bytes, result);
}

} // namespace

std::string Md5Hex(const std::string& bytes) {
    Digest digest{};
    const NTSTATUS status = ComputeDigest(bytes, digest);
    if (status < 0) {
        LogSystemError(LogModule::Data, kError, "BCrypt MD5", status);
        return {};
    }
    const char* const digits = "0123456789abcdef";
    std::string text;
    for (const UCHAR byte : digest) {
        text += digits[byte >> 4];
        text += digits[byte & 0x0F];
    }
    return text;
}

namespace {

constexpr char kAlphabet[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
constexpr int kAlphabetSize = 62;
constexpr int kRandomLength = 6;

} // namespace

std::string RandomText() {
    return RandomTextFromSeed(static_cast<unsigned>(std::time(nullptr)));
}

std::string RandomTextFromSeed(unsigned seed) {
    std::srand(seed);
    std::string text;
    for (int i = 0; i < kRandomLength; ++i)
        text += kAlphabet[std::rand() % kAlphabetSize];
    return text;
}

namespace {

constexpr char kSecondDigestSuffix[] = ".7z.orv";

// Which characters of the digests are taken: digit d at place i takes character 3 * i + d, at most
// the 31st.
constexpr char kFromFirst[] = "20719364";
constexpr char kFromSecond[] = "58140732";
constexpr char kFromBoth[] = "93605182"; // even places from the first, odd ones from the second

constexpr std::size_t kPasswordDigits = 8;

char Picked(const std::string& digest, const char* digits, std::size_t place) {
    return digest[3 * place + static_cast<std::size_t>(digits[place] - '0')];
}

} // namespace

std::string ArchivePassword(const std::string& baseName) {
    const std::string first = Md5Hex(baseName);
    const std::string second = Md5Hex(baseName + kSecondDigestSuffix);
    if (first.empty() || second.empty())
        return {};
    std::string password;
    for (std::size_t i = 0; i < kPasswordDigits; ++i)
        password += Picked(first, kFromFirst, i);
    for (std::size_t i = 0; i < kPasswordDigits; ++i)
        password += Picked(second, kFromSecond, i);
    for (std::size_t i = 0; i < kPasswordDigits; ++i)
        password += Picked(i % 2 == 0 ? first : second, kFromBoth, i);
    return password;
}

namespace {

// For a process that was terminated. Windows closes its files first, which a slow disk can delay.
constexpr DWORD kEndMilliseconds = 10000;

constexpr UINT kEndedCode = 1;

void LogWithoutJob(const char* function) {
    const DWORD error = ::GetLastError();
    const std::string call = std::string("The archiver runs without a job object: ") + function;
    LogSystemError(LogModule::Data, kWarn, call.c_str(), error);
}

// A job whose processes end when its last handle is closed.
JobHandle MakeJob() {
    JobHandle job(::CreateJobObjectW(nullptr, nullptr));
    if (!job) {
        LogWithoutJob("CreateJobObjectW");
        return job;
    }
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits = {};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    if (!::SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits,
                                   sizeof(limits))) {
        LogWithoutJob("SetInformationJobObject");
        job.reset();
    }
    return job;
}

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

bool ArchiverProcess::start(std::wstring commandLine, DWORD& error) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION started = {};
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

constexpr char kArchiveExtension[] = ".7z";

bool Fail(const std::string& reason) {
    WriteLog(LogModule::Data, kError, "Pack scene: " + reason);
    return false;
}

// In double quotes, as one argument of the archiver. A file's path has no quotes, and
// none here ends in a backslash, so nothing needs escaping.
std::string Quoted(const std::string& path) {
    return "\"" + path + "\"";
}

std::wstring Joined(const std::wstring& folder, const std::wstring& name) {
    const bool hasSeparator = folder.back() == L'/' || folder.back() == L'\\';
    return hasSeparator ? folder + name : folder + L"/" + name;
}

// A path that came from outside, as one line of the log.
std::string Printable(std::wstring text) {
    std::replace_if(
        text.begin(), text.end(), [](wchar_t character) { return character < L' '; }, L'?');
    return WideToUtf8(text);
}

// The client may name any text. A folder that depends on the host's current one, or that reads like
// a switch of the archiver, does not get the scene.
bool CanTakeArchive(const std::wstring& saveFolder, const std::wstring& fileName) {
    if (IsFullPath(saveFolder) && Joined(saveFolder, fileName).size() <= kLongestPath &&
        EnsureFolder(saveFolder))
        return true;
    WriteLog(LogModule::Data, kWarn,
             "Pack scene: the client's folder cannot be used: " + Printable(saveFolder));
    return false;
}

std::wstring ArchivePath(const JobPaths& paths, const SessionData& session,
                         const std::wstring& fileName) {
    EnsureFolder(paths.compressDir);
    const bool hasSaveFolder = session.present && !session.savePath.empty();
    return hasSaveFolder && CanTakeArchive(session.savePath, fileName)
               ? Joined(session.savePath, fileName)
               : Joined(paths.compressDir, fileName);
}

void DeleteUnfinished(const std::wstring& path) {
    if (!PathExists(path))
        return;
    if (::DeleteFileW(path.c_str())) {
        WriteLog(LogModule::Data, kInfo, "Unfinished archive deleted: " + WideToUtf8(path));
        return;
    }
    const DWORD error = ::GetLastError();
    LogSystemError(LogModule::Data, kError, "DeleteFileW", error, path);
}

} // namespace

bool PackScene(const std::string& scenePath, JobPaths& paths, const SessionData& session) {
    const std::wstring baseName = StemPart(Utf8ToWide(scenePath));
    if (baseName.empty() || !IsUsableSceneName(baseName))
        return Fail("no archive can be named after " + scenePath);
    if (!IsFullPath(Utf8ToWide(scenePath)) || !IsFullPath(paths.compressDir))
        return Fail("this is no full path: " + scenePath);
    const std::string baseNameBytes = WideToUtf8(baseName);
    const std::string fileName = baseNameBytes + "_" + RandomText() + kArchiveExtension;
    const std::wstring archivePath = ArchivePath(paths, session, Utf8ToWide(fileName));
    if (archivePath.size() > kLongestPath)
        return Fail("the archive's path is too long: " + WideToUtf8(archivePath));
    const std::string password = ArchivePassword(baseNameBytes);
    if (password.empty())
        return Fail("no password could be made.");

    paths.archivePath = WideToUtf8(archivePath);
    paths.archiverArguments = " a -mx=3 -mmt=2 -t7z -p" + password + " " +
                              Quoted(paths.archivePath) + " " + Quoted(scenePath);
    return true;
}

void RunArchiver(const JobPaths& paths) {
    const std::wstring archivePath = Utf8ToWide(paths.archivePath);
    const bool isNew = !PathExists(archivePath);
    // The path has a blank: without the quotes Windows would start a C:\ProgramData/Orv.exe, if
    // somebody put one there, before the archiver.
    const std::wstring program = L"\"" + paths.sevenZipPath + L"\"";
    ArchiverProcess archiver;
    DWORD error = ERROR_SUCCESS;
    if (!archiver.start(program + Utf8ToWide(paths.archiverArguments), error)) {
        LogSystemError(LogModule::Data, kError, "Pack scene: start of the archiver", error,
                       paths.sevenZipPath);
        return;
    }
    DWORD exitCode = 0;
    if (archiver.wait(PluginData::instance().endSubmission.event(), exitCode)) {
        if (exitCode == 0) {
            WriteLog(LogModule::Data, kInfo, "Scene packed into " + paths.archivePath);
            return;
        }
        Fail("the archiver ended with code " + std::to_string(exitCode));
    }
    // A new archive is written in its place, one that was there before beside itself.
    if (isNew)
        DeleteUnfinished(archivePath);
    DeleteUnfinished(archivePath + kUnfinishedSuffix);
}

} // namespace orv
