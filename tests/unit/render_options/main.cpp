#include "base/windows.h"
#include "resources/text.h"

#include <gtest/gtest.h>

// The host's own controls, which the render options dialog has: here without what they do.
static void RegisterHostControls() {
    WNDCLASSEXW control = {};
    control.cbSize = sizeof(control);
    ::GetClassInfoExW(nullptr, L"EDIT", &control);
    control.hInstance = orv_resource_module();
    control.lpszClassName = L"CustEdit";
    ::RegisterClassExW(&control);
    control.lpfnWndProc = ::DefWindowProcW;
    control.lpszClassName = L"SpinnerControl";
    ::RegisterClassExW(&control);
}

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    orv_set_resource_module(
        ::GetModuleHandleW(nullptr)); // the program carries the plug-in's resources
    RegisterHostControls();
    return RUN_ALL_TESTS();
}
