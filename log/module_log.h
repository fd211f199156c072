// The product's logs: one rotating plain-text file for each module.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>

namespace orv {

// The level words of log lines and of analysis messages.
constexpr char kInfo[] = "INFO";
constexpr char kWarn[] = "WARN";
constexpr char kError[] = "ERROR";

// One log file with its old copies. Not for use from two threads at a time: each instance is
// written by whichever thread runs its owner's code. No operation reports failure: a log that
// cannot be opened loses its lines, and the product runs on.
class ModuleLog {
public:
    // Finds and creates the log folder (the product folder's "log" + the settings' "lowerversion").
    // No file is opened yet. A product folder that does not exist is not created.
    ModuleLog();

    // Finds the folder and opens `name`. Rotates when the file reaches `maxSizeMB` mebibytes,
    // keeping `fileCount` files, the current one included. A non-zero `compactTime` writes dates
    // without dashes.
    ModuleLog(const std::string& name, std::int32_t maxSizeMB, std::int32_t fileCount,
              std::int32_t compactTime);

    ModuleLog(const ModuleLog&) = delete;
    ModuleLog& operator=(const ModuleLog&) = delete;
    ~ModuleLog();

    // Opens <folder>\<name>.log to append to it; other programs may read and write it meanwhile.
    // Creates the folder when it is missing.
    void open(const std::string& name);

    // Owners set these right after open(): with a limit of 0, the initial value, every line
    // rotates.
    void setMaxSizeMB(std::int32_t maxSizeMB);
    void setFileCount(std::int32_t fileCount);

    // Appends "<time stamp> [<level>] <message>" as a line, flushes it, and rotates the file when
    // it has grown to its limit. The bytes of `message` are written as they are, in whatever
    // encoding the caller uses; only a line break in it becomes CR LF.
    void write(std::string message, std::string level);

    // In the C run-time's code page, without ".log"; empty before open().
    const std::string& basePath() const { return basePath_; }
    const std::string& folder() const { return folder_; }

private:
    struct CloseFile {
        void operator()(std::FILE* file) const;
    };

    void openStream();
    bool hasReachedLimit();
    void rotate();
    std::string timeStamp() const;

    std::string basePath_;
    std::int32_t maxSizeMB_ = 0;
    std::int32_t fileCount_ = 1;
    std::unique_ptr<std::FILE, CloseFile> stream_; // null when the log could not be opened
    std::string folder_;
    std::int32_t compactTime_ = 0;
};

} // namespace orv
