#include "bench/program.h"

#include "bench/figures.h"

#include <cstdio>
#include <exception>

namespace orv {
namespace bench {

int RunProgram(int argc, char** argv, void (*run)(Figures& figures)) {
    try {
        Figures figures(argc > 1 ? argv[1] : "");
        run(figures);
        return figures.exitCode();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 2;
    }
}

} // namespace bench
} // namespace orv
