#pragma once

namespace orv {
namespace bench {

class Figures;

// The course of each benchmark program: calls `run` with the figures whose names match the regular
// expression on the command line, all without one. Returns the program's exit code: that of the
// figures, or 2, with a line on standard error, after an exception.
int RunProgram(int argc, char** argv, void (*run)(Figures& figures));

} // namespace bench
} // namespace orv
