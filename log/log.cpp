#include "log/log.h"

#include "analysis/text/text_convert.h"
#include "base/noncopyable.h"

#include <mutex>

namespace orv {
namespace {

constexpr std::int32_t kSharedSizeMB = 5;
constexpr std::int32_t kSharedFiles = 2;
constexpr std::int32_t kExchangeSizeMB = 2;
constexpr std::int32_t kExchangeFiles = 5;
constexpr std::int32_t kDashedDates = 0;

// One instance of each for the process: two would rename the file under each other.
class SharedLog : private rud_Noncopyable {
public:
    explicit SharedLog(const char* name) : log_(name, kSharedSizeMB, kSharedFiles, kDashedDates) {}

    void write(const char* level, const std::string& message) {
        const std::lock_guard<std::mutex> lock(mutex_);
        log_.write(message, level);
    }

private:
    std::mutex mutex_; // guards log_
    ModuleLog log_;
};

SharedLog& SharedLogOf(LogModule module) {
    if (module == LogModule::Ui) {
        static SharedLog ui("rud_ui");
        return ui;
    }
    static SharedLog data("rud_data");
    return data;
}

// Runs `body`; an exception, such as of too little memory, costs the line.
template<class Body>
void LoseOnFailure(Body body) noexcept {
    try {
        body();
    } catch (...) {
        // There is nowhere left to report it.
    }
}

} // namespace

ExchangeLog::ExchangeLog() : ModuleLog("rud_http", kExchangeSizeMB, kExchangeFiles, kDashedDates) {}

void OpenLog(LogModule module) noexcept {
    LoseOnFailure([module] { SharedLogOf(module); });
}

void WriteLog(LogModule module, const char* level, const std::string& message) noexcept {
    LoseOnFailure([&] { SharedLogOf(module).write(level, message); });
}

void WriteLog(ModuleLog& log, const char* level, const std::string& message) noexcept {
    LoseOnFailure([&] { log.write(message, level); });
}

void LogError(const std::string& message) noexcept {
    WriteLog(LogModule::Data, kError, message);
}

std::string SystemErrorText(const char* call, std::int64_t code, const std::wstring& subject) {
    const std::string what = subject.empty() ? std::string() : " " + WideToUtf8(subject);
    return call + what + " error no:" + std::to_string(code);
}

void LogSystemError(LogModule module, const char* level, const char* call, std::int64_t code,
                    const std::wstring& subject) noexcept {
    LoseOnFailure([&] { SharedLogOf(module).write(level, SystemErrorText(call, code, subject)); });
}

} // namespace orv
