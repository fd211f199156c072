// The product's three logs, and the one way to write to them.
#pragma once

#include "log/module_log.h"

#include <cstdint>
#include <string>

namespace orv {

// A log that the whole process shares, open until it ends; 5 MB and one old file each.
enum class LogModule {
    Data, // "rud_data": settings, analysis, saving, archive, job file, workers
    Ui,   // "rud_ui": the dialogs
};

// The log of one exchange with the client, "rud_http": 2 MB and four old files. Open as long as the
// object lives. For one thread.
class ExchangeLog : public ModuleLog {
public:
    ExchangeLog();
};

// Opens a shared log in the log folder of this moment, unless it is open already. The first line
// does so, too.
void OpenLog(LogModule module) noexcept;

// Writes a line. `level` is kInfo, kWarn or kError, `message` is UTF-8. The shared logs are safe
// from any thread. A line that cannot be written is lost.
void WriteLog(LogModule module, const char* level, const std::string& message) noexcept;
void WriteLog(ModuleLog& log, const char* level, const std::string& message) noexcept;

// WriteLog(LogModule::Data, kError, message), for callers that take a function.
void LogError(const std::string& message) noexcept;

// The wording of a call of the system that failed: "CreateFileW C:\a.json error no:5", without the
// subject "ReadFile error no:5". `code` is that of GetLastError, which the caller has read right
// after the call, or the status that the call returned.
std::string SystemErrorText(const char* call, std::int64_t code,
                            const std::wstring& subject = std::wstring());

// Writes that as a line.
void LogSystemError(LogModule module, const char* level, const char* call, std::int64_t code,
                    const std::wstring& subject = std::wstring()) noexcept;

} // namespace orv
