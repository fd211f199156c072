// Where the programs of the build are: the tests', the stand-ins', and the libraries beside them.
#pragma once

#include <string>

namespace orv {
namespace test {

// The folder of the running program, without a backslash at its end. Throws std::runtime_error when
// the system does not give it.
std::wstring ProgramFolder();

} // namespace test
} // namespace orv
