#include "submit/dialog_input/dialog_log.h"

#include "log/module_log.h"

#include <mutex>

namespace orv {
namespace {

constexpr std::int32_t kMaxSizeMB = 5;
constexpr std::int32_t kFileCount = 2;

// One instance for the process: two would rotate the file under each other.
class DialogLog {
public:
    DialogLog() {
        log_.open("rud_ui");
        log_.setMaxSizeMB(kMaxSizeMB);
        log_.setFileCount(kFileCount);
    }

    void write(const std::string& level, const std::string& message) {
        const std::lock_guard<std::mutex> lock(mutex_);
        log_.write(message, level);
    }

private:
    std::mutex mutex_; // guards log_
    ModuleLog log_;
};

} // namespace

void WriteDialogLog(const std::string& level, const std::string& message) {
    static DialogLog log;
    log.write(level, message);
}

} // namespace orv
