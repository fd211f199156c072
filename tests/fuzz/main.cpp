// Throws hostile inputs at the product and watches whether it stays up. README.md has the options.
#include "base/windows.h"
#include "resources/text.h"
#include "tests/fuzz/targets.h"
#include "tests/support/import_patch.h"
#include "tests/support/product_folder.h"

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <memory>
#include <string>
#include <thread>

namespace orv {
namespace fuzz {
namespace {

constexpr long long kLongestSeconds = 20; // for one input, on a busy machine

struct Options {
    std::string target; // empty: all
    std::uint64_t seed = 20190507;
    std::uint64_t first = 0;
    std::uint64_t inputs = 200000;
};

// What runs at this moment, for the report of a crash.
const char* currentTarget = "";
std::uint64_t currentSeed = 0;
std::atomic<std::uint64_t> currentInput{0};
std::atomic<bool> isOver{false};

void Report(const char* what) {
    std::printf("crash: %s with --target %s --seed %llu --first %llu --inputs 1\n", what,
                currentTarget, static_cast<unsigned long long>(currentSeed),
                static_cast<unsigned long long>(currentInput.load()));
    std::fflush(stdout);
}

LONG WINAPI OnFault(EXCEPTION_POINTERS* fault) {
    char text[64];
    std::snprintf(text, sizeof(text), "exception %08lX at %p",
                  fault->ExceptionRecord->ExceptionCode, fault->ExceptionRecord->ExceptionAddress);
    Report(text);
    ::TerminateProcess(::GetCurrentProcess(), 1);
    return EXCEPTION_EXECUTE_HANDLER;
}

// Failed assertions of the C++ library, of the stack protector, uncaught exceptions.
void OnAbort(int) {
    Report("abort");
    ::TerminateProcess(::GetCurrentProcess(), 1);
}

int WINAPI NoBox(HWND, LPCWSTR, LPCWSTR, UINT, WORD) {
    return IDOK;
}

// Ends the process when one input takes for ever.
void WatchForHang() {
    using Clock = std::chrono::steady_clock;
    std::uint64_t seen = 0;
    Clock::time_point since = Clock::now();
    while (!isOver) {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        const std::uint64_t input = currentInput;
        if (input != seen) {
            seen = input;
            since = Clock::now();
        } else if (Clock::now() - since > std::chrono::seconds(kLongestSeconds)) {
            Report("hang");
            ::TerminateProcess(::GetCurrentProcess(), 1);
        }
    }
}

std::uint64_t SeedOf(const char* target, std::uint64_t seed, std::uint64_t number) {
    std::uint64_t mixed = Random(seed).next();
    for (const char* at = target; *at != '\0'; ++at)
        mixed = Random(mixed ^ static_cast<std::uint64_t>(*at)).next();
    return mixed + number * 0x9E3779B97F4A7C15U;
}

bool Run(const Target& target, const Options& options) {
    currentTarget = target.name;
    currentSeed = options.seed;
    const auto started = std::chrono::steady_clock::now();
    for (std::uint64_t i = options.first; i < options.first + options.inputs; ++i) {
        currentInput = i;
        Random random(SeedOf(target.name, options.seed, i));
        try {
            target.taste(target.make(random));
        } catch (const std::exception& error) {
            Report(error.what());
            return false;
        }
    }
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - started;
    std::printf("%-16s %llu inputs, 0 crashes, %.1f s\n", target.name,
                static_cast<unsigned long long>(options.inputs), took.count());
    std::fflush(stdout);
    return true;
}

bool Read(int argc, char** argv, Options& options) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--target")
            options.target = argv[i + 1];
        else if (name == "--seed")
            options.seed = std::strtoull(argv[i + 1], nullptr, 10);
        else if (name == "--first")
            options.first = std::strtoull(argv[i + 1], nullptr, 10);
        else if (name == "--inputs")
            options.inputs = std::strtoull(argv[i + 1], nullptr, 10);
        else
            return false;
    }
    return argc % 2 == 1;
}

int RunAll(const Options& options) {
    bool areSound = true;
    std::uint64_t inputs = 0;
    for (const Target& target : Targets()) {
        if (!options.target.empty() && options.target != target.name)
            continue;
        areSound = Run(target, options) && areSound;
        inputs += options.inputs;
    }
    if (inputs == 0) {
        std::fprintf(stderr, "there is no such target, or no input\n");
        return 2;
    }
    if (!areSound)
        return 1;
    std::printf("fuzz: %llu inputs, 0 crashes\n", static_cast<unsigned long long>(inputs));
    return 0;
}

int Main(int argc, char** argv) {
    Options options;
    if (!Read(argc, argv, options)) {
        std::fprintf(stderr,
                     "usage: orv_fuzz [--target NAME] [--seed N] [--first N] [--inputs N]\n");
        return 2;
    }
    orv_set_resource_module(::GetModuleHandleW(nullptr));
    ::SetUnhandledExceptionFilter(OnFault);
    std::signal(SIGABRT, OnAbort);
    // The settings are the only target that lives in the product folder. The others may run beside
    // it.
    std::unique_ptr<test::TestProductFolder> product;
    if (options.target.empty() || options.target == "settings")
        product = std::make_unique<test::TestProductFolder>();
    const test::ImportPatch noBoxes(::GetModuleHandleW(nullptr), "MessageBoxExW",
                                    reinterpret_cast<ULONGLONG>(&NoBox));
    std::thread watch(WatchForHang);
    const int result = RunAll(options);
    isOver = true;
    watch.join();
    return result;
}

} // namespace
} // namespace fuzz
} // namespace orv

int main(int argc, char** argv) {
    return orv::fuzz::Main(argc, argv);
}
