// The stand-in SDK with a host of callbacks, without a window: it records each call of the plug-in
// and returns what the test has set. For tests of the library, the shell and the door.
#pragma once

#include "base/noncopyable.h"
#include "standin/core.h"

#include <functional>
#include <string>
#include <vector>

namespace orv {
namespace test {

// The one host of the process while it lives. No menus, tables or notifications are left from
// earlier ones, and none of this one stay.
class BareHost : private rud_Noncopyable {
public:
    BareHost();
    ~BareHost();

    HWND mainWindow = ::GetDesktopWindow();
    std::wstring sceneFileName = L"loft.max";
    std::wstring sceneFilePath = L"C:\\scenes\\loft.max";
    std::wstring folder = L"C:\\host";
    int saved = 1;                    // answer to every saving
    std::function<void()> duringSave; // called within every saving, when set
    int scriptAnswer = 1;             // answer to every script
    standin_value scriptResult = {STANDIN_VALUE_NONE, 0, 0.0, nullptr};

    // Every call in order, as "name(arguments)".
    std::vector<std::wstring> calls;
    // The thread of every call, in the same order.
    std::vector<DWORD> threads;

    void record(const std::wstring& call);
};

} // namespace test
} // namespace orv
