#include "bench/program.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string>
#include <vector>

namespace orv {
namespace bench {

int RunProgram(int argc, char** argv, int (*run)()) {
    // What is compared takes turns, so that none has the quiet part of the run to itself.
    std::string interleaved = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments(argv, argv + argc);
    arguments.insert(arguments.begin() + 1, &interleaved[0]);
    argc = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);
    argv = arguments.data();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    try {
        return run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 2;
    }
}

} // namespace bench
} // namespace orv
