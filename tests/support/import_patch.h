// A function of Windows that fails when the plug-in calls it, and only then.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

namespace orv {
namespace test {

// While it lives, calls of `module` to its import `name` reach the function at the address
// `replacement`, which has to have the same signature. Throws std::runtime_error when the module
// has no such import.
class ImportPatch : private rud_Noncopyable {
public:
    ImportPatch(HMODULE module, const char* name, ULONGLONG replacement);
    ~ImportPatch();

private:
    void put(ULONGLONG function) const;

    ULONGLONG* slot_ = nullptr;
    ULONGLONG original_ = 0;
};

} // namespace test
} // namespace orv
