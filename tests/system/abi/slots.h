// Calls the host's objects as the host's compiler does, without a declaration of their classes: by
// the number of a virtual function, and by decorated names. A wrong header cannot hide behind
// itself here.
#pragma once

#include "base/noncopyable.h"
#include "base/windows.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace orv {
namespace test {

// Entry `slot` of the object's first virtual table. The object comes first among the arguments; a
// class that the function returns by value has its address second.
template<class Result, class... Arguments>
Result CallSlot(void* object, int slot, Arguments... arguments) {
    using Function = Result (*)(void*, Arguments...);
    void* const* table = *static_cast<void* const* const*>(object);
    Function function = nullptr;
    std::memcpy(&function, &table[slot], sizeof(function));
    return function(object, arguments...);
}

// An exported function of a library, which is loaded for good when it is not there yet; throws when
// it has none of that name.
template<class Function>
Function Exported(const wchar_t* library, const char* name) {
    const HMODULE present = ::GetModuleHandleW(library);
    const FARPROC found = ::GetProcAddress(present ? present : ::LoadLibraryW(library), name);
    if (!found)
        throw std::runtime_error(std::string("not exported: ") + name);
    Function function = nullptr;
    std::memcpy(&function, &found, sizeof(function));
    return function;
}

// A string of the host (MSTR), made and destroyed by its own code.
class HostString : private rud_Noncopyable {
public:
    explicit HostString(const wchar_t* text = L"") {
        Exported<void* (*)(void*, const wchar_t*)>(L"maxutil.dll",
                                                   "??0WStr@@QEAA@PEB_W@Z")(&string_, text);
    }
    ~HostString() { Exported<void (*)(void*)>(L"maxutil.dll", "??1WStr@@QEAA@XZ")(&string_); }

    void* object() { return &string_; }
    std::wstring text() const { return TextOf(&string_); }

    // The text of a string that belongs to someone else.
    static std::wstring TextOf(const void* string) {
        return Exported<const wchar_t* (*)(const void*)>(L"maxutil.dll",
                                                         "?data@WStr@@QEBAPEB_WXZ")(string);
    }

private:
    void* string_ = nullptr; // one pointer, as the host's
};

} // namespace test
} // namespace orv
