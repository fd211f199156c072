// The folder of the test program, where the plug-in and the host's libraries are too.
#pragma once

#include "base/windows.h"

#include <string>

namespace orv {
namespace test {

inline std::wstring ProgramFolder() {
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    const std::wstring whole = path;
    return whole.substr(0, whole.find_last_of(L"\\/"));
}

} // namespace test
} // namespace orv
