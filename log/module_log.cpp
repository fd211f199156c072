#include "log/module_log.h"

#include "analysis/text/text_convert.h"
#include "base/folders.h"
#include "base/windows.h"

#include <direct.h>
#include <io.h>
#include <share.h>

namespace orv {
namespace {

// Old files are named in a buffer of 100 bytes including the final zero. A longer name is cut
// there, so a log in a very deep folder is not rotated; it keeps growing in its one file.
constexpr std::size_t kRotationNameLength = 99;

bool Exists(const std::string& path) {
    return ::_access(path.c_str(), 0) == 0;
}

std::string CutName(std::string name) {
    if (name.size() > kRotationNameLength)
        name.resize(kRotationNameLength);
    return name;
}

std::string OldName(const std::string& basePath, std::int32_t number) {
    return CutName(basePath + std::to_string(number) + ".log");
}

std::wstring LogFolder() {
    return ProductFolder() + L"/log" + ReadGeneralSetting(L"lowerversion");
}

} // namespace

void ModuleLog::CloseFile::operator()(std::FILE* file) const {
    std::fclose(file);
}

ModuleLog::ModuleLog() {
    const std::wstring folder = LogFolder();
    ::CreateDirectoryW(folder.c_str(), nullptr); // that it exists is the usual case
    folder_ = WideToAnsi(folder);
}

ModuleLog::ModuleLog(const std::string& name, std::int32_t maxSizeMB, std::int32_t fileCount,
                     std::int32_t compactTime)
    : ModuleLog() {
    maxSizeMB_ = maxSizeMB;
    fileCount_ = fileCount;
    compactTime_ = compactTime;
    open(name);
}

ModuleLog::~ModuleLog() = default;

void ModuleLog::open(const std::string& name) {
    stream_.reset();
    // A folder that has no name in the run-time's code page cannot be opened through it. Without
    // this the log would land in the root of the current drive.
    if (folder_.empty())
        return;
    basePath_ = folder_ + "\\" + name;
    if (!Exists(folder_))
        ::_mkdir(folder_.c_str());
    openStream();
}

void ModuleLog::setMaxSizeMB(std::int32_t maxSizeMB) {
    maxSizeMB_ = maxSizeMB;
}

void ModuleLog::setFileCount(std::int32_t fileCount) {
    fileCount_ = fileCount;
}

void ModuleLog::write(std::string message, std::string level) {
    if (stream_) {
        const std::string line = timeStamp() + " [" + level + "] " + message + "\n";
        std::fwrite(line.data(), 1, line.size(), stream_.get());
        std::fflush(stream_.get());
    }
    if (hasReachedLimit())
        rotate();
}

void ModuleLog::openStream() {
    // Text mode, so that a line ends with CR LF; nothing is denied to other programs.
    stream_.reset(::_fsopen((basePath_ + ".log").c_str(), "at", _SH_DENYNO));
}

bool ModuleLog::hasReachedLimit() {
    // A log that is not open has size 0, so with the limit 0 it is tried again at each line.
    std::int64_t size = 0;
    if (stream_) {
        const std::int64_t position = ::_ftelli64(stream_.get());
        ::_fseeki64(stream_.get(), 0, SEEK_END);
        size = ::_ftelli64(stream_.get());
        ::_fseeki64(stream_.get(), position, SEEK_SET);
    }
    return size / 1024 >= static_cast<std::int64_t>(maxSizeMB_) * 1024;
}

void ModuleLog::rotate() {
    if (basePath_.empty())
        return;
    stream_.reset();
    const std::string current = CutName(basePath_ + ".log");
    // A file that another program holds cannot change its name, not even into the same one. Without
    // this look each further line would push the old files on, until none of them is left.
    if (std::rename(current.c_str(), current.c_str()) != 0) {
        openStream();
        return;
    }
    for (std::int32_t number = fileCount_ - 1; number >= 1; --number) {
        const std::string name = OldName(basePath_, number);
        if (!Exists(name))
            continue;
        if (number == fileCount_ - 1)
            std::remove(name.c_str());
        else
            std::rename(name.c_str(), OldName(basePath_, number + 1).c_str());
    }
    // This fails when another program holds an old file. Then the lines go on into the same file.
    std::rename(current.c_str(), OldName(basePath_, 1).c_str());
    openStream();
}

std::string ModuleLog::timeStamp() const {
    SYSTEMTIME now = {};
    ::GetLocalTime(&now);
    const char* format =
        compactTime_ == 0 ? "%4d-%02d-%02d %02d:%02d:%02d:%03d" : "%4d%02d%02d %02d:%02d:%02d:%03d";
    char text[64] = {};
    std::snprintf(text, sizeof(text), format, now.wYear, now.wMonth, now.wDay, now.wHour,
                  now.wMinute, now.wSecond, now.wMilliseconds);
    return text;
}

} // namespace orv
