#include "tests/system/client/client_process.h"

#include "tests/support/program_folder.h"
#include "tests/support/wait_until.h"

#include <stdexcept>
#include <vector>

namespace orv {
namespace test {

ClientProcess::ClientProcess(const std::wstring& arguments) {
    SECURITY_ATTRIBUTES inherited = {};
    inherited.nLength = sizeof(inherited);
    inherited.bInheritHandle = TRUE;
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (!::CreatePipe(&readEnd, &writeEnd, &inherited, 0))
        throw std::runtime_error("no pipe for the stand-in client");
    output_.reset(readEnd);
    FileHandle childOutput(writeEnd);
    ::SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);

    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = writeEnd;
    startup.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started = {};
    const std::wstring program = ProgramFolder() + L"\\standin-client.exe";
    std::wstring commandLine = L"\"" + program + L"\" " + arguments;
    // A busy Wine refuses a new process now and then.
    const auto start = [&] {
        return ::CreateProcessW(program.c_str(), &commandLine[0], nullptr, nullptr, TRUE, 0,
                                nullptr, nullptr, &startup, &started) != FALSE;
    };
    if (!WaitUntil(start))
        throw std::runtime_error("the stand-in client cannot be started");
    process_.reset(started.hProcess);
    const ThreadHandle mainThread(started.hThread);
    childOutput.reset(); // so that reading ends when the program does
    reader_ = std::thread([this] { readOutput(); });

    const Json::Value ready = nextLine();
    if (ready.isObject() && ready["listening"].isUInt())
        port_ = static_cast<std::uint16_t>(ready["listening"].asUInt());
}

ClientProcess::~ClientProcess() {
    ::TerminateProcess(process_.get(), 0); // no harm where it has ended already
    reader_.join();
}

void ClientProcess::readOutput() {
    std::string rest;
    char buffer[4096];
    DWORD read = 0;
    while (::ReadFile(output_.get(), buffer, sizeof(buffer), &read, nullptr) && read != 0) {
        const std::size_t searched = rest.size();
        rest.append(buffer, read);
        for (std::size_t end = rest.find('\n', searched); end != std::string::npos;
             end = rest.find('\n')) {
            const std::lock_guard<std::mutex> lock(mutex_);
            lines_.push_back(rest.substr(0, end));
            rest.erase(0, end + 1);
            changed_.notify_all();
        }
    }
    const std::lock_guard<std::mutex> lock(mutex_);
    ended_ = true;
    changed_.notify_all();
}

Json::Value ClientProcess::nextLine(std::chrono::milliseconds deadline) {
    std::unique_lock<std::mutex> lock(mutex_);
    changed_.wait_for(lock, deadline, [this] { return ended_ || !lines_.empty(); });
    if (lines_.empty())
        return {};
    const std::string line = lines_.front();
    lines_.pop_front();
    Json::Value value;
    return Json::Reader().parse(line, value) ? value : Json::Value();
}

bool ClientProcess::waitForExit(DWORD& code, std::chrono::milliseconds deadline) {
    return ::WaitForSingleObject(process_.get(), static_cast<DWORD>(deadline.count())) ==
               WAIT_OBJECT_0 &&
           ::GetExitCodeProcess(process_.get(), &code) != FALSE;
}

} // namespace test
} // namespace orv
