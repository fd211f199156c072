#pragma once

namespace orv {
namespace bench {

// The course of each benchmark program: takes Google Benchmark's options from the command line and
// calls `run`, which registers and runs the benchmarks. Returns the program's exit code: what `run`
// returns, or 2, with a line on standard error, after an exception or an unknown option.
int RunProgram(int argc, char** argv, int (*run)());

} // namespace bench
} // namespace orv
